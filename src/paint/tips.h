#pragma once
// The brush tips as numbers: what each pixel of a tip's cell in `tip_sheet` says about the ink.
#include "state/stroke.h"
#include <cstdint>

namespace nubo {

/// The tip values of a cell, row by row from the top: 0 full strength, 1 to 199 partial, `tip_outside` and above none.
using TipValues = std::array<std::uint8_t, std::size_t{tip_w} * tip_h>;

/// Reads the cell of tip `style`, 0 to `tip_custom`. Cheap enough for each stamp, so that no copy of a tip can be older
/// than the sheet, which the CustomTip changes.
void read_tip(int style, TipValues& values);

}  // namespace nubo
