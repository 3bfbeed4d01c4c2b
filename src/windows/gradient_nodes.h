#pragma once
// The two nodes between which a gradient ink runs, moved on the Frame itself. Main flow only.

namespace nubo {

/// Runs the node editor of H.GRAD, L.GRAD, R.GRAD or V.GRAD until the user leaves it. Another ink is logged.
void reposition_gradient(int ink);

inline constexpr int nodes_preview = 50;  // `tool_preview` of the nodes of ink n is this + n

/// Draws the nodes that `tool_preview` asks for on `overlay`; nothing when it asks for a tool's preview. By
/// `update_screen`, which has cleared it.
void draw_gradient_nodes();

}  // namespace nubo
