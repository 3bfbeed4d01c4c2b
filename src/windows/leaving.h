#pragma once
// How a window that stands in the drawing menu's place is left without a button. Main flow only.
#include "state/hotkeys.h"

namespace nubo {

/// Waits until the key that opened a window is up, so that it doesn't close it at once.
void wait_for_hotkey_up(Hotkey key);

/// Waits until the left button is up: one press is one choice.
void wait_for_left_up();

/// True when the user leaves: by a right press with no element under it, or by the window's key. Both are up again
/// then.
bool user_leaves_window(Hotkey key);

}  // namespace nubo
