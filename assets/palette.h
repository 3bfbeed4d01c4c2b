#pragma once
// The program's palette of 256 colours, in which all its sheets are drawn.
#include "art_source.h"
#include "base/bitmap.h"
#include <array>

namespace nubo {

inline constexpr int palette_size = 256;
using ArtPalette = std::array<Color, palette_size>;  // each channel a multiple of 4

/// Reads the source's `colors` blocks. Nothing, with the cause printed, unless each entry is given once, all are
/// different with 6 bits a channel, entry 0 is black and none is the magenta that stands for transparent.
std::optional<ArtPalette> read_palette(const ArtSource& source);

/// The same in the form that Allegro and the codecs take: 6 bits a channel.
using AllegroPalette = std::array<RGB, palette_size>;
AllegroPalette to_allegro_palette(const ArtPalette& palette);

/// The entry nearest to a colour: that with the least sum of squared differences.
int nearest_entry(const ArtPalette& palette, Color color);

/// An 8-bit picture of all entries: 16 rows of 16 squares.
OwnedBitmap draw_palette_sheet();
inline constexpr int palette_square = 8;

/// An 8-bit sheet as the program sees it: in the colours of Allegro's current palette.
OwnedBitmap to_true_color(BITMAP* sheet);

}  // namespace nubo
