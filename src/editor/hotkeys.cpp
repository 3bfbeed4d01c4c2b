#include "state/flow.h"

#include "base/log.h"
#include "editor/view.h"
#include "paint/undo.h"
#include "state/frames.h"
#include "state/run.h"
#include "state/view.h"
#include "workspace/frame_store.h"
#include <allegro.h>

namespace nubo {
namespace {

// ---- What the actions do -------------------------------------------------------------------------------------------

void wait_for_key_up(Hotkey action) {
    while (hotkey_held(action)) update_screen(UPDATE_NORMAL);
}

std::size_t zoom_level() { return static_cast<std::size_t>(static_cast<int>(zoom)); }

void pan_view(Shared<int>& pan, int direction) {
    pan += direction * pan_step[zoom_level()];
    pan_moved = 1;
}

void pan_up() { pan_view(pan_y, -1); }
void pan_down() { pan_view(pan_y, 1); }
void pan_left() { pan_view(pan_x, -1); }
void pan_right() { pan_view(pan_x, 1); }
void zoom_in() { view_zoom(ZOOM_IN); }
void zoom_out() { view_zoom(ZOOM_OUT); }

void start_measure() {
    if (measure_x != -1 || measure_state != 0) return;
    const int x = pixel_x, y = pixel_y;
    if (x < 0 || y < 0 || x >= frame_w || y >= frame_h) return;
    measure_x = x;
    measure_y = y;
    measure_state = 1;
}

// ---- Stepping through the Frames: only with more than one, and never to the one that is there ----------------------

void go_to_frame(int slot) {
    if (slot != frame_index) fetch_frame(frame_index, slot);
}

void next_frame() { go_to_frame((frame_index + 1) % frame_count); }
void previous_frame() { go_to_frame((frame_index + frame_count - 1) % frame_count); }
void first_frame() { go_to_frame(0); }
void last_frame() { go_to_frame(frame_count - 1); }

void rapid_exit() {
    wait_for_key_up(HOTKEY_RAPID_EXIT);
    exit_requested = 1;
}

// ---- The table -----------------------------------------------------------------------------------------------------

enum KeyWait : int { NO_WAIT, WAIT_AFTER };  // WAIT_AFTER: the picture goes on, but the action rests till the key is up

struct HotkeyRow {
    Hotkey action;
    int primary, alternate;  // default key values, 0 none
    HotkeyMode mode;         // which scan runs it
    KeyWait wait;
    void (*run)();  // null: the row has no command in this program
};

// clang-format off
constexpr std::array<HotkeyRow, HOTKEY_COUNT> rows{{
    {HOTKEY_CEL_GET,          KEY_ESC,         0,     HOTKEYS_MAIN,  NO_WAIT,    nullptr},
    {HOTKEY_CEL_CLIP,         KEY_TAB,         0,     HOTKEYS_MAIN,  NO_WAIT,    nullptr},
    {HOTKEY_CEL_PASTE,        KEY_TILDE,       0,     HOTKEYS_MAIN,  NO_WAIT,    nullptr},
    {HOTKEY_CEL_BELOW,        0,               0,     HOTKEYS_MAIN,  NO_WAIT,    nullptr},
    {HOTKEY_CEL_ONE_COLOR,    0,               0,     HOTKEYS_MAIN,  NO_WAIT,    nullptr},
    {HOTKEY_CEL_TURN,         0,               0,     HOTKEYS_MAIN,  NO_WAIT,    nullptr},
    {HOTKEY_PIC_CLEAR,        KEY_X,           0,     HOTKEYS_MAIN,  WAIT_AFTER, nullptr},
    {HOTKEY_PIC_RESTORE,      KEY_R,           0,     HOTKEYS_MAIN,  NO_WAIT,    nullptr},
    {HOTKEY_PIC_SAVE,         KEY_F5,          0,     HOTKEYS_MAIN,  NO_WAIT,    nullptr},
    {HOTKEY_PIC_LOAD,         KEY_F9,          0,     HOTKEYS_MAIN,  NO_WAIT,    nullptr},
    {HOTKEY_FRAME_CLONE,      0,               0,     HOTKEYS_MAIN,  WAIT_AFTER, nullptr},
    {HOTKEY_FRAME_INSERT,     0,               0,     HOTKEYS_MAIN,  WAIT_AFTER, nullptr},
    {HOTKEY_FRAME_RESIZE,     0,               0,     HOTKEYS_MAIN,  NO_WAIT,    nullptr},
    {HOTKEY_FRAME_DELETE,     0,               0,     HOTKEYS_MAIN,  NO_WAIT,    nullptr},
    {HOTKEY_PAN_UP,           KEY_UP,          KEY_W, HOTKEYS_PAN,   NO_WAIT,    pan_up},
    {HOTKEY_PAN_DOWN,         KEY_DOWN,        KEY_S, HOTKEYS_PAN,   NO_WAIT,    pan_down},
    {HOTKEY_PAN_LEFT,         KEY_LEFT,        KEY_A, HOTKEYS_PAN,   NO_WAIT,    pan_left},
    {HOTKEY_PAN_RIGHT,        KEY_RIGHT,       KEY_D, HOTKEYS_PAN,   NO_WAIT,    pan_right},
    {HOTKEY_QUICK_PAN,        KEY_0_PAD,       0,     HOTKEYS_MAIN,  NO_WAIT,    nullptr},
    {HOTKEY_FRAME_NEXT,       KEY_PGDN,        0,     HOTKEYS_MODAL, WAIT_AFTER, next_frame},
    {HOTKEY_FRAME_PREVIOUS,   KEY_DEL,         0,     HOTKEYS_MODAL, WAIT_AFTER, previous_frame},
    {HOTKEY_FRAME_FIRST,      KEY_HOME,        0,     HOTKEYS_MODAL, WAIT_AFTER, first_frame},
    {HOTKEY_FRAME_LAST,       KEY_END,         0,     HOTKEYS_MODAL, WAIT_AFTER, last_frame},
    {HOTKEY_FRAME_CENTER,     KEY_5_PAD,       0,     HOTKEYS_MAIN,  NO_WAIT,    center_frame},
    {HOTKEY_BRUSH_EYEDROPPER, KEY_F1,          0,     HOTKEYS_MAIN,  WAIT_AFTER, nullptr},
    {HOTKEY_MASK_EYEDROPPER,  KEY_F2,          0,     HOTKEYS_MAIN,  WAIT_AFTER, nullptr},
    {HOTKEY_COLOR_MENU,       KEY_C,           0,     HOTKEYS_MAIN,  NO_WAIT,    nullptr},
    {HOTKEY_BRUSH_TIP,        KEY_B,           0,     HOTKEYS_MAIN,  NO_WAIT,    nullptr},
    {HOTKEY_BRUSH_TOOL,       KEY_7_PAD,       0,     HOTKEYS_MAIN,  NO_WAIT,    nullptr},
    {HOTKEY_INK,              KEY_9_PAD,       0,     HOTKEYS_MAIN,  NO_WAIT,    nullptr},
    {HOTKEY_TOGGLE_MENU,      KEY_BACKSPACE,   0,     HOTKEYS_MAIN,  WAIT_AFTER, nullptr},
    {HOTKEY_MEASURE,          KEY_F12,         0,     HOTKEYS_MAIN,  NO_WAIT,    start_measure},
    {HOTKEY_FRAME_JUMP,       KEY_BACKSLASH,   0,     HOTKEYS_MAIN,  NO_WAIT,    nullptr},
    {HOTKEY_TOOL_OPTION,      KEY_INSERT,      0,     HOTKEYS_MAIN,  WAIT_AFTER, nullptr},
    {HOTKEY_INK_OPTION,       KEY_PGUP,        0,     HOTKEYS_MAIN,  WAIT_AFTER, nullptr},
    {HOTKEY_COPY,             key_ctrl | KEY_C,  0,   HOTKEYS_MAIN,  NO_WAIT,    nullptr},
    {HOTKEY_PASTE,            key_ctrl | KEY_V,  0,   HOTKEYS_MAIN,  NO_WAIT,    nullptr},
    {HOTKEY_UNDO,             KEY_U,           0,     HOTKEYS_MAIN,  WAIT_AFTER, undo_last},
    {HOTKEY_REDO,             key_shift | KEY_U, 0,   HOTKEYS_MAIN,  WAIT_AFTER, redo_last},
    {HOTKEY_ZOOM_IN,          KEY_PLUS_PAD,    0,     HOTKEYS_MAIN,  WAIT_AFTER, zoom_in},
    {HOTKEY_ZOOM_OUT,         KEY_MINUS_PAD,   0,     HOTKEYS_MAIN,  WAIT_AFTER, zoom_out},
    {HOTKEY_FAVORITES,        KEY_P,           0,     HOTKEYS_MAIN,  WAIT_AFTER, nullptr},
    {HOTKEY_EXIT,             KEY_Q,           0,     HOTKEYS_MAIN,  NO_WAIT,    nullptr},
    {HOTKEY_RAPID_EXIT,       0,               0,     HOTKEYS_MODAL, NO_WAIT,    rapid_exit},
}};
// clang-format on
static_assert(rows_in_order(rows, &HotkeyRow::action));

// ---- Keys ----------------------------------------------------------------------------------------------------------

constexpr int modifier_bits = key_ctrl | key_alt | key_shift;

int modifiers_down() {
    const auto either = [](int a, int b) { return ::key[a] != 0 || ::key[b] != 0; };
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
    return ::key[code] != 0 && (value & modifier_bits) == modifiers ? KEY_IS_DOWN : KEY_IS_UP;
}

void run_row(const HotkeyRow& row, int mode) {
    if (row.run == nullptr || row.mode != mode) return;
    row.run();
    if (row.wait == WAIT_AFTER) wait_for_key_up(row.action);
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
