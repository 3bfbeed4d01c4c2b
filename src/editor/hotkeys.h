#pragma once
// The key table: which key runs which action. `check_hotkeys` and `hotkey_held` are declared in state/flow.h.
#include "state/flow.h"

namespace nubo {

/// Sets the default keys of all rows that have one; the others keep theirs.
void default_hotkeys();

}  // namespace nubo
