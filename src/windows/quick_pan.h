#pragma once
// Quick pan: the whole Frame as a map.

namespace nubo {

/// Shows the map as long as the middle button or the key is held; the place under the mouse becomes the view. Main flow
/// only.
void quick_pan();

/// Tells the toolkit how to draw the map. Once, at start.
void register_quick_pan();

}  // namespace nubo
