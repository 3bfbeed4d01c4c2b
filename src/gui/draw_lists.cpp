#include "gui/draw_lists.h"

#include "framework/text.h"
#include "gui/columns.h"
#include "gui/draw_elements.h"
#include "gui/text_field.h"
#include "state/run.h"
#include "state/view.h"
#include <algorithm>

namespace nubo {
namespace {

/// Keeps what is drawn inside the element for as long as it lives: the label of a row may be longer than the list.
class ClipToElement {
public:
    explicit ClipToElement(int slot) {
        get_clip_rect(screen_buffer, &left_, &top_, &right_, &bottom_);
        const int x = gui::x[at(slot)], y = gui::y[at(slot)];
        set_clip_rect(screen_buffer, std::max(left_, x + 1), std::max(top_, y + 1),
                      std::min(right_, x + gui::w[at(slot)] - 2), std::min(bottom_, y + gui::h[at(slot)] - 2));
    }
    ~ClipToElement() { set_clip_rect(screen_buffer, left_, top_, right_, bottom_); }
    ClipToElement(const ClipToElement&) = delete;
    ClipToElement& operator=(const ClipToElement&) = delete;

private:
    int left_ = 0, top_ = 0, right_ = 0, bottom_ = 0;
};

/// The right end of the highlight of a row.
int row_right(std::size_t s) {
    constexpr int slider_gap = 3;
    const int x = gui::x[s], row_w = gui::row_w[s];
    if (row_w == 0) return x + gui::w[s];
    return row_w < 0 ? x + gui::slider_ox[s] - slider_gap : x + row_w;
}

void draw_row(int slot, int row, const ListColors& colors) {
    const std::size_t s = at(slot);
    const int entry = row + gui::slider_value[s];
    if (entry < 0 || entry >= list_row_max) return;
    const std::string_view text = text_of_label(gui::row_ids[s][at(entry)]);
    if (text.empty()) return;
    const int font = std::clamp<int>(gui::row_font[s], 0, font_slot_count - 1);
    const TextColor color = entry == marked_entry_of(slot) ? colors.marked : colors.text;
    set_font(static_cast<Font>(font), color);  // again for each row, since a label may hold colour codes
    constexpr int text_left = 3;
    const int rise = (gui::row_h[s] - font_slots[at(font)].cell_h) / 2;
    UA_text(screen_buffer, gui::x[s] + text_left + gui::row_left[s],
            gui::y[s] + 1 + gui::row_top[s] + rise + row * gui::row_h[s], text);
}

}  // namespace

void draw_list_in(int slot, const ListColors& colors) {
    const std::size_t s = at(slot);
    GUI_box(slot, colors.fill, colors.border);
    const ClipToElement clip(slot);
    const int row = gui::hover_row[s];
    if (shown.hover == slot && row != -1) {
        const int top = gui::y[s] + 1 + gui::row_top[s] + row * gui::row_h[s];
        rectfill(screen_buffer, gui::x[s] + 2, top, row_right(s), top + gui::row_h[s] - 1,
                 static_cast<int>(colors.row));
    }
    for (int i = 0; i < gui::rows[s]; ++i) draw_row(slot, i, colors);
}

void draw_field_in(int slot, const FieldColors& colors) {
    const std::size_t s = at(slot);
    constexpr int cell_w = 6, left = 3, top = 2, phases_lit = 4;
    GUI_box(slot, colors.fill, colors.border);
    set_font(FONT_WIDE, colors.text);
    const int first = gui::field_scroll[s], x = gui::x[s] + left, y = gui::y[s] + top;
    std::array<char, field_size> text{};
    GUI_read_field(slot, text);
    const int end = step_by_columns(slot, first, gui::field_visible[s]);
    UA_text_as_is(screen_buffer, x, y, {text.data() + first, at(end - first)}, cell_w);
    if (key_focus == slot && cursor_phase < phases_lit) {
        const int cursor_x = x - 1 + field_columns(slot, first, gui::cursor[s]) * cell_w;
        vline(screen_buffer, cursor_x, y - 1, gui::y[s] + gui::h[s] - 2, text_colors[colors.text][0]);
    }
}

void draw_list(int slot) { draw_list_in(slot, {color_of(slot), ui_border, ui_shadow, TEXT_LIGHT, TEXT_SELECTED}); }

void draw_text_field(int slot) {
    const bool refused = gui::invalid[at(slot)] != 0;
    draw_field_in(slot, {refused ? ui_highlight_fore : color_of(slot), ui_border, TEXT_LIGHT});
}

}  // namespace nubo
