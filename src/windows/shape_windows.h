#pragma once
// The windows of the tools whose shape is made of values: REGULAR POLYGON, SUPERSHAPE and SPIRAL TOOL. Main flow only.
#include "state/tools.h"

namespace nubo {

/// Makes these windows the runners and previews of R.POLY, SSHAPE and SPIRAL. At start.
void register_shape_windows();

/// One of the three tools, from the press on the Frame to the end: its window, the shape under the sliders, a drag of
/// it, and the stroke after OKAY.
void run_shape_window(BrushTool tool);

}  // namespace nubo
