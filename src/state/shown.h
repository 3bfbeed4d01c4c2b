#pragma once
// The picture being drawn.
#include "state/cel.h"
#include "state/shared.h"
#include "state/windows.h"

namespace nubo {

inline constinit Shared<int> stripe_phase = 0;   // the ants: 0 to 31, 45 steps a second
inline constinit Shared<int> refresh_ticks = 0;  // 45 Hz ticks since the last update_screen

/// Copies of the words that the handlers go on changing, taken at the start of each update, so that one picture is
/// drawn with one set of values.
struct ViewSnapshot {
    int pan_x = 0, pan_y = 0, zoom = 1;
    int pixel_x = 0, pixel_y = 0, mouse_x = 0, mouse_y = 0;
    int status_message = 0, checker_index = 1, stripe_phase = 0, hover = -1;
    CelPlace cel_place{};
    MenuShadow menu_shadow{};
};
inline constinit ViewSnapshot shown;  // main flow only; all that draws into `screen_buffer` or `overlay` reads it

}  // namespace nubo
