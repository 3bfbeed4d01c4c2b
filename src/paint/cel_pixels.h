#pragma once
// The Cel's two bitmaps, `cel_mask` with all its pixels and `cel` to be placed: how they are taken, masked and reduced
// to one colour.
#include "base/bitmap.h"
#include "paint/area.h"
#include "paint/pixel_set.h"
#include "state/guides.h"
#include <optional>

namespace nubo {

/// The rectangle with two opposite corners.
Area area_between(int x1, int y1, int x2, int y2);

/// Makes `picture` the Cel, both its bitmaps. False, with the old Cel untouched, if it is null or there is no memory
/// for the second. Where a Cel that isn't whole is 0xff00ff no ink and no command paints or fills.
bool take_cel(OwnedBitmap picture, CelShape shape = CEL_IS_WHOLE);

/// GET: makes an area of the Frame the Cel. One that reaches beyond is cut off there. False as above.
bool take_area(const Area& area);

/// Whether that pixel of `cel_mask` is none.
inline bool is_no_pixel(Color pixel) { return guides.cel_shape != CEL_IS_WHOLE && pixel == transparent_color; }

/// A Cel set aside: both its bitmaps and where it stood. Whoever has it frees it.
struct CelAside {
    BITMAP *bitmap = nullptr, *mask = nullptr;
    int x = 0, y = 0;
    int shape = CEL_IS_WHOLE;  // a CelShape
};

/// Sets the Cel aside, and what was aside is the Cel.
void exchange_cel(CelAside& aside);

void free_cel(CelAside& aside);

/// The pixels of an area of the Frame, on whatever tiles they lie; 0xff00ff where it reaches beyond the Frame. Null
/// without memory.
OwnedBitmap copy_of_area(const Area& area);

/// What of the Frame lies in an area and in `shape`, if that isn't null; all else is 0xff00ff. A real pixel of that
/// colour becomes 0xfe00ff, so that it stays one. Null without memory.
OwnedBitmap cut_out(const Area& area, const PixelSet* shape);

/// Makes a new `cel` of `cel_mask`, with what is near `mask_color` masked out if CEL - MASKING is on. Before a
/// placement.
void prepare_cel();

/// Turns the pixels of the bitmap whose components each differ from `color`'s by less than CEL - TOLERANCE into
/// 0xff00ff.
void mask_cel(BITMAP* bitmap, Color color);

/// The smallest area of the bitmap that holds all its pixels that don't match `background` within `tolerance` (see
/// `colors_match`); none if all match.
std::optional<Area> content_area(BITMAP* bitmap, Color background, int tolerance);

/// Gives the pixels of `cel_mask` that differ from `background` by more than CEL - TOLERANCE in a component the brush
/// colour.
void one_color_cel(Color background);

}  // namespace nubo
