#pragma once
// What the lasso and the wand take of the Frame. Where it is tiled both go over the seam: a pixel on another tile is
// the one of the Frame that shows there. Each becomes the content of `taken`; false, with `taken` of no use, without
// memory.
#include "paint/pixel_set.h"
#include "state/stroke.h"
#include <span>

namespace nubo {

/// What FSHAPE, filled, would paint for that way of the hand.
bool take_polygon(std::span<const Point> way, PixelSet& taken);

/// What FILL would fill around a pixel; none where that lies beyond the Frame or `tolerance` is 0.
bool take_filled(Point from, int tolerance, PixelSet& taken);

/// All pixels whose colour differs from that pixel's by less than `tolerance` in each component.
bool take_color(Point like, int tolerance, PixelSet& taken);

/// Where the set lies: its smallest area, on the tile that is nearest to the middle of the view.
Area area_in_view(const PixelSet& set);

}  // namespace nubo
