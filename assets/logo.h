#pragma once
// The logo of the about box; its emblem is also the backdrop of the help window.
#include "art_source.h"
#include "base/bitmap.h"

namespace nubo {

/// Draws the source's picture: `size` says how large it is, `color` gives a character its colour, `tile` fills all with
/// a repeated pattern, `stamp x y` lays a picture at a place, where a dot is clear. Null on a fault, which is printed.
OwnedBitmap draw_logo(const ArtSource& source);

}  // namespace nubo
