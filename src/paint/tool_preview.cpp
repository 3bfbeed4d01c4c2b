// Outlines in the moving stripes.
#include "base/geometry.h"
#include "gui/stripes.h"
#include "paint/image_maps.h"
#include "paint/shape_lines.h"
#include "paint/stroke.h"
#include "paint/tool_table.h"
#include "state/overlay.h"
#include "state/shown.h"

namespace nubo {

namespace {

/// Calls `draw(a, b)` for two points and each of their images, as the tool that is previewed will paint them.
template <typename Draw> void for_each_preview(Point a, Point b, Draw draw) {
    const bool is_tool = tool_preview > TOOL_NONE && tool_preview < TOOL_COUNT;
    const Imaging imaging = is_tool ? tool_rows[at(tool_preview)].imaging : IMAGES_ONCE;
    if (imaging != IMAGES_MIRRORED) return draw(a, b);
    const auto place = [](const ImageMap& map, Point point) {
        const Point image = map({point.x + shown.pan_x, point.y + shown.pan_y});
        return Point{image.x - shown.pan_x, image.y - shown.pan_y};
    };
    for (const ImageMap& map : image_maps(imaging)) draw(place(map, a), place(map, b));
}

}  // namespace

void preview_line(BITMAP* bitmap, int x1, int y1, int x2, int y2) {
    for_each_preview({x1, y1}, {x2, y2}, [bitmap](Point a, Point b) {
        walk_line(a, b, {0, 0, bitmap->w - 1, bitmap->h - 1},
                  [bitmap](int x, int y) { *pixels_at(bitmap, x, y) = stripe_pixel(x, y); });
    });
}

void preview_rect(BITMAP* bitmap, int x1, int y1, int x2, int y2) {
    const StripesMode stripes;
    for_each_preview({x1, y1}, {x2, y2}, [bitmap](Point a, Point b) { rect(bitmap, a.x, a.y, b.x, b.y, 0); });
}

void preview_circle(BITMAP* bitmap, int center_x, int center_y, int rim_x, int rim_y) {
    const StripesMode stripes;
    const int radius = UA_distance_2d(center_x, center_y, rim_x, rim_y);
    for_each_preview({center_x, center_y}, {rim_x, rim_y},
                     [=](Point center, Point) { circle(bitmap, center.x, center.y, radius, 0); });
}

}  // namespace nubo
