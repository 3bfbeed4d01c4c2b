#pragma once
// The loop that the user lives in.

namespace nubo {

/// Draws and acts until `exit_requested` is set. Main flow.
void program_loop();

}  // namespace nubo
