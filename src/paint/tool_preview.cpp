#include "paint/tool_preview.h"

#include "base/geometry.h"
#include "gui/stripes.h"
#include "paint/shape_lines.h"
#include "state/shown.h"
#include "state/view.h"
#include "view/frame_tiles.h"
#include <cmath>

namespace nubo {
namespace {

bool shows_paint = false;
Imaging imaging_of_paint = IMAGES_ONCE;

// ---- Outlines ------------------------------------------------------------------------------------------------------

/// What stands for paint goes to the first tile that the view shows.
Point first_place(Point place) {
    return {tiles_across() ? wrapped(place.x, frame_w) : place.x, tiles_down() ? wrapped(place.y, frame_h) : place.y};
}

bool is_on(const BITMAP* bitmap, Point place) {
    return place.x >= 0 && place.y >= 0 && place.x < bitmap->w && place.y < bitmap->h;
}

/// Allegro's callback.
void put_stripe(BITMAP* bitmap, int x, int y, int) {
    const Point place = shows_paint ? first_place({x, y}) : Point{x, y};
    if (is_on(bitmap, place)) *pixels_at(bitmap, place.x, place.y) = stripe_pixel(place.x, place.y);
}

/// Beyond it no pixel of an outline is seen. Along tiles it comes back from far away; what lies further isn't painted
/// either.
Area outline_window(const BITMAP* bitmap) {
    constexpr int far = 16384;
    const int across = shows_paint && tiles_across() ? far : 0, down = shows_paint && tiles_down() ? far : 0;
    return {-across, -down, bitmap->w - 1 + across, bitmap->h - 1 + down};
}

void draw_line(BITMAP* bitmap, Point from, Point to) {
    walk_line(from, to, outline_window(bitmap), [bitmap](int x, int y) { put_stripe(bitmap, x, y, 0); });
}

void draw_rect(BITMAP* bitmap, Point a, Point b) {
    draw_line(bitmap, a, {b.x, a.y});
    draw_line(bitmap, a, {a.x, b.y});
    draw_line(bitmap, {b.x, a.y}, b);
    draw_line(bitmap, {a.x, b.y}, b);
}

/// Calls `draw(a, b)` for two points of the bitmap and each of their images, as the paint has them.
template <typename Draw> void for_each_outline(Point a, Point b, Draw draw) {
    if (!shows_paint || imaging_of_paint != IMAGES_MIRRORED) return draw(a, b);
    const auto place = [](const ImageMap& map, Point point) {
        const Point image = map({point.x + shown.pan_x, point.y + shown.pan_y});
        return Point{image.x - shown.pan_x, image.y - shown.pan_y};
    };
    for (const ImageMap& map : image_maps(imaging_of_paint)) draw(place(map, a), place(map, b));
}

// ---- Tiles ---------------------------------------------------------------------------------------------------------

/// For each column or row of the view the one that shows the same of the Frame on the first tile.
template <std::size_t count> std::array<int, count> first_places(bool tiled, int extent) {
    std::array<int, count> places{};
    for (int i = 0; i < static_cast<int>(count); ++i) places[static_cast<std::size_t>(i)] = tiled ? i % extent : i;
    return places;
}

/// What was drawn on any tile goes to the first one, and from there to all.
void repeat_over_tiles() {
    const auto column = first_places<view_w>(tiles_across(), frame_w);
    const auto row = first_places<view_h>(tiles_down(), frame_h);
    for (std::size_t y = 0; y < view_h; ++y) {
        const Color* const from = pixels_at(overlay, 0, static_cast<int>(y));
        for (std::size_t x = 0; x < view_w; ++x)
            if (from[x] != transparent_color) *pixels_at(overlay, column[x], row[y]) = from[x];
    }
    for (std::size_t y = 0; y < view_h; ++y) {
        Color* const to = pixels_at(overlay, 0, static_cast<int>(y));
        const Color* const first = pixels_at(overlay, 0, row[y]);
        for (std::size_t x = 0; x < view_w; ++x) to[x] = first[column[x]];
    }
}

}  // namespace

void preview_line(BITMAP* bitmap, int x1, int y1, int x2, int y2) {
    for_each_outline({x1, y1}, {x2, y2}, [bitmap](Point a, Point b) { draw_line(bitmap, a, b); });
}

void preview_rect(BITMAP* bitmap, int x1, int y1, int x2, int y2) {
    for_each_outline({x1, y1}, {x2, y2}, [bitmap](Point a, Point b) { draw_rect(bitmap, a, b); });
}

void preview_circle(BITMAP* bitmap, int center_x, int center_y, int rim_x, int rim_y) {
    const int radius = UA_distance_2d(center_x, center_y, rim_x, rim_y);
    for_each_outline({center_x, center_y}, {rim_x, rim_y},
                     [=](Point center, Point) { do_circle(bitmap, center.x, center.y, radius, 0, put_stripe); });
}

Color* preview_pixel(Point place) {
    place = first_place(place);
    return is_on(overlay, place) ? pixels_at(overlay, place.x, place.y) : nullptr;
}

PaintPreview::PaintPreview(Imaging imaging) {
    shows_paint = true;
    imaging_of_paint = imaging;
}

PaintPreview::~PaintPreview() {
    shows_paint = false;
    if (guides.tiles != TILES_OFF) repeat_over_tiles();
}

}  // namespace nubo
