#pragma once
// The GUI: what both flows know of the elements and the press on them.
#include "state/shared.h"

namespace nubo {

inline constinit int gui_visible = 1;                      // clear: no element is drawn
inline constinit Shared<int> hover = -1, hover_slot = -1;  // slot under the mouse, -1 none; set by GUI_tick
inline constinit Shared<int> mouse_down = 0;               // a press on the GUI is latched
inline constinit Shared<int> press_x = 0, press_y = 0;     // mouse at the press
inline constinit Shared<int> press_slot = -1;              // slot under the mouse at the press, -1 with no press
inline constinit Shared<int> cursor_phase = 0;             // of the text cursor, 0 to 6, steps 10 times a second

}  // namespace nubo
