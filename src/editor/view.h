#pragma once
// The view arithmetic: limits, the pixel under the mouse, zoom. `view_tick`, `view_clamp`, `view_update_pixel` and
// `center_frame` are declared in state/flow.h, since lower rooms call them.
#include "state/flow.h"

namespace nubo {

enum ZoomDirection : int { ZOOM_OUT = 0, ZOOM_IN = 1 };

/// One zoom level in or out; the frame pixel under the mouse stays close to where it was. Nothing moves at the limits.
void view_zoom(int direction);

}  // namespace nubo
