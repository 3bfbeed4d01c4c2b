#pragma once
// A picture whose ground, all pixels of one colour, is clear: what a game takes a sprite from. The bitmaps are of 32
// bits.
#include "base/bitmap.h"

namespace nubo {

/// How many pixels of the picture are exactly of the colour `ground`.
int count_ground(BITMAP* picture, Color ground);

/// Sets the top bytes of the picture to the alpha: 0 of the ground, 255 of all others. How many pixels are ground.
int set_alpha_by_ground(BITMAP* picture, Color ground);

/// A copy with the alpha in the top byte: 0 of the ground, whose pixels get the colour of the nearest pixel that isn't,
/// so that no rim of the ground shows where a program blends neighbours, and 255 of all others. A picture that is all
/// ground keeps its colour. Null without memory.
OwnedBitmap with_clear_ground(BITMAP* picture, Color ground);

/// The pixels that aren't ground, in their order, in a picture as wide; the last of them fills up its last row. Null
/// without memory, or when there are none.
OwnedBitmap without_ground(BITMAP* picture, Color ground);

}  // namespace nubo
