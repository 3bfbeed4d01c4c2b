#include "gui/mouse_text.h"

#include "framework/text.h"
#include "state/run.h"
#include "state/shown.h"
#include <algorithm>
#include <array>
#include <string_view>

namespace nubo {
namespace {

struct MouseText {
    std::array<char, 32> text{};  // empty: nothing to show
    bool anchor_right = false, anchor_below = false;
};
constinit std::array<MouseText, mouse_text_lines> waiting;

/// After the mouse by `gap`, or before it by `reach` if the anchor lies after it or the end is near.
int beside_mouse(int mouse, bool anchor_after, int gap, int reach, int size, int end) {
    const bool fits_before = mouse - reach >= 0, fits_after = mouse + gap + size <= end;
    return (anchor_after && fits_before) || !fits_after ? mouse - reach : mouse + gap;
}

void draw_line(const MouseText& told, int line) {
    constexpr int gap = 7, above = 12, text_h = 5, line_h = 7, outlined = 1;
    // Outlined, since any picture may lie below.
    UA_set_font(FONT_NARROW, TEXT_YELLOW, 0, 0, 0, outlined, 0, 0);
    const int width = text_width(told.text.data());
    const int x = beside_mouse(shown.mouse_x, told.anchor_right, gap, gap + width, width, view_w);
    const int y =
        beside_mouse(shown.mouse_y, told.anchor_below, gap + line * line_h, above + line * line_h, text_h, view_h);
    UA_text(screen_buffer, x, y, told.text.data());
}

}  // namespace

void put_mouse_text(std::string_view text, int anchor_x, int anchor_y, int line) {
    MouseText& put = waiting[at(line)];
    put = {.anchor_right = shown.pixel_x < anchor_x, .anchor_below = shown.pixel_y < anchor_y};
    text.copy(put.text.data(), put.text.size() - 1);
}

void draw_mouse_texts(bool is_shown) {
    for (int line = 0; line < mouse_text_lines; ++line)
        if (is_shown && waiting[at(line)].text[0] != '\0') draw_line(waiting[at(line)], line);
    waiting = {};
}

}  // namespace nubo
