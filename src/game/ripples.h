#pragma once
// Ripples: up to three at a time run over the screen like waves over water and bend the picture under them. The table
// stands in state/effects.h. Main flow only; the script tick says when a step is due.
#include "state/effects.h"

namespace nubo {

/// Drops something into the screen at (x, y), the centre of a field as large as the screen. The ripple, or
/// `ripple_none` after a line in the log when all run.
int UA_add_ripple(int x, int y);

/// Bends the picture in `screen_buffer` by a ripple that runs, and moves its waves on by one step. At rest, when the
/// sum of its heights is 0, the ripple ends.
void UA_step_ripple(int slot);

/// Steps each ripple whose time has run out. After the actors are drawn, before the picture is presented.
void UA_step_ready_ripples();

}  // namespace nubo
