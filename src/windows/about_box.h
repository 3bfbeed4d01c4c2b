#pragma once
// The about box. Main flow only.

namespace nubo {

/// Shows the box until its OKAY is pressed. The caller has closed the window on screen and builds another one after it.
void about_box();

/// Tells the toolkit how to draw its panel. Once, at start.
void register_about_box();

}  // namespace nubo
