#pragma once
// PIC, REDUCE: the Frame in fewer colours.

namespace nubo {

/// Runs the window, which shows on the Frame what comes of it, or of the part in view where the Frame is larger than
/// that. OKAY is a step of the Frame.
void reduce_window();

}  // namespace nubo
