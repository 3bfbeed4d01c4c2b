#pragma once
// The box that asks the user a question, or tells something. Main flow only.
#include "state/labels.h"
#include <string>

namespace nubo {

/// Asks in place of the window on screen, which comes back, and waits: 1 for OKAY, 0 for CANCEL. `second` LABEL_NONE
/// for a question of one line; `one_button` has no CANCEL. With `high` the box stands over the window on screen, in
/// slots 120 to 125.
int confirm_box(Label text, Label second, bool high, bool one_button);

/// The same over the window on screen about something that is named in the second line. True for OKAY.
bool confirm_about(Label text, const std::string& name);

/// The usual question of two lines; with `shadows` the window on screen stays dimly visible behind it. True for OKAY.
bool confirm(Label text, Label second, bool shadows = false);

}  // namespace nubo
