// The scan of the key table: which commands (state/commands.h) the keys that are down run.
#include "state/hotkeys.h"
#include "base/keys.h"
#include "gui/waiting.h"
#include "gui/window.h"
#include "state/cel.h"
#include "state/commands.h"
#include "state/mouse.h"
#include "state/run.h"
#include <allegro.h>

namespace nubo {
namespace {

// ---- Keys ----------------------------------------------------------------------------------------------------------

bool field_has_keyboard() { return is_text_field(key_focus); }

// Rows that have acted and whose key is still down, and when those that repeat are due again, in `UA_clock_ticks`. Main
// flow only: no row that waits is of the other flow.
std::array<bool, HOTKEY_COUNT> acted{};
std::array<int, HOTKEY_COUNT> due{};

/// A press of the mouse ends the wait, or a click with the key still down would be lost; the row rests all the same.
void wait_after(Hotkey action) {
    const auto is_waited_for = [=] { return hotkey_held(action) && mouse_left == 0 && mouse_right == 0; };
    acted[at(action)] = true;
    while (is_waited_for() && exit_requested == 0) update_screen(UPDATE_NORMAL);
}

// What each key was down as, with its modifiers, when it last ran a row; 0 once it is up. Until then it runs no row as
// anything else: of CTRL+C whose CTRL goes up first, no C is left over. Main flow only.
std::array<int, key_codes> ran_as{};

bool is_left_over(int value) {
    const int ran = ran_as[at(key_code_of(value))];
    return ran != 0 && ran != value;
}

void forget_acted_rows() {
    escape_rests();  // else a later stroke would find the key down since then
    for (int code = 0; code < key_codes; ++code)
        if (key_down[at(code)] == 0) ran_as[at(code)] = 0;
    for (const Command& row : commands) {
        bool& rests = acted[at(row.action)];
        if (rests && !hotkey_held(row.action)) rests = false;
    }
}

/// What a tool that waits will paint with, which the user may change meanwhile.
bool changes_paint(Hotkey action) {
    return action == HOTKEY_TOOL_OPTION || action == HOTKEY_BRUSH_TIP || action == HOTKEY_INK;
}

/// What is switched while the hand works, in the middle of a shape too.
bool switches_guide(Hotkey action) { return action > HOTKEY_GUIDES && action <= HOTKEY_TILES; }

/// True when a scan of `mode` runs the row.
bool acts_in(const Command& row, int mode) {
    if (mode == HOTKEYS_NODES && row.action == HOTKEY_QUICK_PAN) return true;
    if ((mode == HOTKEYS_TOOL || mode == HOTKEYS_PLACING) && switches_guide(row.action)) return true;
    return mode == HOTKEYS_TOOL ? changes_paint(row.action) : row.mode == mode;
}

bool rests(const Command& row) {
    if (row.wait == NO_WAIT || !acted[at(row.action)]) return false;
    return row.wait == WAIT_AFTER || UA_clock_ticks - due[at(row.action)] < 0;
}

/// Counted from before a step that took long, but its picture is shown before the next one.
void run_repeating(const Command& row) {
    constexpr int first_pause = clock_hz * 2 / 5;
    const int pause = clock_hz / (row.wait == REPEATS ? 4 : 12);
    bool& has_acted = acted[at(row.action)];
    due[at(row.action)] = UA_clock_ticks + (has_acted ? pause : first_pause);
    has_acted = true;
    row.run();
}

void run_row(const Command& row, int mode, int value) {
    if (!acts_in(row, mode) || (row.field == GIVES_WAY && field_has_keyboard())) return;
    if (row.action == HOTKEY_CEL_GET && value == KEY_ESC && escape_rests()) return;
    if (mode != HOTKEYS_PAN) {
        if (is_left_over(value)) return;
        ran_as[at(key_code_of(value))] = value;
    }
    if (rests(row)) return;
    if (row.wait >= REPEATS) return run_repeating(row);
    row.run();
    if (row.wait == WAIT_AFTER) wait_after(row.action);
}

/// Of the four plain arrow keys.
bool is_arrow(int value) { return value >= KEY_LEFT && value <= KEY_DOWN; }

/// False when a bad key value ends the scan.
bool scan_row(std::size_t index, int modifiers, int mode) {
    for (const auto& value : hotkeys[index]) {
        const KeyState state = key_state(value, modifiers);
        if (state == KEY_IS_BAD) return false;
        if (mode == HOTKEYS_PAN && arrows_move_cel != 0 && is_arrow(value)) continue;
        if (state == KEY_IS_DOWN && index < commands.size()) run_row(commands[index], mode, value);
    }
    return true;
}

}  // namespace

void check_hotkeys(int mode) {
    hotkeys_busy = 1;
    if (mode != HOTKEYS_PAN) forget_acted_rows();
    const int modifiers = modifiers_down();
    for (std::size_t index = 0; index < hotkeys.size(); ++index)
        if (!scan_row(index, modifiers, mode)) break;
    hotkeys_busy = 0;
}

}  // namespace nubo
