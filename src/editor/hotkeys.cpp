// The key table: what the keys of an action run. Their defaults stand in base/keys.cpp.
#include "base/keys.h"
#include "editor/hotkey_actions.h"
#include "gui/waiting.h"
#include "gui/window.h"
#include "state/cel.h"
#include "state/flow.h"
#include "state/run.h"
#include "view/view.h"
#include "windows/cel/cel_commands.h"
#include "windows/cel/clipboard.h"
#include "windows/favorites_window.h"
#include "windows/files/file_browser.h"
#include "windows/frame_jump.h"
#include "windows/frame_menu.h"
#include "windows/kit/placement.h"
#include "windows/kit/quick_pan.h"
#include "windows/option_slider.h"
#include "windows/pic_commands.h"
#include "windows/tip_window.h"

namespace nubo {
namespace {

// ---- The table -----------------------------------------------------------------------------------------------------

/// WAIT_AFTER: the picture goes on, but the action rests till the key is up. REPEATS: it acts again and again till
/// then.
enum KeyWait : int { NO_WAIT, WAIT_AFTER, REPEATS };
/// IS_FREE: the row runs even while a text field has the keyboard.
enum KeyField : int { GIVES_WAY, IS_FREE };

struct HotkeyRow {
    Hotkey action;
    HotkeyMode mode;  // which scan runs it; QUICK PAN also that of the nodes
    KeyWait wait;
    KeyField field;
    void (*run)();
};

// clang-format off
constexpr std::array<HotkeyRow, HOTKEY_COUNT> rows{{
    {HOTKEY_CEL_GET,          HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, get_by_menu},
    {HOTKEY_CEL_CLIP,         HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, clip_by_menu},
    {HOTKEY_CEL_PASTE,        HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, paste_by_key},
    {HOTKEY_CEL_BELOW,        HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, below_by_key},
    {HOTKEY_CEL_ONE_COLOR,    HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, ask_to_convert_cel},
    {HOTKEY_CEL_TURN,         HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, turn_cel},
    {HOTKEY_PIC_CLEAR,        HOTKEYS_MAIN,  WAIT_AFTER, GIVES_WAY, clear_frame},
    {HOTKEY_PIC_RESTORE,      HOTKEYS_MAIN,  WAIT_AFTER, IS_FREE,   restore_frame},
    {HOTKEY_PIC_SAVE,         HOTKEYS_MAIN,  NO_WAIT,    IS_FREE,   save_frame_command},
    {HOTKEY_PIC_LOAD,         HOTKEYS_MAIN,  NO_WAIT,    IS_FREE,   load_frame_command},
    {HOTKEY_FRAME_CLONE,      HOTKEYS_MAIN,  WAIT_AFTER, GIVES_WAY, clone_frame},
    {HOTKEY_FRAME_INSERT,     HOTKEYS_MAIN,  WAIT_AFTER, GIVES_WAY, insert_blank_frame},
    {HOTKEY_FRAME_RESIZE,     HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, resize_by_key},
    {HOTKEY_FRAME_DELETE,     HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, delete_frame_by_key},
    {HOTKEY_PAN_UP,           HOTKEYS_PAN,   NO_WAIT,    GIVES_WAY, pan_up_by_key},
    {HOTKEY_PAN_DOWN,         HOTKEYS_PAN,   NO_WAIT,    GIVES_WAY, pan_down_by_key},
    {HOTKEY_PAN_LEFT,         HOTKEYS_PAN,   NO_WAIT,    GIVES_WAY, pan_left_by_key},
    {HOTKEY_PAN_RIGHT,        HOTKEYS_PAN,   NO_WAIT,    GIVES_WAY, pan_right_by_key},
    {HOTKEY_QUICK_PAN,        HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, quick_pan},
    {HOTKEY_FRAME_NEXT,       HOTKEYS_MODAL, REPEATS,    GIVES_WAY, next_frame},
    {HOTKEY_FRAME_PREVIOUS,   HOTKEYS_MODAL, REPEATS,    GIVES_WAY, previous_frame},
    {HOTKEY_FRAME_FIRST,      HOTKEYS_MODAL, NO_WAIT,    GIVES_WAY, first_frame},
    {HOTKEY_FRAME_LAST,       HOTKEYS_MODAL, NO_WAIT,    GIVES_WAY, last_frame},
    {HOTKEY_FRAME_CENTER,     HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, center_frame},
    {HOTKEY_BRUSH_EYEDROPPER, HOTKEYS_MAIN,  WAIT_AFTER, IS_FREE,   pick_brush_color},
    {HOTKEY_MASK_EYEDROPPER,  HOTKEYS_MAIN,  WAIT_AFTER, IS_FREE,   pick_mask_color},
    {HOTKEY_COLOR_MENU,       HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, color_window_by_key},
    {HOTKEY_BRUSH_TIP,        HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, tip_window},
    {HOTKEY_BRUSH_TOOL,       HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, tool_window_by_key},
    {HOTKEY_INK,              HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, ink_window_by_key},
    {HOTKEY_TOGGLE_MENU,      HOTKEYS_MAIN,  WAIT_AFTER, IS_FREE,   toggle_window},
    {HOTKEY_MEASURE,          HOTKEYS_MAIN,  NO_WAIT,    IS_FREE,   measure_by_key},
    {HOTKEY_FRAME_JUMP,       HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, frame_jump},
    {HOTKEY_TOOL_OPTION,      HOTKEYS_MAIN,  WAIT_AFTER, GIVES_WAY, toggle_tool_option},
    {HOTKEY_INK_OPTION,       HOTKEYS_MAIN,  WAIT_AFTER, GIVES_WAY, toggle_ink_option},
    {HOTKEY_COPY,             HOTKEYS_MAIN,  WAIT_AFTER, GIVES_WAY, clipboard_copy},
    {HOTKEY_PASTE,            HOTKEYS_MAIN,  WAIT_AFTER, GIVES_WAY, clipboard_paste},
    {HOTKEY_UNDO,             HOTKEYS_MAIN,  WAIT_AFTER, GIVES_WAY, undo_by_user},
    {HOTKEY_REDO,             HOTKEYS_MAIN,  WAIT_AFTER, GIVES_WAY, redo_by_user},
    {HOTKEY_ZOOM_IN,          HOTKEYS_MAIN,  WAIT_AFTER, GIVES_WAY, zoom_in_by_key},
    {HOTKEY_ZOOM_OUT,         HOTKEYS_MAIN,  WAIT_AFTER, GIVES_WAY, zoom_out_by_key},
    {HOTKEY_FAVORITES,        HOTKEYS_MAIN,  WAIT_AFTER, GIVES_WAY, favorites_window},
    {HOTKEY_EXIT,             HOTKEYS_MAIN,  NO_WAIT,    IS_FREE,   exit_by_key},
    {HOTKEY_RAPID_EXIT,       HOTKEYS_MODAL, NO_WAIT,    IS_FREE,   rapid_exit_by_key},
    {HOTKEY_CEL_FLIP_ACROSS,  HOTKEYS_PLACING, WAIT_AFTER, GIVES_WAY, flip_cel_across},
    {HOTKEY_CEL_FLIP_DOWN,    HOTKEYS_PLACING, WAIT_AFTER, GIVES_WAY, flip_cel_down},
}};
// clang-format on
static_assert(rows_in_order(rows, &HotkeyRow::action));

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
    for (const HotkeyRow& row : rows) {
        bool& rests = acted[at(row.action)];
        if (rests && !hotkey_held(row.action)) rests = false;
    }
}

/// What a tool that waits will paint with, which the user may change meanwhile.
bool changes_paint(Hotkey action) {
    return action == HOTKEY_TOOL_OPTION || action == HOTKEY_BRUSH_TIP || action == HOTKEY_INK;
}

/// True when a scan of `mode` runs the row.
bool acts_in(const HotkeyRow& row, int mode) {
    if (mode == HOTKEYS_NODES && row.action == HOTKEY_QUICK_PAN) return true;
    return mode == HOTKEYS_TOOL ? changes_paint(row.action) : row.mode == mode;
}

bool rests(const HotkeyRow& row) {
    if (row.wait == NO_WAIT || !acted[at(row.action)]) return false;
    return row.wait == WAIT_AFTER || UA_clock_ticks - due[at(row.action)] < 0;
}

/// Counted from before a step that took long, but its picture is shown before the next one.
void run_repeating(const HotkeyRow& row) {
    constexpr int first_pause = clock_hz * 2 / 5, pause = clock_hz / 4;
    bool& has_acted = acted[at(row.action)];
    due[at(row.action)] = UA_clock_ticks + (has_acted ? pause : first_pause);
    has_acted = true;
    row.run();
}

void run_row(const HotkeyRow& row, int mode, int value) {
    if (!acts_in(row, mode) || (row.field == GIVES_WAY && field_has_keyboard())) return;
    if (row.action == HOTKEY_CEL_GET && value == KEY_ESC && escape_rests()) return;
    if (mode != HOTKEYS_PAN) {
        if (is_left_over(value)) return;
        ran_as[at(key_code_of(value))] = value;
    }
    if (rests(row)) return;
    if (row.wait == REPEATS) return run_repeating(row);
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
        if (state == KEY_IS_DOWN && index < rows.size()) run_row(rows[index], mode, value);
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
