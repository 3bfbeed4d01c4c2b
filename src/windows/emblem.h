#pragma once
// The emblem in the middle of the logo, which also stands alone: behind the help, and as the program's icon.
#include "base/bitmap.h"

namespace nubo {

inline constexpr int emblem_x = 70, emblem_side = 33;  // in the logo, from its top row on
inline constexpr int icon_side = 32;                   // of the emblem's 33: halves and doubles of it are sharp

/// The icon from the logo, `icon_side` pixels a side, with alpha in their top byte and its corners cut off. Null
/// without memory, or when the logo is smaller than its emblem asks for.
OwnedBitmap draw_icon(BITMAP* logo);

/// An icon of `icon_side` at another size: each pixel the mean of what it covers. Null without memory.
OwnedBitmap scaled_icon(BITMAP* icon, int side);

}  // namespace nubo
