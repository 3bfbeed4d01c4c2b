#include "workspace/frame_times.h"

#include "base/frame_time.h"
#include "base/geometry.h"
#include "state/guides.h"
#include <algorithm>

namespace nubo {
namespace {

/// Slots, both of it; empty where the first is behind the last.
struct Range {
    int first = frame_slots, last = -1;
    bool is_empty() const { return first > last; }
    void take_in(int slot) {
        if (slot < 0) return;
        first = std::min(first, slot);
        last = std::max(last, slot);
    }
};

Range range_after(const RowChange& change, const Range& before) {
    Range now;
    for (int slot = before.first; slot <= before.last; ++slot) now.take_in(slot_after(change, slot));
    return now;
}

}  // namespace

int slot_after(const RowChange& change, int slot) {
    const auto end = change.map.begin() + change.frames;
    const auto place = std::find(change.map.begin(), end, slot);
    return place == end ? -1 : static_cast<int>(place - change.map.begin());
}

void follow_with_times(const RowChange& change) {
    const auto before = guides.frame_times;
    guides.frame_times.fill(time_by_speed);
    for (int slot = 0; slot < change.frames; ++slot) guides.frame_times[at(slot)] = before[at(change.map[at(slot)])];
    const bool has_end = guides.range_end != 0;
    const Range now = range_after(change, {guides.first_frame, has_end ? guides.range_end - 1 : frame_slots - 1});
    guides.first_frame = now.is_empty() ? 0 : now.first;
    guides.range_end = has_end && !now.is_empty() ? now.last + 1 : 0;
}

}  // namespace nubo
