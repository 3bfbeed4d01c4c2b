#include "base/color.h"

#include <allegro.h>

namespace nubo {

void use_window_color_order() {
    _rgb_r_shift_32 = 16;
    _rgb_g_shift_32 = 8;
    _rgb_b_shift_32 = 0;
    _rgb_a_shift_32 = 24;
}

bool has_window_color_order() { return makecol32(1, 2, 3) == static_cast<int>(pack_color(1, 2, 3)); }

}  // namespace nubo
