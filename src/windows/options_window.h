#pragma once
// The OPTIONS window: what belongs to the person. Main flow only.

namespace nubo {

/// Runs the window until it is left. The controls work on the live values; CANCEL puts back those of its opening.
void options_window();

/// Gives every option of the window the value that its DEFAULTS button sets. Also for the settings of a first start.
void set_option_defaults();

}  // namespace nubo
