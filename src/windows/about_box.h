#pragma once
// The about box. Main flow only.

namespace nubo {

/// Shows the box until its OKAY is pressed.
void about_box();

}  // namespace nubo
