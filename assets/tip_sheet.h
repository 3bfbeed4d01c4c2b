#pragma once
// The sheet of the brush tips.
#include "art_source.h"
#include "base/bitmap.h"

namespace nubo {

/// Draws the tips that the source's `tips` blocks hold into a new sheet of 206 by 48 pixels, 12 to the row. A pixel's
/// grey is its tip value: 0 paints at full strength, 200 less the coverage up to 199; outside it is
/// `transparent_color`. Null when a tip is missing or misdrawn; the cause is printed.
OwnedBitmap draw_tip_sheet(const ArtSource& source);

}  // namespace nubo
