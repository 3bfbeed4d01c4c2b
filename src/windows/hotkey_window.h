#pragma once
// The window in which the user maps keys to actions. Main flow only.
#include "gui/elements.h"
#include "state/hotkeys.h"

namespace nubo {

inline constexpr int key_rows_shown = 9;

enum HotkeyWindowSlot : int {
    HOTKEYS_LIST = slot_content,
    HOTKEYS_CAPTION_ACTION,
    HOTKEYS_CAPTION_PRIMARY,
    HOTKEYS_CAPTION_ALTERNATE,
    HOTKEYS_KEY_FIRST,  // a pair for each row shown: primary, alternate
    HOTKEYS_OKAY = HOTKEYS_KEY_FIRST + key_rows_shown * KEY_SIDES + 1,
    HOTKEYS_DEFAULTS,
    HOTKEYS_CANCEL,
    HOTKEYS_SLOTS = 30
};
static_assert(HOTKEYS_OKAY == 25);

enum KeyPromptSlot : int { PROMPT_OKAY = slot_content, PROMPT_CANCEL, PROMPT_TEXT, PROMPT_ACTION, PROMPT_SLOTS };
static_assert(PROMPT_SLOTS == 6);

/// Lets the user remap, clear and restore keys until OKAY or CANCEL. A change acts at once; CANCEL takes all of them
/// back.
void hotkey_window();

inline constexpr int no_key_chosen = -1;

/// Asks for one key combination in a window that names the action: its value, or `no_key_chosen`.
int key_prompt(Label action);

/// True if the key of row `major`, side `minor`, stands on any other row too. An unmapped key never does, and the other
/// side of the row isn't compared. Numbers outside the table are logged and give false.
bool dupe_hotkey_check(int major, int minor);

}  // namespace nubo
