#pragma once
// What lies under the mouse. Timer handler.

namespace nubo {

/// The mouse is in the slot's rectangle, less its last column and row.
bool mouse_in_element(int slot);

/// The place of the press is in the slot's rectangle, the whole of it.
bool press_in_element(int slot);

/// Which arrow of the slot's slider the mouse is on: 1 or 2, 0 none. The areas are wider than the sprites.
int arrow_under_mouse(int slot);

/// Sets `hover` and `hover_slot`, and leaves no list but that one with a `hover_row`.
void find_hover();

/// Sets the `hover_row` of the list under the mouse.
void find_hover_row();

}  // namespace nubo
