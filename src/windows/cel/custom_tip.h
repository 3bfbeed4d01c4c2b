#pragma once

namespace nubo {

/// Lets the user take the CustomTip from the Frame: a rectangle follows the mouse, a left press takes the area in it, a
/// right press leaves the tip as it was. Dark pixels paint strongly, light ones not at all. Main flow only.
void set_custom_tip();

}  // namespace nubo
