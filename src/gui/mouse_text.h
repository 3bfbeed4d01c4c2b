#pragma once
// Numbers beside the mouse.
#include <string_view>

namespace nubo {

inline constexpr int mouse_text_lines = 2;

/// Has the picture being drawn show a text beside the mouse, on the side that looks away from the Frame pixel
/// (anchor_x, anchor_y), or where it fits. Line 1 stands next to another text, further from the mouse.
void put_mouse_text(std::string_view text, int anchor_x, int anchor_y, int line = 0);

/// Draws what was put, or drops it. In the screen's pixels at every zoom: magnified with the overlay it would be larger
/// than the view. By `update_screen`, over the Frame.
void draw_mouse_texts(bool is_shown);

}  // namespace nubo
