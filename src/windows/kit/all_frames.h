#pragma once
// Work on all Frames of the Workspace, one after the other, behind a box with a bar. Main flow only.
#include "state/labels.h"
#include <functional>

struct BITMAP;

namespace nubo {

/// Shows the picture of each Frame in their order, the one in memory as it is now, without leaving it. One whose file
/// can't be read is left out. False when the user ends it by ESC, or the program ends.
bool look_at_all_frames(Label title, const std::function<void(BITMAP* picture)>& look);

struct FrameChange {
    std::function<bool(BITMAP* picture)> is_needed;
    std::function<void(BITMAP* frame)> make;  // the Frame's size stays
};
/// How many Frames have changed, and whether all that need it have.
struct FramesChanged {
    int count = 0;
    bool is_whole = false;
};

/// Changes all Frames that need it. Each becomes the Frame in memory and is stored as always, with a step in its own
/// history, so that a kill leaves each Frame as it was or as it shall be; then the Frame in hand is back. ESC, a full
/// disk or the program's end stop between two Frames.
FramesChanged change_all_frames(Label title, const FrameChange& change);

}  // namespace nubo
