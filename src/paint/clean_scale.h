#pragma once
// Enlargements of drawings that keep their edges hard and know no colour but the drawing's own: Scale2x, also two and
// three times in a row, and Scale3x. Each pixel is worked out by itself, from those of the drawing around it, so that
// the enlarged picture stands nowhere. A neighbour beyond the rim is the nearest pixel.
#include "base/bitmap.h"

namespace nubo {

/// The enlargements that there are; 1 is the drawing itself.
inline constexpr int clean_scale_finest = 8;
constexpr bool is_clean_scale(int scale) { return (scale >= 1 && scale <= 4) || scale == clean_scale_finest; }

/// The pixel (x, y) of `drawing` enlarged `scale` times. It lies inside.
Color clean_pixel(BITMAP* drawing, int scale, int x, int y);

}  // namespace nubo
