#pragma once
// Numbers beside the mouse.

namespace nubo {

/// Writes the text on `overlay` beside the pixel under the mouse, on the side that looks away from the Frame pixel
/// (anchor_x, anchor_y), or where it fits into the view. Line 1 stands next to another text, further from the mouse.
void draw_mouse_text(const char* text, int anchor_x, int anchor_y, int line = 0);

}  // namespace nubo
