#pragma once
// The mouse on sliders. Timer handler, where nothing else is said.

namespace nubo {

/// Steps the value while an arrow is held.
void repeat_arrow(bool button_down);

/// The wheel over the slider, by its direction since the last tick: above 0 up, below 0 down.
void turn_slider(int slot, int wheel);

/// The press that is held began on the slot's slider: on its track or an arrow. Both flows.
bool slider_takes_press(int slot);

/// A press of the primary button: picks up the knob or presses an arrow, or moves the knob that was picked up.
void press_slider(int slot);

}  // namespace nubo
