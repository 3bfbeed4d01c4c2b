#pragma once
// The zoom preview: a small window that shows the frame around the mouse at its own size while the view is zoomed in.

namespace nubo {

/// Puts the preview up or takes it away, as the zoom and the options ask, and moves it out of the mouse's way where it
/// hides the Frame. At each update.
void keep_zoom_preview();

}  // namespace nubo
