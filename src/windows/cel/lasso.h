#pragma once
// The lasso in the hand: corners, a way drawn freehand, or both. Main flow only.
#include "gui/waiting.h"
#include "state/stroke.h"
#include <vector>

namespace nubo {

/// Follows the hand from a left press that is still down. A press that moves more than a hand trembles draws freehand
/// and closes the lasso at its release; one in place sets a corner, with SNAP one of its cell, BACKSPACE takes the last
/// one back, and a right press or ENTER closes. What comes back is the closed way; none if the user leaves.
std::vector<Point> follow_lasso(Waiting& wait);

/// Draws the way so far on `overlay`, and from there to the mouse. Nothing while no lasso is in the hand.
void draw_lasso();

}  // namespace nubo
