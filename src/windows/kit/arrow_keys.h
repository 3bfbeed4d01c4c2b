#pragma once
// The arrow keys as steps of one pixel, or of eight with SHIFT. Main flow only.
#include "state/stroke.h"

namespace nubo {

/// An arrow key acts when it goes down, and after a while again and again.
class ArrowKeys {
public:
    /// How far to go since the last call, pixels; (0, 0) for nothing. In each pass, also where nothing shall move: else
    /// a key that is down since then would count as new.
    Point step();

private:
    Point held_{};
    int due_ = 0;  // `UA_clock_ticks`
};

}  // namespace nubo
