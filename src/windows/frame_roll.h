#pragma once
// ROLL: the Frame shifted around itself, so that a seam comes into the middle.

namespace nubo {

/// Takes CTRL with the arrow keys: the Frame goes by a pixel, with SHIFT by eight. A run of presses, with nothing else
/// done to the Frame between, is one step of undo. In each pass of the program's loop.
void serve_roll_keys();

}  // namespace nubo
