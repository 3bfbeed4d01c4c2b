#pragma once
// The about box. Main flow only.

namespace nubo {

/// Shows the box until its OKAY is pressed.
void about_box();

/// Tells the toolkit how to draw its panel. Once, at start.
void register_about_box();

}  // namespace nubo
