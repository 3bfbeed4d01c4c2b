#pragma once
// The axes of symmetry on the screen, and their handles, by which they are dragged while GUIDES is open.

namespace nubo {

/// Whether the upright axis, or the level one, is part of the symmetry.
bool shows_axis(bool upright);

/// Where it lies on the screen in the picture being drawn, logical pixels across it; perhaps out of view.
int axis_place(bool upright);

/// As long as it lives the axes that are in view have handles.
class AxisHandles {
public:
    AxisHandles();
    ~AxisHandles();
    AxisHandles(const AxisHandles&) = delete;
    AxisHandles& operator=(const AxisHandles&) = delete;
};

/// Draws the handles that there are into `screen_buffer`.
void draw_axis_handles();

/// After a press on a handle: its axis follows the mouse as long as the button is down; ESC puts it back. In each pass
/// of the window.
void serve_axis_handles();

}  // namespace nubo
