#pragma once
// The ghosts: Frames beside the one in memory, or a pinned one, that show through it. Their pictures are read while
// the hand rests and kept till they are wanted no more. Main flow only.
#include "base/bitmap.h"
#include <functional>
#include <vector>

namespace nubo {

/// One that shows at the moment.
struct GhostPicture {
    BITMAP* picture = nullptr;  // of any size, with its corner in the Frame's; not the caller's
    bool is_before = false;     // in the row of Frames
    int distance = 1;           // Frames between it and the one in memory, and one; 1 of the pinned one
};

/// Those that have been read, the farthest first. None while the ghost is off.
std::vector<GhostPicture> shown_ghosts();

/// Reads the next picture that is wanted, the nearest first, as long as all take no more than 64 MiB, and lets go of
/// those that aren't. At rest: it may wait for the disk.
void keep_ghosts();

/// The file of a slot has changed, or of any.
void forget_ghost(int slot);
void forget_ghosts();

/// The pinned Frame has another slot than before: `slot_of` tells it, -1 where the Frame is gone.
void renumber_pinned_frame(const std::function<int(int slot)>& slot_of);

}  // namespace nubo
