#pragma once
// Mouse and keys as all of the program sees them, one look at a time.
//
// A look is the place of the mouse, the buttons, the keys and what lies under the mouse, renewed together by the main
// flow at the end of each picture. From one look to the next at most one button or key changes, and no look passes
// before `GUI_tick` has seen it: so a press and its release are two looks to both flows, however close together they
// came.

namespace nubo {

/// Goes on to the next look. Main flow only.
void renew_input();

/// True when another look would show a change, or the mouse at another place with a button held. Main flow only.
bool input_waits();

/// What `GUI_mouse_state` finds: the primary button is the left one unless MOUSE - BUTTONS is reversed.
enum MouseState : int { MOUSE_IDLE, MOUSE_PRIMARY, MOUSE_SECONDARY };

/// The press on the GUI as of the last look. Both flows.
MouseState GUI_mouse_state();

/// The number of the last look with a change; `GUI_tick` reads it before it acts and gives it back when it has acted.
int look_number();
void look_is_ticked(int number);

}  // namespace nubo
