#pragma once
// The sheet of the interface's sprites: arrows, knobs and ends of plates.
#include "palette.h"

namespace nubo {

/// Draws the source's sprites into a new 8-bit sheet of 320 by 200 palette entries, 0 clear. A `sprite` is there twice:
/// in the default scheme at its place, and 60 columns to the right of it as the template from which the program colours
/// it, each part a grey of its own. An `end` is there once. Null on a fault, which is printed.
OwnedBitmap draw_gui_sheet(const ArtSource& source, const ArtPalette& palette);

}  // namespace nubo
