#pragma once
// The Cel turned and stretched in the quality CLEAN: its edges stay hard, and it has none but its own colours.
#include "paint/area.h"
#include "state/colors.h"
#include <functional>

namespace nubo {

/// Takes a row of `length` pixels at (x, y) of the area that was asked for; 0xff00ff where there is nothing.
using PutRow = std::function<void(const Color* colors, int length, int x, int y)>;

/// Gives the rows of the Cel turned by `cel_place.degrees` about its middle, which comes to (x, y), as far as they lie
/// in an area. By whole right angles each pixel of the Cel is there once; a middle between
/// two pixels counts as the one to the right or below, so that the Cel goes toward the upper left.
void put_turned(int x, int y, const Area& window, const PutRow& put);

/// The same of the Cel stretched between two corners, mirrored where the second lies before the first.
struct StretchEnds {
    int x, y, x2, y2;
};
void put_stretched(const StretchEnds& ends, const Area& window, const PutRow& put);

// ---- While it is placed --------------------------------------------------------------------------------------------

/// Whether the picture shows the placement CLEAN: where that is the quality, as soon as it has stood still for a
/// moment.
bool shows_clean();

/// Draws on the overlay what `draw` puts there, the first time; as long as the placement stands still what it put then
/// is copied.
void draw_clean(const std::function<void(const PutRow& put)>& draw);

/// The Cel's pixels are others now, or it is another Cel.
void renew_clean_preview();

}  // namespace nubo
