#pragma once
// The view of the Frame on the logical screen.
#include "state/shared.h"
#include <array>

namespace nubo {

// ---- Zoom levels ---------------------------------------------------------------------------------------------------

inline constexpr int zoom_min = 1, zoom_max = 6;
inline constexpr std::array<int, 8> zoom_scale{1, 1, 2, 4, 8, 16, 32, 64};  // logical pixels to a frame pixel
/// The logical screen in frame pixels at each level.
inline constexpr std::array<float, 7> zoom_view_w{320, 320, 160, 80, 40, 20, 10};
inline constexpr std::array<float, 7> zoom_view_h{240, 240, 120, 60, 30, 15, 7.5F};
inline constexpr std::array<int, 8> pan_step{3, 3, 2, 1, 1, 1, 1, 1};  // frame pixels that one pan tick moves

// ---- The view, moved by both flows ---------------------------------------------------------------------------------

inline constinit Shared<int> zoom = 1;                              // 1 to 6
inline constinit Shared<int> pan_x = 0, pan_y = 0;                  // frame pixel at the top left of the screen
inline constinit Shared<int> pixel_x = 0, pixel_y = 0;              // frame pixel under the mouse
inline constinit Shared<int> view_center_x = 0, view_center_y = 0;  // frame pixel at the centre of the view
inline constinit Shared<int> checker_index = 1;                     // pattern behind the frame, 0 to 2

}  // namespace nubo
