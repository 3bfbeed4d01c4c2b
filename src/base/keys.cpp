#include "base/keys.h"

#include "base/log.h"
#include <allegro.h>

namespace nubo {
namespace {

constexpr int modifier_bits = key_ctrl | key_alt | key_shift;

/// Key values, 0 none.
struct DefaultKeys {
    Hotkey action;
    int primary, alternate;
};

// PASTE and JUMP have alternates for keyboards without a key of its own for ` or \: Italian, Swedish, Turkish.
// clang-format off
constexpr std::array<DefaultKeys, HOTKEY_COUNT> default_keys{{
    {HOTKEY_CEL_GET,           KEY_ESC,           0},
    {HOTKEY_CEL_CLIP,          KEY_TAB,           0},
    {HOTKEY_CEL_PASTE,         KEY_TILDE,         KEY_F4},
    {HOTKEY_CEL_BELOW,         0,                 0},
    {HOTKEY_CEL_ONE_COLOR,     0,                 0},
    {HOTKEY_CEL_TURN,          0,                 0},
    {HOTKEY_PIC_CLEAR,         KEY_X,             0},
    {HOTKEY_PIC_RESTORE,       KEY_R,             0},
    {HOTKEY_PIC_SAVE,          KEY_F5,            0},
    {HOTKEY_PIC_LOAD,          KEY_F9,            0},
    {HOTKEY_FRAME_CLONE,       0,                 0},
    {HOTKEY_FRAME_INSERT,      0,                 0},
    {HOTKEY_FRAME_RESIZE,      0,                 0},
    {HOTKEY_FRAME_DELETE,      0,                 0},
    {HOTKEY_PAN_UP,            KEY_UP,            KEY_W},
    {HOTKEY_PAN_DOWN,          KEY_DOWN,          KEY_S},
    {HOTKEY_PAN_LEFT,          KEY_LEFT,          KEY_A},
    {HOTKEY_PAN_RIGHT,         KEY_RIGHT,         KEY_D},
    {HOTKEY_QUICK_PAN,         KEY_0_PAD,         0},
    {HOTKEY_FRAME_NEXT,        KEY_PGDN,          0},
    {HOTKEY_FRAME_PREVIOUS,    KEY_DEL,           0},
    {HOTKEY_FRAME_FIRST,       KEY_HOME,          0},
    {HOTKEY_FRAME_LAST,        KEY_END,           0},
    {HOTKEY_FRAME_CENTER,      KEY_5_PAD,         0},
    {HOTKEY_BRUSH_EYEDROPPER,  KEY_F1,            0},
    {HOTKEY_MASK_EYEDROPPER,   KEY_F2,            0},
    {HOTKEY_COLOR_MENU,        KEY_C,             0},
    {HOTKEY_BRUSH_TIP,         KEY_B,             0},
    {HOTKEY_BRUSH_TOOL,        KEY_7_PAD,         0},
    {HOTKEY_INK,               KEY_9_PAD,         0},
    {HOTKEY_TOGGLE_MENU,       KEY_BACKSPACE,     0},
    {HOTKEY_MEASURE,           KEY_F12,           0},
    {HOTKEY_FRAME_JUMP,        KEY_BACKSLASH,     KEY_BACKSLASH2},
    {HOTKEY_TOOL_OPTION,       KEY_INSERT,        0},
    {HOTKEY_INK_OPTION,        KEY_PGUP,          0},
    {HOTKEY_COPY,              key_ctrl | KEY_C,  0},
    {HOTKEY_PASTE,             key_ctrl | KEY_V,  0},
    {HOTKEY_UNDO,              KEY_U,             0},
    {HOTKEY_REDO,              key_shift | KEY_U, 0},
    {HOTKEY_ZOOM_IN,           KEY_PLUS_PAD,      0},
    {HOTKEY_ZOOM_OUT,          KEY_MINUS_PAD,     0},
    {HOTKEY_FAVORITES,         KEY_P,             0},
    {HOTKEY_EXIT,              KEY_Q,             0},
    {HOTKEY_RAPID_EXIT,        0,                 0},
    {HOTKEY_CEL_FLIP_ACROSS,   KEY_H,             0},
    {HOTKEY_CEL_FLIP_DOWN,     KEY_V,             0},
}};
// clang-format on
static_assert(rows_in_order(default_keys, &DefaultKeys::action));

}  // namespace

int modifiers_down() {
    const auto either = [](std::size_t a, std::size_t b) { return key_down[a] != 0 || key_down[b] != 0; };
    return (either(KEY_LCONTROL, KEY_RCONTROL) ? key_ctrl : 0) | (either(KEY_ALT, KEY_ALTGR) ? key_alt : 0) |
           (either(KEY_LSHIFT, KEY_RSHIFT) ? key_shift : 0);
}

KeyState key_state(int value, int modifiers) {
    if (value <= 0) return KEY_IS_UP;
    const int code = key_code_of(value);
    if (code < 1 || code > key_code_max) {
        UA_log("[ ERROR ] : Key value OOB in hotkey check. Key = %d", code);
        return KEY_IS_BAD;
    }
    return key_down[at(code)] != 0 && (value & modifier_bits) == modifiers ? KEY_IS_DOWN : KEY_IS_UP;
}

bool hotkey_held(Hotkey action) {
    const int modifiers = modifiers_down();
    for (const auto& value : hotkeys[at(action)]) {
        const KeyState state = key_state(value, modifiers);
        if (state != KEY_IS_UP) return state == KEY_IS_DOWN;
    }
    return false;
}

void default_hotkeys() {
    for (const DefaultKeys& row : default_keys) {
        if (row.action == HOTKEY_RAPID_EXIT) continue;
        hotkeys[at(row.action)][KEY_PRIMARY] = row.primary;
        hotkeys[at(row.action)][KEY_ALTERNATE] = row.alternate;
    }
}

}  // namespace nubo
