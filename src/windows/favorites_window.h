#pragma once
// The FAVORITES window: the ten colour slots and four rows of the 256 favourites. Main flow only.

namespace nubo {

/// Runs the window until the user leaves it. A left press takes a slot's colour as the brush colour, with SHIFT the
/// slot takes the brush's; a right press chooses a new one for the slot.
void favorites_window();

}  // namespace nubo
