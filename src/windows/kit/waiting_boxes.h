#pragma once
// The boxes that lower rooms leave for the loop that draws windows (workspace/notices.h). Main flow only.

namespace nubo {

/// Shows those that wait, one after the other, each until the user has seen it, in the place of the window on screen.
void show_waiting_boxes();

}  // namespace nubo
