#pragma once
// The six buttons of tools or of inks, in the drawing menu and in the windows that fill them.
#include "state/labels.h"
#include "state/tools.h"
#include <array>

namespace nubo {

/// Labels the six buttons from slot `first_button` on with what they hold, and shows slot `active` as pressed.
/// `first_label` is the label of choice 0.
void show_choice_slots(int first_button, Label first_label, const std::array<int, choice_slots>& choices, int active);

}  // namespace nubo
