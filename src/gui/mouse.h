#pragma once
// The mouse buttons as the GUI and the tools see them.

namespace nubo {

/// What `GUI_mouse_state` finds: the primary button is the left one unless MOUSE - BUTTONS is reversed.
enum MouseState : int { MOUSE_IDLE, MOUSE_PRIMARY, MOUSE_SECONDARY };

/// Refreshes `mouse_left`, `mouse_right`, `mouse_middle` and the place of the press from Allegro. Both flows.
MouseState GUI_mouse_state();

}  // namespace nubo
