#pragma once
// Specimens for the contact sheet: the sheets and schemes at work, as the program shows them. Both need the fonts in
// the text engine's slots.
#include "base/bitmap.h"
#include "schemes.h"

namespace nubo {

/// All characters and some texts of both fonts, on the dark of the status bar.
OwnedBitmap draw_font_specimen();

/// A small window in each scheme, two to the row, with the sprites of the sheet `gui`, in 32 bits.
OwnedBitmap draw_scheme_specimen(BITMAP* gui, const std::vector<ArtScheme>& schemes);

}  // namespace nubo
