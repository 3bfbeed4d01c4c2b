// The keys of a text field.
#include "base/keys.h"
#include "base/utf8.h"
#include "gui/elements.h"
#include "gui/field_clipboard.h"
#include "gui/field_selection.h"
#include "gui/text_field.h"
#include "gui/typed_text.h"
#include <algorithm>
#include <allegro.h>

namespace nubo {
namespace {

// ---- The cursor ----------------------------------------------------------------------------------------------------

void move_back_to(int slot, int position) {
    gui::cursor[at(slot)] = position;
    gui::field_scroll[at(slot)] = std::min<int>(gui::field_scroll[at(slot)], position);
}

void move_left(int slot) { move_back_to(slot, field_step_back(slot, gui::cursor[at(slot)])); }

/// What the user deletes to stays in view.
void show_left_of_cursor(int slot) {
    constexpr int shown = 4;
    const std::size_t s = at(slot);
    while (gui::field_scroll[s] > 0 && field_columns(slot, gui::field_scroll[s], gui::cursor[s]) < shown)
        gui::field_scroll[s] = field_step_back(slot, gui::field_scroll[s]);
}

void move_right(int slot) {
    const std::size_t s = at(slot);
    gui::cursor[s] = field_step_on(slot, gui::cursor[s]);
    while (field_columns(slot, gui::field_scroll[s], gui::cursor[s]) > gui::field_visible[s])
        gui::field_scroll[s] = field_step_on(slot, gui::field_scroll[s]);
}

void move_home(int slot) { gui::cursor[at(slot)] = gui::field_scroll[at(slot)] = 0; }

/// With SHIFT what the cursor passes is selected.
void move_cursor(int slot, void (*move)(int slot)) {
    if (shift_is_down())
        begin_selection(slot);
    else
        unselect(slot);
    move(slot);
}

/// The next field above this one, or else the first one below.
void focus_next(int slot) {
    for (int step = 1; step < gui_slots; ++step) {
        const int next = (slot + step) % gui_slots;
        if (gui::active[at(next)] == 0 || gui::left_action[at(next)] != ACTION_FOCUS) continue;
        GUI_set_key_focus(next, true);
        return;
    }
}

// ---- Keys ----------------------------------------------------------------------------------------------------------

/// In the place of what is selected. False, after a blink of the field, where it doesn't fit: then nothing has changed.
bool insert_at_cursor(int slot, std::string_view character) {
    constexpr int blink_ticks = 24;
    const FieldPart selected = selected_part(slot);
    const int rest = field_length(slot) - (selected.end - selected.start);
    const bool fits = rest + static_cast<int>(character.size()) < field_size;
    if (fits) delete_selected(slot);
    if (!fits || GUI_insert_field(slot, character, gui::cursor[at(slot)]) == 0) {
        gui::field_blink[at(slot)] = blink_ticks;
        return false;
    }
    move_right(slot);
    return true;
}

/// With CTRL a key types nothing.
void press_with_ctrl(int slot, int code) {
    constexpr int rests_until_up = -1'000'000'000;  // ticks
    key_repeat[at(code)] = rests_until_up;          // or it would type itself when CTRL goes up first
    if (code == KEY_A) select_all(slot);
    if (code == KEY_C) ask_field_clipboard(slot, FIELD_COPIES);
    if (code == KEY_V) ask_field_clipboard(slot, FIELD_PASTES);
    if (code == KEY_X) ask_field_clipboard(slot, FIELD_CUTS);
}

void type_character(int slot, int code) {
    if ((modifiers_down() & key_ctrl) != 0) return press_with_ctrl(slot, code);
    if (const std::string character = typed_by(code); !character.empty()) insert_at_cursor(slot, character);
}

void delete_back(int slot) {
    if (delete_selected(slot)) return show_left_of_cursor(slot);
    const int end = gui::cursor[at(slot)], start = field_step_back(slot, end);
    GUI_delete_field(slot, end);
    move_back_to(slot, start);
    show_left_of_cursor(slot);
}

void delete_on(int slot) {
    if (!delete_selected(slot)) GUI_delete_field(slot, gui::cursor[at(slot)], Forward{});
}

void press_key(int slot, int code) {
    switch (code) {
    case KEY_BACKSPACE: delete_back(slot); return;
    case KEY_DEL: delete_on(slot); return;
    case KEY_LEFT: move_cursor(slot, move_left); return;
    case KEY_RIGHT: move_cursor(slot, move_right); return;
    case KEY_HOME: move_cursor(slot, move_home); return;
    case KEY_END: move_cursor(slot, scroll_field_to_end); return;
    case KEY_TAB: focus_next(slot); return;
    case KEY_ENTER:
    case KEY_ENTER_PAD: gui::click[at(slot)] = 1; return;
    default: type_character(slot, code);
    }
}

/// Counts the ticks that the key has been down; true on those on which it acts.
bool key_acts(int code) {
    constexpr int first_repeat = 29, repeat_again = 24;
    Shared<int>& ticks = key_repeat[at(code)];
    if (key_down[at(code)] == 0) {
        ticks = 0;
        return false;
    }
    ticks += 1;
    if (ticks == 1) return true;
    if (ticks < first_repeat) return false;
    ticks = repeat_again;
    return true;
}

}  // namespace

void type_text(int slot, std::string_view text) {
    text = text.substr(0, text.find_first_of(std::string_view("\0\r\n", 3)));
    while (!text.empty()) {
        const std::string_view character = text.substr(0, first_character(text).size);
        text.remove_prefix(character.size());
        const bool is_control = static_cast<unsigned char>(character.front()) < ' ' || character.front() == '\x7f';
        if (!is_control && !insert_at_cursor(slot, character)) return;
    }
}

void run_text_input(int slot) {
    if (!is_text_field(slot)) return;
    for (int code = 1; code < KEY_MAX; ++code)
        if (key_acts(code)) press_key(slot, code);
}

}  // namespace nubo
