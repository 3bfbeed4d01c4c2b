#include "platform/window_colors.h"

#include "base/bitmap.h"
#include "base/color.h"
#include <algorithm>
#include <allegro.h>
#include <xalleg.h>

namespace nubo {
namespace {

/// True where Allegro takes red and blue the other way round: it then goes by the visual's masks from its own order,
/// as on a display of 10 bits a component.
bool is_window_swapped = false;

Color with_red_and_blue_swapped(Color color) { return pack_color(blue_of(color), green_of(color), red_of(color)); }

}  // namespace

bool adopt_window_colors() {
    constexpr int fewest_bits = 15;  // of a pixel; displays with fewer go by a palette
    if (_xwin.display != nullptr && _xwin.window_depth < fewest_bits) return false;
    is_window_swapped = !has_window_color_order();
    use_window_color_order();
    return true;
}

void convert_to_window(BITMAP* picture, int top, int height) {
    if (!is_window_swapped) return;
    for (int y = top; y < top + height; ++y) {
        Color* const row = pixels_at(picture, 0, y);
        std::transform(row, row + picture->w, row, with_red_and_blue_swapped);
    }
}

}  // namespace nubo
