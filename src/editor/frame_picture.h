#pragma once
// The Frame on the screen, at its zoom, with what shows in it or through it.

namespace nubo {

/// Draws the Frame as it is shown into `screen_buffer`, over what lies behind it, and `overlay` over it if told so.
/// The guides show in the Frame's pixels: a checker where they are of the mask colour, ghosts of other Frames. Tiles
/// show either way, since paint goes across them.
enum FrameGuides : int { FRAME_BARE, FRAME_GUIDED };
void draw_frame(bool with_overlay, FrameGuides guided);

}  // namespace nubo
