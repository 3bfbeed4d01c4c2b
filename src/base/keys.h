#pragma once
// The keys of the key table's actions (state/hotkeys.h): which are down, and which they are by default.
#include "state/hotkeys.h"

namespace nubo {

/// The modifier bits of the modifier keys that are down.
int modifiers_down();

/// Either of the two SHIFT keys is down, whatever else is.
inline bool shift_is_down() { return (modifiers_down() & key_shift) != 0; }

/// The key code in a key value.
constexpr int key_code_of(int value) { return value & ~(key_ctrl | key_alt | key_shift); }

/// A key value: is its key down, with exactly these modifiers? A code that no key has is logged.
enum KeyState : int { KEY_IS_UP, KEY_IS_DOWN, KEY_IS_BAD };
KeyState key_state(int value, int modifiers);

/// True while a key of the action's row is down with exactly its modifiers.
bool hotkey_held(Hotkey action);

/// Sets the default keys of all rows of the key table but that of the rapid exit, which keeps its own.
void default_hotkeys();

/// Gives each new row without a key its default keys, once: not if it was offered them before, and none that another
/// row has. With `only_noted` they count as offered and none is given.
void offer_new_keys(bool only_noted);

}  // namespace nubo
