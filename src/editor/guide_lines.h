#pragma once
// The lines that guide the hand over the Frame, on the screen only.

namespace nubo {

/// Draws those that are on into `screen_buffer`, over the Frame and its overlay.
void draw_guide_lines();

}  // namespace nubo
