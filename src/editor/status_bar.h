#pragma once
// The status bar: messages, tooltips, or the coordinates.

namespace nubo {

/// Draws the bar into `screen_buffer`, if it is to be seen, at the row where it isn't in the way.
void draw_status_bar();

}  // namespace nubo
