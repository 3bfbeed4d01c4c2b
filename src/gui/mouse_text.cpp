#include "gui/mouse_text.h"

#include "framework/text.h"
#include "state/run.h"
#include "state/view.h"

namespace nubo {
namespace {

/// After the mouse by `gap`, or before it by `reach` if the anchor lies after it or the end is near.
int beside_mouse(int mouse, bool anchor_after, int gap, int reach, int size, int end) {
    const bool fits_before = mouse - reach >= 0, fits_after = mouse + gap + size <= end;
    return (anchor_after && fits_before) || !fits_after ? mouse - reach : mouse + gap;
}

}  // namespace

void draw_mouse_text(const char* text, int anchor_x, int anchor_y, int line) {
    constexpr int gap = 7, above = 12, text_h = 5, line_h = 7,
                  outlined = 1;  // outlined, since any picture may lie below
    UA_set_font(FONT_NARROW, TEXT_YELLOW, 0, 0, 0, outlined, 0, 0);
    const int width = text_width(text);
    const int right = static_cast<int>(zoom_view_w[at(shown.zoom)]);
    const int bottom = static_cast<int>(zoom_view_h[at(shown.zoom)]);
    const int x = beside_mouse(shown.pixel_x - shown.pan_x, shown.pixel_x < anchor_x, gap, gap + width, width, right);
    const int y = beside_mouse(shown.pixel_y - shown.pan_y, shown.pixel_y < anchor_y, gap + line * line_h,
                               above + line * line_h, text_h, bottom);
    UA_text(overlay, x, y, text);
}

}  // namespace nubo
