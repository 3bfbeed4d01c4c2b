#pragma once
// The letters of Latin-1 that a font has for TEXT only: the interface's own sheets stay as they are.
#include "art_source.h"
#include "base/bitmap.h"
#include <span>

namespace nubo {

/// A glyph as rows of '.' and '#', all of one width, of which the first `above` lie over the top of a line's cell.
struct LatinGlyph {
    int code = 0;
    std::vector<std::string> rows;
    int above = 0;
};

/// The glyphs that `latin` draws, or composes of its marks and the letters of the font `letters`, by their codes.
/// Nothing, after the fault is printed, unless they are all of U+00A0 to U+00FF.
std::optional<std::vector<LatinGlyph>> read_latin_glyphs(const ArtSource& letters, const ArtSource& latin);

/// All of them in cells of `cell_w` by `cell_h` pixels, for the contact sheet.
OwnedBitmap draw_latin_glyphs(std::span<const LatinGlyph> glyphs, int cell_w, int cell_h);

}  // namespace nubo
