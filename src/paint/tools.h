#pragma once
// The brush tools: from the user's presses to the points of a stroke.
#include "state/colors.h"

namespace nubo {

/// Runs the tool of the active slot from a left press on the Frame to its end. By `program_loop`.
void run_tool();

/// The second click of a two-click tool, into `click_points[slot]`. False when a right press cancelled.
bool wait_for_point(int slot);

/// Fills the connected area of `color` around (x, y) with the active ink.
void flood_fill(int x, int y, Color color, int tolerance);

/// Draws the preview of the running tool (`tool_preview`) on `overlay`. By `update_screen`, which has cleared it.
void draw_tool_preview();

}  // namespace nubo
