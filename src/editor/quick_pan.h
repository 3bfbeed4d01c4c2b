#pragma once
// Quick pan: while its button or key is held, the whole Frame shows as a map, and the place under the mouse becomes the
// view. `quick_pan` is declared in state/flow.h, since the windows call it.

namespace nubo {

/// Tells the toolkit how to draw the map. Once, at start.
void register_quick_pan();

}  // namespace nubo
