#pragma once
// What lies under the mouse, and where a press began. Both flows, but for `find_hover`.

namespace nubo {

/// The mouse is in the slot's rectangle, less its last column and row.
bool mouse_in_element(int slot);

/// Some element lies under the mouse, also one that takes no press now.
bool mouse_over_elements();

/// The press that is held began there.
bool press_began_in_element(int slot);

/// The slot whose slider the wheel turns: that under the mouse, or the list on which it lies, so that what stands in a
/// list doesn't change while the list scrolls.
int slot_under_wheel();

/// The place of the press is in the slot's rectangle, the whole of it.
bool press_in_element(int slot);

/// Which arrow of the slot's slider lies at (x, y): 1 or 2, 0 none. The areas are wider than the sprites.
int arrow_at(int slot, int x, int y);

/// Sets `hover` and `hover_slot`, and leaves no `hover_row` but that of the list under the mouse. The main flow alone
/// writes them, whenever it has renewed the place of the mouse.
void find_hover();

}  // namespace nubo
