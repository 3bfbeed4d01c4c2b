#include "gui/field_selection.h"

#include "base/log.h"
#include "framework/traps.h"
#include "gui/elements.h"
#include "gui/text_field.h"
#include "state/mouse.h"
#include <algorithm>
#include <string>

namespace nubo {
namespace {

/// The name at the end of a path, without its ending; all of a name that has none.
FieldPart stem_of_field(int slot) {
    std::array<char, field_size> bytes{};
    GUI_read_field(slot, bytes);
    const std::string text = bytes.data();
    const std::size_t slash = text.rfind('/'), start = slash == std::string::npos ? 0 : slash + 1;
    const std::size_t point = text.rfind('.');
    const bool has_ending = point != std::string::npos && point > start;
    return {static_cast<int>(start), static_cast<int>(has_ending ? point : text.size())};
}

void select_stem(int slot) {
    const FieldPart stem = stem_of_field(slot);
    scroll_field_to_end(slot);
    gui::cursor[at(slot)] = stem.end;
    gui::field_scroll[at(slot)] = std::min<int>(gui::field_scroll[at(slot)], stem.end);
    gui::field_anchor[at(slot)] = stem.start;
}

/// The position under the mouse, no further than what shows.
int cursor_under_mouse(int slot, int advance) {
    constexpr int text_left = 5;
    const int distance = mouse_x - text_left - gui::x[at(slot)];
    const int column = std::min(distance / advance + (distance > 0 ? 1 : 0), int{gui::field_visible[at(slot)]});
    return step_by_columns(slot, gui::field_scroll[at(slot)], column);
}

}  // namespace

FieldPart selected_part(int slot) {
    const int anchor = gui::field_anchor[at(slot)], cursor = gui::cursor[at(slot)];
    if (anchor < 0) return {cursor, cursor};
    const int length = field_length(slot);  // the other flow may have written a shorter text
    return {std::min({anchor, cursor, length}), std::min(std::max(anchor, cursor), length)};
}

void begin_selection(int slot) {
    if (gui::field_anchor[at(slot)] < 0) gui::field_anchor[at(slot)] = int{gui::cursor[at(slot)]};
}

void unselect(int slot) { gui::field_anchor[at(slot)] = -1; }

void select_all(int slot) {
    scroll_field_to_end(slot);
    gui::field_anchor[at(slot)] = 0;
}

bool delete_selected(int slot) {
    const FieldPart part = selected_part(slot);
    unselect(slot);
    if (part.is_empty()) return false;
    delete_bytes(slot, part.start, part.end);
    gui::cursor[at(slot)] = part.start;
    gui::field_scroll[at(slot)] = std::min<int>(gui::field_scroll[at(slot)], part.start);
    return true;
}

namespace {

/// The field gets the keyboard.
void select_at_focus(int slot) {
    const int selects = gui::field_selects[at(slot)];
    if (selects != SELECTS_NOTHING) return selects == SELECTS_STEM ? select_stem(slot) : select_all(slot);
    unselect(slot);
    scroll_field_to_end(slot);
}

}  // namespace

void GUI_set_key_focus(int slot, bool to_end) {
    if (!GUI_check_window(slot, "GUI_set_key_focus")) return;
    const std::size_t s = at(slot);
    const bool has_keyboard = key_focus == slot;
    key_focus = slot;
    if (to_end || (!has_keyboard && gui::field_selects[s] != SELECTS_NOTHING)) return select_at_focus(slot);
    const int font = std::clamp<int>(gui::field_font[s], 0, font_slot_count - 1);
    const int width = std::min(font_slots[at(font)].cell_w, font_slots[at(font)].advance['A']);
    if (width < 1) {
        UA_log("[ ERROR ] : Width of text field font is less than one!");
        UA_log("[ STATS ] : Font slot = %d", font);
        UA_log("[ STATS ] : Width     = %d", width);
        return;
    }
    unselect(slot);
    gui::cursor[s] = cursor_under_mouse(slot, font_slots[at(font)].advance['A']);
}

}  // namespace nubo
