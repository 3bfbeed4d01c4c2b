#include "gui/draw_lists.h"

#include "base/bitmap.h"
#include "framework/text.h"
#include "gui/columns.h"
#include "gui/draw_elements.h"
#include "gui/field_selection.h"
#include "gui/text_field.h"
#include "state/run.h"
#include "state/shown.h"
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

/// Where the characters of a field stand.
struct FieldCells {
    static constexpr int cell_w = 6, left = 3, top = 2;

    int slot, first;  // the byte that is shown first
    int x() const { return gui::x[at(slot)] + left; }
    int y() const { return gui::y[at(slot)] + top; }
    /// The column before the character at `position`, in which the cursor stands.
    int before(int position) const { return x() - 1 + field_columns(slot, first, position) * cell_w; }
};

/// Letters and paper change their colours.
void reverse_part(const FieldCells& cells, const FieldPart& part, Color paper, Color letters) {
    const int right = std::min(cells.before(part.end), screen_buffer->w - 1), top = cells.y() - 1;
    const int bottom = gui::y[at(cells.slot)] + gui::h[at(cells.slot)] - 2;
    for (int y = std::max(top, 0); y <= std::min(bottom, screen_buffer->h - 1); ++y)
        for (int x = std::max(cells.before(part.start), 0); x <= right; ++x) {
            Color& pixel = *pixels_at(screen_buffer, x, y);
            pixel = pixel == paper ? letters : paper;
        }
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
    constexpr int phases_lit = 4;
    GUI_box(slot, colors.fill, colors.border);
    set_font(FONT_WIDE, colors.text);
    const FieldCells cells{slot, gui::field_scroll[at(slot)]};
    std::array<char, field_size> text{};
    GUI_read_field(slot, text);
    const int end = step_by_columns(slot, cells.first, gui::field_visible[at(slot)]);
    UA_text_as_is(screen_buffer, cells.x(), cells.y(), {text.data() + cells.first, at(end - cells.first)},
                  FieldCells::cell_w);
    if (key_focus != slot) return;
    const Color letters = text_colors[colors.text][0];
    const FieldPart selected = selected_part(slot);
    const FieldPart seen{std::clamp(selected.start, cells.first, end), std::clamp(selected.end, cells.first, end)};
    if (!seen.is_empty()) reverse_part(cells, seen, colors.fill, letters);
    if (cursor_phase < phases_lit)
        vline(screen_buffer, cells.before(gui::cursor[at(slot)]), cells.y() - 1,
              gui::y[at(slot)] + gui::h[at(slot)] - 2, static_cast<int>(letters));
}

void draw_list(int slot) { draw_list_in(slot, {color_of(slot), ui_border, ui_shadow, TEXT_LIGHT, TEXT_SELECTED}); }

void draw_text_field(int slot) {
    const bool refused = gui::invalid[at(slot)] != 0, blinks = gui::field_blink[at(slot)] > 0;
    draw_field_in(slot, {refused != blinks ? ui_highlight_fore : color_of(slot), ui_border, TEXT_LIGHT});
}

}  // namespace nubo
