#pragma once
// Specimens for the contact sheet: the sheets and schemes at work, as the program will show them.
#include "palette.h"
#include "schemes.h"

namespace nubo {

/// The sheets that a specimen is drawn with: 8-bit, in palette entries.
struct SpecimenSheets {
    BITMAP* wide_font;
    BITMAP* narrow_font;
    BITMAP* gui;
    const ArtPalette* palette;
};

/// All characters and some texts of both fonts, in light letters on the dark of the status bar.
OwnedBitmap draw_font_specimen(const SpecimenSheets& sheets);

/// A small window in each scheme, two to the row.
OwnedBitmap draw_scheme_specimen(const SpecimenSheets& sheets, const std::vector<ArtScheme>& schemes);

}  // namespace nubo
