#pragma once
// The times of the Frames and the range of the animation, which follow their Frames from slot to slot.
#include "state/frames.h"
#include <array>

namespace nubo {

/// For each slot the slot whose Frame it now holds.
using SlotMap = std::array<int, frame_slots>;

/// The map of a row in which each Frame stands where it stood.
constexpr SlotMap nothing_moved() {
    SlotMap map{};
    for (int slot = 0; slot < frame_slots; ++slot) map[static_cast<unsigned>(slot)] = slot;
    return map;
}

/// What a change of the row has done to it.
struct RowChange {
    SlotMap map = nothing_moved();
    int frames = frame_slots;  // there are now, 1 to 100
};

/// The slot to which the Frame of `slot` has come, the first one of those that hold it; -1 if it is gone.
int slot_after(const RowChange& change, int slot);

/// Times go with their Frames, a new Frame has that of the one before it. The range holds the Frames that it held;
/// where nothing is left of it, it is all Frames.
void follow_with_times(const RowChange& change);

}  // namespace nubo
