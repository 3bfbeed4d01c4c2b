#pragma once
// The view arithmetic: limits, the pixel under the mouse, zoom.

namespace nubo {

/// The per-tick work of the view: pan keys, limits, pixel under the mouse, wheel zoom. Called first by `GUI_tick`.
void view_tick();

/// Applies the pan limits to `pan_x` and `pan_y`. Along tiles there are none.
void view_clamp();

/// Goes from tile to tile until the middle of the view lies in the Frame itself; what is seen stays as it is. While no
/// tool waits, whose points lie on the tiles where the hand has set them. Main flow only.
void view_to_frame();

/// Recomputes the frame pixel under the mouse and the centre of the view. Called by every view tick, and by the
/// freehand tools on each pass, so that a stroke doesn't lag behind the hand.
void view_update_pixel();

enum ZoomDirection : int { ZOOM_OUT = 0, ZOOM_IN = 1 };

/// One zoom level in or out; the frame pixel under the mouse stays close to where it was. Nothing moves at the limits.
void view_zoom(int direction);

/// Zoom level 1, with the middle of the Frame in the middle of the screen.
void center_frame();

}  // namespace nubo
