#pragma once
// The moving stripes, in which everything is drawn that stands on the screen only while the user decides.
#include "base/bitmap.h"
#include "state/run.h"
#include "state/shown.h"
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

/// The pixel of the stripes at a place, for lines that Allegro would walk far beyond the bitmap.
inline Color stripe_pixel(int x, int y) {
    return *pixels_at(stripe_pattern, (x - shown.stripe_phase) & (stripe_pattern->w - 1), y & (stripe_pattern->h - 1));
}

}  // namespace nubo
