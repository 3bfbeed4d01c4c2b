// The key table: which key runs which action.
#include "base/log.h"
#include "editor/frame_jump.h"
#include "editor/hotkey_actions.h"
#include "editor/quick_pan.h"
#include "editor/view.h"
#include "gui/window.h"
#include "paint/undo.h"
#include "state/flow.h"
#include "windows/activity_menus.h"
#include "windows/favorites_window.h"
#include "windows/frame_menu.h"
#include "windows/pic_commands.h"
#include "windows/tip_window.h"
#include <allegro.h>

namespace nubo {
namespace {

// ---- The table -----------------------------------------------------------------------------------------------------

/// WAIT_AFTER: the picture goes on, but the action rests till the key is up.
enum KeyWait : int { NO_WAIT, WAIT_AFTER };
/// IS_FREE: the row runs even while a text field has the keyboard.
enum KeyField : int { GIVES_WAY, IS_FREE };

struct HotkeyRow {
    Hotkey action;
    int primary, alternate;  // default key values, 0 none
    HotkeyMode mode;         // which scan runs it; QUICK PAN also that of the nodes
    KeyWait wait;
    KeyField field;
    void (*run)();
};

// PASTE and JUMP have alternates for keyboards without a key of its own for ` or \: Italian, Swedish, Turkish.
// clang-format off
constexpr std::array<HotkeyRow, HOTKEY_COUNT> rows{{
    {HOTKEY_CEL_GET,          KEY_ESC,          0,     HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, say_comes_later},
    {HOTKEY_CEL_CLIP,         KEY_TAB,          0,     HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, say_comes_later},
    {HOTKEY_CEL_PASTE,        KEY_TILDE,        KEY_F4, HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, say_comes_later},
    {HOTKEY_CEL_BELOW,        0,                0,     HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, say_comes_later},
    {HOTKEY_CEL_ONE_COLOR,    0,                0,     HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, say_comes_later},
    {HOTKEY_CEL_TURN,         0,                0,     HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, say_comes_later},
    {HOTKEY_PIC_CLEAR,        KEY_X,            0,     HOTKEYS_MAIN,  WAIT_AFTER, GIVES_WAY, clear_frame},
    {HOTKEY_PIC_RESTORE,      KEY_R,            0,     HOTKEYS_MAIN,  WAIT_AFTER, IS_FREE,   restore_frame_by_key},
    {HOTKEY_PIC_SAVE,         KEY_F5,           0,     HOTKEYS_MAIN,  NO_WAIT,    IS_FREE,   say_comes_later},
    {HOTKEY_PIC_LOAD,         KEY_F9,           0,     HOTKEYS_MAIN,  NO_WAIT,    IS_FREE,   say_comes_later},
    {HOTKEY_FRAME_CLONE,      0,                0,     HOTKEYS_MAIN,  WAIT_AFTER, GIVES_WAY, clone_frame},
    {HOTKEY_FRAME_INSERT,     0,                0,     HOTKEYS_MAIN,  WAIT_AFTER, GIVES_WAY, insert_blank_frame},
    {HOTKEY_FRAME_RESIZE,     0,                0,     HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, say_comes_later},
    {HOTKEY_FRAME_DELETE,     0,                0,     HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, delete_frame_by_key},
    {HOTKEY_PAN_UP,           KEY_UP,           KEY_W, HOTKEYS_PAN,   NO_WAIT,    GIVES_WAY, pan_up_by_key},
    {HOTKEY_PAN_DOWN,         KEY_DOWN,         KEY_S, HOTKEYS_PAN,   NO_WAIT,    GIVES_WAY, pan_down_by_key},
    {HOTKEY_PAN_LEFT,         KEY_LEFT,         KEY_A, HOTKEYS_PAN,   NO_WAIT,    GIVES_WAY, pan_left_by_key},
    {HOTKEY_PAN_RIGHT,        KEY_RIGHT,        KEY_D, HOTKEYS_PAN,   NO_WAIT,    GIVES_WAY, pan_right_by_key},
    {HOTKEY_QUICK_PAN,        KEY_0_PAD,        0,     HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, quick_pan},
    {HOTKEY_FRAME_NEXT,       KEY_PGDN,         0,     HOTKEYS_MODAL, NO_WAIT,    GIVES_WAY, next_frame},
    {HOTKEY_FRAME_PREVIOUS,   KEY_DEL,          0,     HOTKEYS_MODAL, NO_WAIT,    GIVES_WAY, previous_frame},
    {HOTKEY_FRAME_FIRST,      KEY_HOME,         0,     HOTKEYS_MODAL, NO_WAIT,    GIVES_WAY, first_frame},
    {HOTKEY_FRAME_LAST,       KEY_END,          0,     HOTKEYS_MODAL, NO_WAIT,    GIVES_WAY, last_frame},
    {HOTKEY_FRAME_CENTER,     KEY_5_PAD,        0,     HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, center_frame},
    {HOTKEY_BRUSH_EYEDROPPER, KEY_F1,           0,     HOTKEYS_MAIN,  WAIT_AFTER, IS_FREE,   pick_brush_color},
    {HOTKEY_MASK_EYEDROPPER,  KEY_F2,           0,     HOTKEYS_MAIN,  WAIT_AFTER, IS_FREE,   pick_mask_color},
    {HOTKEY_COLOR_MENU,       KEY_C,            0,     HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, color_window_by_key},
    {HOTKEY_BRUSH_TIP,        KEY_B,            0,     HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, tip_window},
    {HOTKEY_BRUSH_TOOL,       KEY_7_PAD,        0,     HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, tool_window_by_key},
    {HOTKEY_INK,              KEY_9_PAD,        0,     HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, ink_window_by_key},
    {HOTKEY_TOGGLE_MENU,      KEY_BACKSPACE,    0,     HOTKEYS_MAIN,  WAIT_AFTER, IS_FREE,   toggle_window},
    {HOTKEY_MEASURE,          KEY_F12,          0,     HOTKEYS_MAIN,  NO_WAIT,    IS_FREE,   measure_by_key},
    {HOTKEY_FRAME_JUMP,       KEY_BACKSLASH,    KEY_BACKSLASH2, HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, frame_jump},
    {HOTKEY_TOOL_OPTION,      KEY_INSERT,       0,     HOTKEYS_MAIN,  WAIT_AFTER, GIVES_WAY, say_comes_later},
    {HOTKEY_INK_OPTION,       KEY_PGUP,         0,     HOTKEYS_MAIN,  WAIT_AFTER, GIVES_WAY, say_comes_later},
    {HOTKEY_COPY,             key_ctrl | KEY_C, 0,     HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, say_comes_later},
    {HOTKEY_PASTE,            key_ctrl | KEY_V, 0,     HOTKEYS_MAIN,  NO_WAIT,    GIVES_WAY, say_comes_later},
    {HOTKEY_UNDO,             KEY_U,            0,     HOTKEYS_MAIN,  WAIT_AFTER, GIVES_WAY, undo_last},
    {HOTKEY_REDO,             key_shift | KEY_U,0,     HOTKEYS_MAIN,  WAIT_AFTER, GIVES_WAY, redo_last},
    {HOTKEY_ZOOM_IN,          KEY_PLUS_PAD,     0,     HOTKEYS_MAIN,  WAIT_AFTER, GIVES_WAY, zoom_in_by_key},
    {HOTKEY_ZOOM_OUT,         KEY_MINUS_PAD,    0,     HOTKEYS_MAIN,  WAIT_AFTER, GIVES_WAY, zoom_out_by_key},
    {HOTKEY_FAVORITES,        KEY_P,            0,     HOTKEYS_MAIN,  WAIT_AFTER, GIVES_WAY, favorites_window},
    {HOTKEY_EXIT,             KEY_Q,            0,     HOTKEYS_MAIN,  NO_WAIT,    IS_FREE,   exit_by_key},
    {HOTKEY_RAPID_EXIT,       0,                0,     HOTKEYS_MODAL, NO_WAIT,    IS_FREE,   rapid_exit_by_key},
}};
// clang-format on
static_assert(rows_in_order(rows, &HotkeyRow::action));

// ---- Keys ----------------------------------------------------------------------------------------------------------

constexpr int modifier_bits = key_ctrl | key_alt | key_shift;

int modifiers_down() {
    const auto either = [](std::size_t a, std::size_t b) { return key_down[a] != 0 || key_down[b] != 0; };
    return (either(KEY_LCONTROL, KEY_RCONTROL) ? key_ctrl : 0) | (either(KEY_ALT, KEY_ALTGR) ? key_alt : 0) |
           (either(KEY_LSHIFT, KEY_RSHIFT) ? key_shift : 0);
}

enum KeyState : int { KEY_IS_UP, KEY_IS_DOWN, KEY_IS_BAD };

/// A key value: its key down, with exactly its modifiers?
KeyState key_state(int value, int modifiers) {
    if (value <= 0) return KEY_IS_UP;
    const int code = value & ~modifier_bits;
    if (code < 1 || code > key_code_max) {
        UA_log("[ ERROR ] : Key value OOB in hotkey check. Key = %d", code);
        return KEY_IS_BAD;
    }
    return key_down[at(code)] != 0 && (value & modifier_bits) == modifiers ? KEY_IS_DOWN : KEY_IS_UP;
}

bool field_has_keyboard() { return is_text_field(key_focus); }

// Rows that have acted and whose key is still down. Main flow only: no row that waits is of the other flow.
std::array<bool, HOTKEY_COUNT> acted{};

/// A press of the mouse ends the wait, or a click with the key still down would be lost; the row rests all the same.
void wait_after(Hotkey action) {
    acted[static_cast<std::size_t>(action)] = true;
    while (hotkey_held(action) && mouse_left == 0 && mouse_right == 0) update_screen(UPDATE_NORMAL);
}

void forget_acted_rows() {
    for (const HotkeyRow& row : rows) {
        bool& rests = acted[static_cast<std::size_t>(row.action)];
        if (rests && !hotkey_held(row.action)) rests = false;
    }
}

void run_row(const HotkeyRow& row, int mode) {
    const bool runs = row.mode == mode || (mode == HOTKEYS_NODES && row.action == HOTKEY_QUICK_PAN);
    if (!runs || (row.field == GIVES_WAY && field_has_keyboard())) return;
    if (row.wait == WAIT_AFTER && acted[static_cast<std::size_t>(row.action)]) return;
    row.run();
    if (row.wait == WAIT_AFTER) wait_after(row.action);
}

/// False when a bad key value ends the scan.
bool scan_row(std::size_t index, int modifiers, int mode) {
    for (const auto& value : hotkeys[index]) {
        const KeyState state = key_state(value, modifiers);
        if (state == KEY_IS_BAD) return false;
        if (state == KEY_IS_DOWN && index < rows.size()) run_row(rows[index], mode);
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

bool hotkey_held(Hotkey action) {
    const int modifiers = modifiers_down();
    for (const auto& value : hotkeys[static_cast<std::size_t>(action)]) {
        const KeyState state = key_state(value, modifiers);
        if (state != KEY_IS_UP) return state == KEY_IS_DOWN;
    }
    return false;
}

void default_hotkeys() {
    for (const HotkeyRow& row : rows) {
        if (row.action == HOTKEY_RAPID_EXIT) continue;
        hotkeys[static_cast<std::size_t>(row.action)][KEY_PRIMARY] = row.primary;
        hotkeys[static_cast<std::size_t>(row.action)][KEY_ALTERNATE] = row.alternate;
    }
}

}  // namespace nubo
