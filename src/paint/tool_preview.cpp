// Outlines in the moving stripes.
#include "base/geometry.h"
#include "gui/stripes.h"
#include "paint/shape_lines.h"
#include "paint/stroke.h"

namespace nubo {

void preview_line(BITMAP* bitmap, int x1, int y1, int x2, int y2) {
    walk_line({x1, y1}, {x2, y2}, {0, 0, bitmap->w - 1, bitmap->h - 1},
              [bitmap](int x, int y) { *pixels_at(bitmap, x, y) = stripe_pixel(x, y); });
}

void preview_rect(BITMAP* bitmap, int x1, int y1, int x2, int y2) {
    const StripesMode stripes;
    rect(bitmap, x1, y1, x2, y2, 0);
}

void preview_circle(BITMAP* bitmap, int center_x, int center_y, int rim_x, int rim_y) {
    const StripesMode stripes;
    circle(bitmap, center_x, center_y, UA_distance_2d(center_x, center_y, rim_x, rim_y), 0);
}

}  // namespace nubo
