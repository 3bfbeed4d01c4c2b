#pragma once
// The picture on the screen. `update_screen`, the heartbeat of the main flow, is declared in state/flow.h.

namespace nubo {

/// Makes `screen_buffer`, `overlay` and the patterns behind and over the frame. Once, at start; false without memory.
bool create_screen_bitmaps();

}  // namespace nubo
