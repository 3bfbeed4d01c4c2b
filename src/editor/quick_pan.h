#pragma once
// Quick pan: while its button or key is held, the whole Frame shows as a map, and the place under the mouse becomes the
// view.

namespace nubo {

/// Runs as long as the middle button or the key is held. Main flow.
void quick_pan();

/// Tells the toolkit how to draw the map. Once, at start.
void register_quick_pan();

}  // namespace nubo
