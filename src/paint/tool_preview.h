#pragma once
// What is drawn on `overlay` only while the user decides: outlines in the moving stripes, and where paint will go.
#include "paint/image_maps.h"
#include "state/colors.h"
#include <allegro.h>

namespace nubo {

/// Outlines in the moving stripes, on a bitmap of the logical screen; `preview_circle` takes the centre and a rim
/// point.
void preview_line(BITMAP* bitmap, int x1, int y1, int x2, int y2);
void preview_rect(BITMAP* bitmap, int x1, int y1, int x2, int y2);
void preview_circle(BITMAP* bitmap, int center_x, int center_y, int rim_x, int rim_y);

/// As long as it lives what is drawn on `overlay` stands for paint: outlines show all images that symmetry makes of a
/// tool with this imaging, and what reaches another tile comes in on the Frame's other side. In the end all tiles show
/// it. `overlay` is cleared before.
class PaintPreview {
public:
    explicit PaintPreview(Imaging imaging);
    ~PaintPreview();
    PaintPreview(const PaintPreview&) = delete;
    PaintPreview& operator=(const PaintPreview&) = delete;
};

/// While a `PaintPreview` lives: the pixel of `overlay` at a place, or where the place comes in on another side of the
/// Frame; null where it isn't seen.
Color* preview_pixel(Point place);

}  // namespace nubo
