#include "windows/hotkey_window.h"

#include "base/keys.h"
#include "base/log.h"
#include "gui/columns.h"
#include "gui/shapes.h"
#include "state/flow.h"
#include "state/texts_keys.h"
#include "windows/kit/confirm_box.h"
#include "windows/kit/run_window.h"
#include <allegro.h>
#include <array>
#include <string>

namespace nubo {
namespace {

// ---- The windows as rows -------------------------------------------------------------------------------------------

constexpr int row_pitch = 10;

constexpr ElementRow caption_row(HotkeyWindowSlot slot, int x, int w, Label label) {
    return {.slot = slot, .x = x, .y = 2, .w = w, .label = label, .fill = &ui_border};
}

constexpr int key_slot(int row, KeySide side) { return HOTKEYS_KEY_FIRST + KEY_SIDES * row + side; }

constexpr ElementRow key_row(int row, KeySide side) {
    constexpr int primary_x = 162, alternate_x = 233, top = 14;
    return {.slot = key_slot(row, side),
            .type = ELEMENT_HOTKEY,
            .x = side == KEY_PRIMARY ? primary_x : alternate_x,
            .y = top + row_pitch * row,
            .w = 70,
            .left = ACTION_CLICK,
            .right = ACTION_CLICK_RIGHT};
}

constexpr ElementRow answer_row(int slot, int x, int y, int w, Label label) {
    return {.slot = slot, .type = ELEMENT_BUTTON_LIT, .x = x, .y = y, .w = w, .label = label, .left = ACTION_CLICK};
}

/// All slots from the list to CANCEL; one before OKAY is left free.
using HotkeyRows = std::array<ElementRow, HOTKEYS_CANCEL - slot_content>;

consteval HotkeyRows hotkey_window_rows() {
    constexpr int answer_y = 106, answer_w = 64;
    HotkeyRows rows{};
    std::size_t next = 0;
    const auto add = [&](const ElementRow& row) { rows[next++] = row; };
    add({.slot = HOTKEYS_LIST, .type = ELEMENT_LIST, .x = 2, .y = 12, .w = 316, .h = 93});
    add(caption_row(HOTKEYS_CAPTION_ACTION, 54, 107, LABEL_ACTION));
    add(caption_row(HOTKEYS_CAPTION_PRIMARY, 162, 70, LABEL_PRIMARY));
    add(caption_row(HOTKEYS_CAPTION_ALTERNATE, 233, 85, LABEL_ALTERNATE));
    for (int row = 0; row < key_rows_shown; ++row) {
        add(key_row(row, KEY_PRIMARY));
        add(key_row(row, KEY_ALTERNATE));
    }
    add(answer_row(HOTKEYS_OKAY, 2, answer_y, answer_w, LABEL_KEYS_OKAY));
    add(answer_row(HOTKEYS_DEFAULTS, 128, answer_y, answer_w, LABEL_KEYS_DEFAULTS));
    add(answer_row(HOTKEYS_CANCEL, 254, answer_y, answer_w, LABEL_KEYS_CANCEL));
    return rows;
}

constexpr HotkeyRows rows = hotkey_window_rows();

constexpr WindowRow window{.id = WINDOW_HOTKEYS,
                           .place = POS_HOTKEYS_AND_OPTIONS,
                           .x = 0,
                           .y = 123,
                           .w = 319,
                           .h = 116,
                           .child_count = HOTKEYS_SLOTS,
                           .title = LABEL_HOTKEYS,
                           .title_w = 51,
                           .elements = rows,
                           .cancel = HOTKEYS_CANCEL,
                           .outside = OUTSIDE_CANCELS,
                           .prompt = MESSAGE_REMAP_KEY};

constexpr ListLayout list_layout{
    .rows = key_rows_shown, .row_h = row_pitch, .font = FONT_WIDE, .row_w = -1, .row_top = 1};
constexpr int slider_x = 306, wheel_rows = 2;
constexpr int slider_stops = HOTKEY_COUNT - key_rows_shown + 1;  // the rows without an action are out of its reach

constexpr std::array<ElementRow, 4> prompt_rows{{
    answer_row(PROMPT_OKAY, 2, 50, 59, LABEL_OKAY),
    answer_row(PROMPT_CANCEL, 120, 50, 59, LABEL_CANCEL),
    {.slot = PROMPT_TEXT, .type = ELEMENT_TEXT, .x = 0, .y = 22, .w = 180, .text_color = TEXT_BUTTON},
    {.slot = PROMPT_ACTION, .type = ELEMENT_TEXT, .x = 0, .y = 36, .w = 180, .text_color = TEXT_SELECTED},
}};
static_assert(rows_in_order(prompt_rows, &ElementRow::slot, slot_content));

constexpr WindowRow prompt_window{.id = WINDOW_BOX,
                                  .x = 70,
                                  .y = 80,
                                  .w = 180,
                                  .h = 60,
                                  .child_count = PROMPT_SLOTS,
                                  .title = LABEL_PRESS_KEY,
                                  .title_w = 177,
                                  .elements = prompt_rows,
                                  .okay = PROMPT_OKAY,
                                  .cancel = PROMPT_CANCEL,
                                  .keys = KEYS_OWN,
                                  .shadows = true};

// ---- The window on screen ------------------------------------------------------------------------------------------

/// What the rows don't say. `first` is the action at the top of the list.
void finish_window(int first) {
    GUI_set_list(HOTKEYS_LIST, list_layout, LABEL_HOTKEY_FIRST, hotkey_rows);
    GUI_set_vertical_slider(HOTKEYS_LIST, slider_x, 0, slider_stops, wheel_rows);
    gui::slider_value[HOTKEYS_LIST] = first;
    // The list stays `hover` under the keys, so that the wheel turns it there too.
    for (int slot = key_slot(0, KEY_PRIMARY); slot < key_slot(key_rows_shown, KEY_PRIMARY); ++slot)
        gui::hot[at(slot)] = 0;
}

/// Calls `visit` with the slot, the row of the table and the side of each key shown. The rows shown are read once: a
/// turn of the wheel in between must not send a click to another row.
template <typename Visit> void for_each_key_shown(int first, Visit visit) {
    for (int row = 0; row < key_rows_shown; ++row)
        for (const KeySide side : {KEY_PRIMARY, KEY_ALTERNATE}) visit(key_slot(row, side), first + row, side);
}

void show_keys(int first) {
    for_each_key_shown(first,
                       [](int slot, int row, KeySide side) { key_value_of(slot) = int{hotkeys[at(row)][at(side)]}; });
}

void serve_keys(int first) {
    for_each_key_shown(first, [](int slot, int row, KeySide side) {
        auto& key_value = hotkeys[at(row)][at(side)];
        gui::color[at(slot)] = static_cast<int>(dupe_hotkey_check(row, side) ? ui_red : ui_background);
        const int click = take_click(slot);
        if (click == click_right) key_value = key_unmapped;
        if (click <= 0) return;
        const int chosen = key_prompt(static_cast<Label>(LABEL_HOTKEY_FIRST + row));
        if (chosen != no_key_chosen) key_value = chosen;
    });
}

// ---- Leaving -------------------------------------------------------------------------------------------------------

using KeyTable = std::array<std::array<Shared<int>, KEY_SIDES>, hotkey_rows>;

bool has_duplicates() {
    for (int row = 0; row < hotkey_rows; ++row)
        if (dupe_hotkey_check(row, KEY_PRIMARY) || dupe_hotkey_check(row, KEY_ALTERNATE)) return true;
    return false;
}

bool user_keeps_keys() {
    return !has_duplicates() || confirm(LABEL_DUPLICATE_KEYS, LABEL_DUPLICATE_QUESTION, /*shadows=*/true);
}

// ---- The prompt ----------------------------------------------------------------------------------------------------

struct Modifier {
    int bit, left_key, right_key;
    const char* name;
};
constexpr std::array<Modifier, 3> modifiers{{
    {key_ctrl, KEY_LCONTROL, KEY_RCONTROL, "CTRL+"},
    {key_alt, KEY_ALT, KEY_ALTGR, "ALT+"},
    {key_shift, KEY_LSHIFT, KEY_RSHIFT, "SHIFT+"},
}};

/// Takes the key that is down, with its modifiers, into `chosen` and its name into `text`; of several keys the last by
/// code. With none down both stay, so that a hand is free to press OKAY.
void read_keys(int& chosen, std::string& text) {
    int bits = 0;
    std::string prefix;
    for (const Modifier& modifier : modifiers) {
        if (key_down[at(modifier.left_key)] == 0 && key_down[at(modifier.right_key)] == 0) continue;
        bits |= modifier.bit;
        prefix += modifier.name;
    }
    for (int code = 1; code <= key_code_max; ++code) {
        if (key_down[at(code)] == 0) continue;
        chosen = code | bits;
        text = prefix;
        text += key_names[at(code)];
    }
}

}  // namespace

int key_prompt(Label action) {
    int chosen = no_key_chosen;
    std::string text(key_names[key_awaiting_input]);
    const auto show = [&] {
        read_keys(chosen, text);
        gui::value_text[PROMPT_TEXT] = text.c_str();
    };
    const auto built = [&] { gui::value_text[PROMPT_ACTION] = text_of_label(action).data(); };
    return run_window(prompt_window, {.built = built, .show = show}) == WINDOW_DONE ? chosen : no_key_chosen;
}

void hotkey_window() {
    KeyTable before;
    before = hotkeys;
    int first = 0;  // the action at the top of the list
    const auto show = [&] {
        first = gui::slider_value[HOTKEYS_LIST];
        show_keys(first);
    };
    const auto serve = [&] {
        serve_keys(first);
        if (take_click(HOTKEYS_DEFAULTS) > 0) default_hotkeys();
        return take_click(HOTKEYS_OKAY) > 0 && user_keeps_keys() ? WINDOW_DONE : WINDOW_STAYS;
    };
    const auto built = [&] { finish_window(first); };
    if (run_window(window, {.built = built, .show = show, .serve = serve}) == WINDOW_CANCELLED) hotkeys = before;
}

bool dupe_hotkey_check(int major, int minor) {
    if (major < 0 || major >= hotkey_rows) {
        UA_log("[ ERROR ] : Major OOB in call to dupe_hotkey_check! Major = %d", major);
        return false;
    }
    if (minor < 0 || minor >= KEY_SIDES) {
        UA_log("[ ERROR ] : Minor OOB in call to dupe_hotkey_check! Minor = %d", minor);
        return false;
    }
    const int value = hotkeys[at(major)][at(minor)];
    if (value == key_unmapped) return false;
    for (int row = 0; row < hotkey_rows; ++row)
        if (row != major && (hotkeys[at(row)][KEY_PRIMARY] == value || hotkeys[at(row)][KEY_ALTERNATE] == value))
            return true;
    return false;
}

}  // namespace nubo
