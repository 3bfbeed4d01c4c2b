#pragma once
// What the loops of windows and tools ask of mouse and keys. The waits show the picture meanwhile; the end of the
// program ends them. Main flow only.
#include "state/hotkeys.h"
#include "state/shared.h"

namespace nubo {

/// Waits while the button (`mouse_left`, `mouse_right`) is down.
void wait_while_down(const Shared<int>& button);

/// Waits until the action's key is up, so that the key that opened a window doesn't close it, or the other way round.
void wait_while_held(Hotkey action);

/// True when a button went down with no element under it and is still down. A press belongs to where it began: the drag
/// of a knob that left its window doesn't count, and a stroke stays one over an element.
bool pressed_outside(const Shared<int>& button);

/// True while the mouse is further from where its button went down than a hand that clicks trembles: three logical
/// pixels.
bool hand_has_moved();

/// True after a right press with no element under it, when the button is up again.
bool right_press_outside();

/// The row under the mouse after a press of the left button on the list, as long as it is down; -1 none. A knob in the
/// hand chooses no row.
int pressed_row(int list);

/// Forgets all clicks that no window has taken.
void clear_clicks();

}  // namespace nubo
