#pragma once
// What nubo-stage shows: the sheets of the actors, their tiles and their glow, and a sound. The editor reads none of
// them.
#include "painter.h"
#include "palette.h"
#include <string>

namespace nubo {

/// 8-bit sheets in the palette, entry 0 where nothing is; null when a stamp is missing, which is printed.
/// Cels of 32 by 32: stamps of 16 by 16, twice as large, four to the row in the order of the sources' list.
OwnedBitmap draw_actor_sheet(const Stamps& stamps, const ArtPalette& palette);
/// Tiles of 16 by 16, of which the inner 12 by 12 is drawn.
OwnedBitmap draw_tile_sheet(const Stamps& stamps, const ArtPalette& palette);
/// 32 cels of 32 by 32 side by side: a gleam that wanders over a sprite.
OwnedBitmap draw_glow_sheet(const ArtPalette& palette);

/// A chime as a WAV file: half a second, one channel of 8 bits.
std::string chime_wav();

}  // namespace nubo
