#include "gui/window.h"
#include "state/windows.h"

#include <algorithm>

namespace nubo {
namespace {

bool shows_text_color(ElementType type) { return type == ELEMENT_TEXT || type == ELEMENT_CAPTION; }

/// The slots of the window on screen.
int window_slots() { return std::clamp<int>(gui::child_count[slot_window], 0, gui_slots); }

void clear_slots(int first, int count) {
    for (int slot = first; slot < std::min(first + count, gui_slots); ++slot) GUI_clear_element(slot);
}

}  // namespace

// ---- Building ------------------------------------------------------------------------------------------------------

void build_window(const WindowRow& window) {
    const bool moved = window.place != POS_NONE && window_pos[at(window.place)].x != -1;
    if (moved)
        build_window_at(window, window_pos[at(window.place)].x, window_pos[at(window.place)].y);
    else
        build_window_at(window, window.x, window.y);
}

void build_window_at(const WindowRow& window, int x, int y) {
    constexpr int title_offset = 2;
    const int base = window.base;
    clear_slots(base, window.child_count);
    GUI_add_window(x, y, window.w, window.h, window.child_count, base);
    GUI_add_title(x + title_offset, y + title_offset, window.title_w, window.title, base);
    gui::value_text[at(base + slot_title)] = window.title_text;
    // A drag is stored in the row of the window's number, unless the title names another one.
    if (window.place != POS_NONE && static_cast<int>(window.place) != static_cast<int>(window.id))
        gui::drag_id[at(base + slot_title)] = static_cast<std::int16_t>(window.place);
    for (const ElementRow& row : window.elements) build_element(row, x, y, base);
    if (window.id != WINDOW_KEPT) menu_id = window.id;
}

void build_element(const ElementRow& row, int x, int y, int base) {
    const int slot = base + row.slot;
    if (!is_slot(GUI_clear_element(slot))) return;
    const std::size_t s = at(slot);
    if (row.range.highest > row.range.lowest) {
        GUI_add_slider(slot, x + row.x, y + row.y, row.w, 1);
        GUI_set_range(slot, row.range);
    } else {
        GUI_add_button(slot, x + row.x, y + row.y, *row.fill, row.label);
    }
    gui::type[s] = static_cast<std::int16_t>(row.type);
    gui::w[s] = static_cast<std::int16_t>(row.w);
    gui::h[s] = static_cast<std::int16_t>(row.h);
    gui::color[s] = shows_text_color(row.type) ? static_cast<int>(row.text_color) : static_cast<int>(*row.fill);
    gui::value_text[s] = row.text;
    gui::tooltip[s] = static_cast<std::int16_t>(row.tooltip);
    gui::left_action[s] = static_cast<std::int16_t>(row.left);
    gui::right_action[s] = static_cast<std::int16_t>(row.right);
}

// ---- The window on screen ------------------------------------------------------------------------------------------

void toggle_window() {
    for (int slot = 0; slot < window_slots(); ++slot) gui::hidden[at(slot)] = gui::hidden[at(slot)] == 0 ? 1 : 0;
}

void hide_window() {
    for (int slot = 0; slot < window_slots(); ++slot) gui::hidden[at(slot)] = 1;
}

void clear_high_slots() { clear_slots(high_slot, gui_slots - high_slot); }

}  // namespace nubo
