#pragma once
// The interface's fonts as fonts for TEXT, in the text format that font editors read too.
#include "latin_glyphs.h"
#include "state/fonts.h"
#include <string>

namespace nubo {

/// The visible characters and the blank of a font, and more letters behind them, as a BDF file. `descent` of the rows
/// of a cell lie below the baseline; what a letter has above the cell reaches above the line.
std::string bdf_of(const FontSlot& font, std::span<const LatinGlyph> more, const std::string& name, int descent);

}  // namespace nubo
