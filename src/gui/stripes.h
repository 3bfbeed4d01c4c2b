#pragma once
// The moving stripes, in which everything is drawn that stands on the screen only while the user decides.
#include "state/run.h"
#include "state/view.h"
#include <allegro.h>

namespace nubo {

/// Sets Allegro to draw with the stripes for as long as it lives.
class StripesMode {
public:
    StripesMode() { drawing_mode(DRAW_MODE_COPY_PATTERN, stripe_pattern, shown.stripe_phase, 0); }
    ~StripesMode() { solid_mode(); }
    StripesMode(const StripesMode&) = delete;
    StripesMode& operator=(const StripesMode&) = delete;
};

}  // namespace nubo
