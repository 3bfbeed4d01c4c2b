#pragma once
// The mouse, as all that handles it sees it.
// Allegro has variables of its own by the names `mouse_x` and `mouse_y`, in real pixels: there they are `::mouse_x`.
#include "state/shared.h"

namespace nubo {

inline constinit Shared<int> mouse_x = 0, mouse_y = 0;  // logical pixels, 0 to 319 and 0 to 239
inline constinit Shared<int> mouse_left = 0, mouse_right = 0, mouse_middle = 0;  // the physical buttons
inline constinit Shared<int> last_wheel = 0;                                     // wheel position of the last GUI tick

}  // namespace nubo
