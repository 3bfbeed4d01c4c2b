#pragma once
// The controls of the options of tools and inks, in the panel of the tool and ink windows. They write straight into
// `tool_options` and `ink_options`.
#include "gui/elements.h"

namespace nubo {

inline constexpr int first_option_slot = 13;
inline constexpr int option_slot_position = 14;  // of a gradient ink: its POSITION button, which leaves a click

/// Clears the slots from `first_option_slot` to the table's end and fills those that the tool or ink needs, in the
/// window on screen.
void build_tool_options(int tool);
void build_ink_options(int ink);

}  // namespace nubo
