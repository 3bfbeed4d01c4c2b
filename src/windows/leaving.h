#pragma once
// How a window that stands in the drawing menu's place is left without a button. Main flow only.
#include "state/hotkeys.h"

namespace nubo {

/// True when the user leaves: by a right press with no element under it, or by the window's key. Both are up again
/// then.
bool user_leaves_window(Hotkey key);

}  // namespace nubo
