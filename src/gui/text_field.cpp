#include "gui/text_field.h"

#include "base/log.h"
#include "framework/traps.h"
#include "gui/elements.h"
#include "state/view.h"
#include <algorithm>

namespace nubo {
namespace {

/// Most characters of the field; the buffer's last byte ends the text.
int capacity(int slot) { return std::clamp<int>(gui::field_max[at(slot)], 0, field_size - 1); }

/// Keeps the text within the field's own size.
void cut_at_capacity(int slot) {
    for (int i = capacity(slot); i < field_size; ++i) gui::text[at(slot)][at(i)] = '\0';
}

/// Moves the characters behind `position` down over it.
void close_gap(int slot, int position) {
    auto& text = gui::text[at(slot)];
    for (int i = position; i + 1 < field_size; ++i) text[at(i)] = text[at(i + 1)];
    cut_at_capacity(slot);
}

/// The index of the character under the mouse.
int cursor_under_mouse(int slot, int advance) {
    constexpr int text_left = 5;
    const int distance = mouse_x - text_left - gui::x[at(slot)];
    return distance / advance + (distance > 0 ? 1 : 0) + gui::field_scroll[at(slot)];
}

}  // namespace

int field_length(int slot) {
    const auto& text = gui::text[at(slot)];
    int length = 0;
    while (length < field_size - 1 && text[at(length)] != '\0') ++length;
    return length;
}

void GUI_set_key_focus(int slot, bool to_end) {
    if (!GUI_check_window(slot, "GUI_set_key_focus")) return;
    const std::size_t s = at(slot);
    key_focus = slot;
    const int font = std::clamp<int>(gui::field_font[s], 0, font_slot_count - 1);
    const int width = std::min(font_slots[at(font)].cell_w, font_slots[at(font)].advance['A']);
    if (width < 1) {
        UA_log("[ ERROR ] : Width of text field font is less than one!");
        UA_log("[ STATS ] : Font slot = %d", font);
        UA_log("[ STATS ] : Width     = %d", width);
        return;
    }
    const int length = field_length(slot);
    if (to_end) {
        gui::cursor[s] = length;
        gui::field_scroll[s] = std::max(length - gui::field_visible[s], 0);
    } else {
        const int last_shown = std::min(length, gui::field_scroll[s] + gui::field_visible[s]);
        gui::cursor[s] = std::clamp(cursor_under_mouse(slot, font_slots[at(font)].advance['A']), 0, last_shown);
    }
}

int GUI_insert_field(int slot, char character, int position) {
    if (!GUI_check_window(slot, "GUI_insert_field")) return 0;
    if (position < 0 || position >= capacity(slot) || field_length(slot) >= capacity(slot)) return 0;
    auto& text = gui::text[at(slot)];
    for (int i = field_size - 1; i > position; --i) text[at(i)] = text[at(i - 1)];
    cut_at_capacity(slot);
    text[at(position)] = character;
    return 1;
}

void GUI_delete_field(int slot, int position) {
    if (!GUI_check_window(slot, "GUI_delete_field")) return;
    if (position < 1 || position > capacity(slot) || gui::cursor[at(slot)] <= 0) return;
    close_gap(slot, position - 1);
}

void GUI_delete_field(int slot, int position, Forward) {
    if (!GUI_check_window(slot, "GUI_delete_field")) return;
    if (position >= 0 && position < capacity(slot)) close_gap(slot, position);
}

}  // namespace nubo
