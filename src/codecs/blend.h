#pragma once
// Translucent drawing on bitmaps of 32, 16 and 15 bits. Bitmaps of any other depth, or of two depths, are left alone.
#include "state/colors.h"
#include <allegro.h>

namespace nubo {

/// Draws the whole of `source` onto `target` at (x, y), clipped; pixels of the colour key (0xff00ff at 32 bits) are
/// skipped. `fact` 0 to 255: 0 leaves the target alone, 255 is `masked_blit`.
void trans_blit(BITMAP* source, BITMAP* target, int x, int y, int fact);

/// Fills the rectangle, clipped to the target, with `color` at the strength `fact`, 0 to 255: 0 does nothing, 255
/// replaces.
void trans_rectfill(BITMAP* target, int x, int y, int w, int h, Color color, int fact);

/// A row of `length` pixels through `trans_rectfill`'s formula at the strength `fact`, 0 to 255. For the inks, whose
/// rows are clipped already.
void blend_fill_row(Color* row, int length, Color color, int fact);

}  // namespace nubo
