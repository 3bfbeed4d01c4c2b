#pragma once
// The distance that a tool shows while it waits.
#include "state/options.h"
#include "state/overlay.h"
#include "state/stroke.h"

namespace nubo {

/// Shows the distance from a point while a tool runs, if the user wants that and does not measure already.
class ToolDistance {
public:
    explicit ToolDistance(Point anchor) : shown_(opt_tool_distance != 0 && measure_state == 0) {
        if (shown_) set_anchor(anchor);
    }
    ~ToolDistance() {
        if (shown_) set_anchor({-1, -1});
    }
    ToolDistance(const ToolDistance&) = delete;
    ToolDistance& operator=(const ToolDistance&) = delete;

private:
    static void set_anchor(Point anchor) {
        measure_x = anchor.x;
        measure_y = anchor.y;
    }
    bool shown_;
};

}  // namespace nubo
