#pragma once
// Moving a window by its title.

namespace nubo {

/// Names the job that a press on a title pushes. At start.
void install_window_drag();

}  // namespace nubo
