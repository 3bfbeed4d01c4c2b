#pragma once
// The commands that give the Frame another size. Main flow only.

namespace nubo {

/// The window RESIZE CURRENT FRAME: width, height, anchor, scaling, and the way to the quick crop.
void resize_window();

/// Asks for two corners, which may lie beyond the Frame, and makes the area between them the Frame.
void quick_crop();

}  // namespace nubo
