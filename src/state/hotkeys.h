#pragma once
// The actions that have a key, and the keys that they have. The name, the default keys and what it runs are a row of
// editor/commands.cpp.
#include "state/shared.h"
#include <array>

namespace nubo {

enum Hotkey : int {
    HOTKEY_CEL_GET,
    HOTKEY_CEL_CLIP,
    HOTKEY_CEL_PASTE,
    HOTKEY_CEL_BELOW,
    HOTKEY_CEL_ONE_COLOR,
    HOTKEY_CEL_TURN,
    HOTKEY_PIC_CLEAR,
    HOTKEY_PIC_RESTORE,
    HOTKEY_PIC_SAVE,
    HOTKEY_PIC_LOAD,
    HOTKEY_FRAME_CLONE,
    HOTKEY_FRAME_INSERT,
    HOTKEY_FRAME_RESIZE,
    HOTKEY_FRAME_DELETE,
    HOTKEY_PAN_UP,
    HOTKEY_PAN_DOWN,
    HOTKEY_PAN_LEFT,
    HOTKEY_PAN_RIGHT,
    HOTKEY_QUICK_PAN,
    HOTKEY_FRAME_NEXT,
    HOTKEY_FRAME_PREVIOUS,
    HOTKEY_FRAME_FIRST,
    HOTKEY_FRAME_LAST,
    HOTKEY_FRAME_CENTER,
    HOTKEY_BRUSH_EYEDROPPER,
    HOTKEY_MASK_EYEDROPPER,
    HOTKEY_COLOR_MENU,
    HOTKEY_BRUSH_TIP,
    HOTKEY_BRUSH_TOOL,
    HOTKEY_INK,
    HOTKEY_TOGGLE_MENU,
    HOTKEY_MEASURE,
    HOTKEY_FRAME_JUMP,
    HOTKEY_TOOL_OPTION,
    HOTKEY_INK_OPTION,
    HOTKEY_COPY,
    HOTKEY_PASTE,
    HOTKEY_UNDO,
    HOTKEY_REDO,
    HOTKEY_ZOOM_IN,
    HOTKEY_ZOOM_OUT,
    HOTKEY_FAVORITES,
    HOTKEY_EXIT,
    HOTKEY_RAPID_EXIT,
    HOTKEY_CEL_FLIP_ACROSS,
    HOTKEY_CEL_FLIP_DOWN,
    HOTKEY_HISTORY,
    HOTKEY_GUIDES,
    HOTKEY_SYMMETRY,
    HOTKEY_GHOST,
    HOTKEY_GRID,
    HOTKEY_CHECKER,
    HOTKEY_TILES,
    HOTKEY_LASSO,
    HOTKEY_WAND,
    HOTKEY_COPY_CEL,
    HOTKEY_COUNT
};

inline constexpr int hotkey_rows = 64, hotkey_rows_stored = 62;  // rows from HOTKEY_COUNT on exist and do nothing
// From here on the actions are younger than the first settings files, which hold no keys of theirs (`offer_new_keys`).
inline constexpr Hotkey first_new_hotkey = HOTKEY_CEL_FLIP_ACROSS;
enum KeySide : int { KEY_PRIMARY, KEY_ALTERNATE, KEY_SIDES };
inline constexpr int key_ctrl = 0x400, key_alt = 0x800, key_shift = 0x1000;  // modifier bits of a key value
inline constexpr int key_code_max = 105;  // Allegro's key codes 1 to 105; 0: unmapped
inline constinit std::array<std::array<Shared<int>, KEY_SIDES>, hotkey_rows> hotkeys{};
/// Of a new action: its default keys have been offered, so that none means none. Stored with the keys. Main flow only.
inline constinit std::array<bool, hotkey_rows> hotkey_offered{};
inline constexpr int key_codes = 128;                             // one more than the highest, with the modifiers'
inline constinit std::array<Shared<char>, key_codes> key_down{};  // by Allegro's key code; renewed with the mouse
inline constinit Shared<int> hotkeys_busy = 0;                    // `check_hotkeys` is running

}  // namespace nubo
