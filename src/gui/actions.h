#pragma once
// What a press does once the button has risen. Timer handler.

namespace nubo {

/// Runs the action, an `Action`, on the slot that was pressed. Most ask that the place of the press lies in it.
void run_action(int action, int slot);

/// How a picked up window is held: the mouse alone carries it, to the next click, or the button, till it rises.
enum WindowHold : int { HELD_BY_MOUSE, HELD_BY_BUTTON };

/// Asks the main flow to move the window of the title that was pressed.
void pick_up_window(int title, WindowHold hold);

}  // namespace nubo
