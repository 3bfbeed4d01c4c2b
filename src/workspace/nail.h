#pragma once
// The Nail: a sheet of thumbnails, one of each Frame, that always stays in memory.
#include "base/bitmap.h"
#include "platform/folder.h"

namespace nubo {

inline constexpr const char* nail_file = "current.nal";
inline constexpr int nail_side = 400;  // pixels of the whole sheet

/// Box reduction of the whole of `source` into the rectangle (x, y, w, h) of `target`, which lies inside it. The source
/// is at least as large as the rectangle in both directions; both are 32-bit memory bitmaps.
void reduce_bitmap(BITMAP* source, BITMAP* target, int x, int y, int w, int h);

/// Makes the tile of a slot from a Frame of any size.
void make_nail_tile(BITMAP* frame, int slot);

/// Copies the tile of one slot to another.
void copy_nail_tile(int from, int to);

/// Writes the Nail to a folder. False after a failure, which is logged.
bool save_nail(const Folder& folder);

}  // namespace nubo
