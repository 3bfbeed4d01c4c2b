#pragma once
// What a press does once the button has risen. Timer handler.

namespace nubo {

/// Runs the action, an `Action`, on the slot that was pressed. Most ask that the place of the press lies in it.
void run_action(int action, int slot);

}  // namespace nubo
