#pragma once
// The contact sheet: all artwork in one large picture, for a person to look over at a glance.
#include "base/bitmap.h"
#include <vector>

namespace nubo {

struct ContactPanel {
    OwnedBitmap picture;
    int cell_width, cell_height;  // of its grid, in pixels of the picture; 0: no grid
};

/// Draws the panels below each other, four times as large, with their grids, and without clear rows above and below.
/// Null when the memory can't be had or a panel has no picture.
OwnedBitmap draw_contact_sheet(const std::vector<ContactPanel>& panels);

}  // namespace nubo
