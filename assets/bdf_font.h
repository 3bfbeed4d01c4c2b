#pragma once
// The interface's fonts as fonts for TEXT, in the text format that font editors read too.
#include "state/fonts.h"
#include <string>

namespace nubo {

/// The visible characters and the blank of a font as a BDF file. `descent` of the rows of a cell lie below the
/// baseline.
std::string bdf_of(const FontSlot& font, const std::string& name, int descent);

}  // namespace nubo
