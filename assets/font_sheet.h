#pragma once
// The sheets of the bitmap fonts.
#include "art_source.h"
#include "base/bitmap.h"

namespace nubo {

/// Draws the source's glyphs into a new 8-bit sheet of 320 by 200 palette entries, as the text engine reads it: the
/// first cell holds the font's measures, each other one a character's code and advance in its top row and the glyph
/// one pixel further in, and the sheet's last row the eight tones. Null on a fault, which is printed.
OwnedBitmap draw_font_sheet(const ArtSource& source);

}  // namespace nubo
