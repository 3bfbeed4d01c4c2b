#pragma once
// The two nodes between which a gradient ink runs, moved on the Frame itself. Main flow only.

namespace nubo {

/// Runs the node editor of H.GRAD, L.GRAD, R.GRAD or V.GRAD until the user leaves it. Another ink is logged.
void reposition_gradient(int ink);

/// Hands over what draws the nodes on `overlay`. At start.
void register_gradient_nodes();

}  // namespace nubo
