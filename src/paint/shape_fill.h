#pragma once
// The inside of a polygon, row by row.
#include "paint/area.h"
#include "state/stroke.h"
#include <functional>
#include <span>

namespace nubo {

/// Calls `paint(x1, x2, y)` for each run of pixels of the polygon in an area, both ends included: rows from the top,
/// runs of a row from the left and apart from each other. These are the pixels of Allegro's `polygon`, the outline
/// included, but right for any points within `far_pixel`: Allegro's arithmetic ends at column 8,191. Where the outline
/// crosses itself, inside is where an odd number of edges lies to the left.
using PaintRun = std::function<void(int x1, int x2, int y)>;
void fill_polygon(std::span<const Point> points, const Area& clip, const PaintRun& paint);

}  // namespace nubo
