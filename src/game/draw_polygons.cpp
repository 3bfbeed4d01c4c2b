// Polygon actors: outlines of the object library, turned and scaled, drawn as a beam of light or as a glowing shape.
#include "base/bitmap.h"
#include "base/log.h"
#include "codecs/blend.h"
#include "framework/effects.h"
#include "game/actor_families.h"
#include "game/actor_picture.h"
#include "game/draw_actors.h"
#include "state/drawn_actors.h"
#include "state/effects.h"
#include "state/resources.h"
#include <algorithm>
#include <cmath>
#include <span>

namespace nubo {
namespace {

constexpr int fixed_one = 1 << 16, whole_size = 100;  // a diameter of 100 leaves the outline as it is
constexpr int margin = 2;                             // pixels round a polygon, and as far as it wobbles
constexpr int side_max = 2048;                        // no polygon is larger
constexpr int beam_color = 208, strength_max = 255;

struct Point {
    int x, y;
};
/// The vertices of an actor, with the actor's place at 0, 0; none when the actor has no polygon.
struct Outline {
    int count = 0;
    std::array<Point, actor_vertices> points{};
    std::span<const Point> vertices() const { return std::span(points).first(at(count)); }
};

/// A radius along an axis: `turn` is a fixed sine or cosine.
int along(fixed turn, int radius, int diameter) {
    const std::int64_t scaled = std::int64_t{turn} * radius * diameter / (std::int64_t{fixed_one} * whole_size);
    return static_cast<int>(std::clamp<std::int64_t>(scaled, -side_max, side_max));
}

int wobble(fixed turn) { return static_cast<int>(std::int64_t{turn} * margin / fixed_one); }

Outline outline_of(int who) {
    const std::size_t w = at(who);
    Outline outline{std::clamp<int>(drawn::Vertex_count[w], 0, actor_vertices)};
    for (std::size_t i = 0; i < at(outline.count); ++i) {
        const fixed angle = itofix((drawn::Vertex_angle[w][i] + drawn::Angle[w]) & 255);
        const int radius = drawn::Vertex_radius[w][i], diameter = drawn::Diameter[w];
        outline.points[i] = {along(fixsin(angle), radius, diameter), along(fixcos(angle), radius, diameter)};
    }
    return outline;
}

/// The vertices swing on small ellipses, each at a time of its own.
void wobble_outline(int who, Outline& outline) {
    const std::size_t w = at(who);
    for (std::size_t i = 0; i < at(outline.count); ++i) {
        const int angle = drawn::Vertex_angle[w][i];
        outline.points[i].x += wobble(fixsin(itofix((angle + drawn::Poly_wobble_phase[w]) & 255)));
        outline.points[i].y += wobble(fixcos(itofix((angle + drawn::Poly_wobble_phase_2[w]) & 255)));
    }
}

/// A polygon in a bitmap of its own, whose corner lies at `left`, `top` of the actor's place.
struct PolygonPicture {
    OwnedBitmap bitmap;  // a part of `polygon_scratch`; null when the polygon is too large or has no area
    int left = 0, top = 0;
};

OwnedBitmap scratch_part(int w, int h) {
    if (w > side_max || h > side_max) return nullptr;
    if (polygon_scratch == nullptr || polygon_scratch->w < w || polygon_scratch->h < h) {
        const int old_w = polygon_scratch != nullptr ? polygon_scratch->w : 0;
        const int old_h = polygon_scratch != nullptr ? polygon_scratch->h : 0;
        replace_bitmap(polygon_scratch, make_uncleared_bitmap(std::max(w, old_w), std::max(h, old_h)));
    }
    return OwnedBitmap(polygon_scratch != nullptr ? create_sub_bitmap(polygon_scratch, 0, 0, w, h) : nullptr);
}

PolygonPicture draw_outline(const Outline& outline, Color color) {
    constexpr int fewest = 3;
    if (outline.count < fewest) return {};
    const auto [min_x, max_x] = std::ranges::minmax(outline.vertices(), {}, &Point::x);
    const auto [min_y, max_y] = std::ranges::minmax(outline.vertices(), {}, &Point::y);
    const int left = min_x.x - margin, top = min_y.y - margin;
    PolygonPicture picture{scratch_part(max_x.x + margin + 1 - left, max_y.y + margin + 1 - top), left, top};
    if (!picture.bitmap) return picture;
    clear_to_color(picture.bitmap.get(), static_cast<int>(transparent_color));
    std::array<int, std::size_t{2} * actor_vertices> corners{};
    for (std::size_t i = 0; i < at(outline.count); ++i) {
        corners[2 * i] = outline.points[i].x - left;
        corners[2 * i + 1] = outline.points[i].y - top;
    }
    polygon(picture.bitmap.get(), outline.count, corners.data(), static_cast<int>(color));
    return picture;
}

/// What a table of distances at half the resolution holds for two points: the distance of the odd places, truncated,
/// and for what lies beyond it that of its last entry.
int half_distance(Point a, Point b) {
    constexpr int table_w = 320, table_h = 240;
    const int x = std::min(std::abs(a.x - b.x) / 2, table_w - 1) * 2 + 1;
    const int y = std::min(std::abs(a.y - b.y) / 2, table_h - 1) * 2 + 1;
    return static_cast<int>(std::sqrt(x * x + y * y));
}

/// The strength of a beam at a point: from that of its start it falls with the way from the first two vertices.
class BeamStrength {
public:
    BeamStrength(int who, const Outline& outline)
        : first_(outline.points[0]), second_(outline.points[1]), start_(drawn::Poly_fade_start[at(who)]),
          fall_((start_ - drawn::Poly_fade_end[at(who)]) / (2.0 * half_distance(first_, outline.points[2]))) {}

    int at_point(Point point) const {
        const int way = half_distance(point, first_) + half_distance(point, second_);
        return static_cast<int>(std::clamp<double>(start_ - fall_ * way, 0, strength_max));
    }

private:
    Point first_, second_;
    int start_;
    double fall_;
};

/// False, with the line in the log once, for an actor without an outline.
bool has_outline(int who, const char* error) {
    constexpr int no_outline = -1;
    const bool is_missing = drawn::Vertex_count[at(who)] == no_outline;
    if (is_first_warning(who, is_missing ? no_outline : 0) && is_missing) UA_log(error, who);
    return !is_missing;
}

}  // namespace

void draw_v3(int who) {
    if (!has_outline(who, "ERROR: v3 object doesn't contain any vertices! slot = %d")) return;
    const Outline outline = outline_of(who);
    const PolygonPicture picture = draw_outline(outline, 0);
    if (!picture.bitmap) return;
    const BeamStrength strength(who, outline);
    const auto [x, y] = place_of(who);
    const Color color = UA_palette_color(beam_color);
    for (int row = 0; row < picture.bitmap->h; ++row)
        for (int column = 0; column < picture.bitmap->w; ++column) {
            const Point point{picture.left + column, picture.top + row};
            if (*pixels_at(picture.bitmap.get(), column, row) == transparent_color ||
                !frame_contains(screen_buffer, x + point.x, y + point.y))
                continue;
            blend_fill_row(pixels_at(screen_buffer, x + point.x, y + point.y), 1, color, strength.at_point(point));
        }
}

void draw_V3(int who) {
    if (!has_outline(who, "ERROR: V3 object doesn't contain any vertices! slot = %d")) return;
    Outline outline = outline_of(who);
    if (drawn::Poly_wobble[at(who)] == 1) wobble_outline(who, outline);
    const PolygonPicture picture = draw_outline(outline, static_cast<Color>(drawn::Color[at(who)]));
    if (!picture.bitmap) return;
    BITMAP* const bitmap = picture.bitmap.get();
    for (int y = 0; y < bitmap->h; ++y)
        for (int x = 0; x < bitmap->w; ++x) UA_pixel_effect(bitmap, bitmap, x, y, x, y, EFFECT_SPECKLE_WHITE, 0, 0, 0);
    const auto [x, y] = place_of(who);
    trans_blit(bitmap, screen_buffer, x + picture.left, y + picture.top, drawn::Opacity[at(who)]);
}

bool UA_set_outline(int who, int object) {
    if (who < 0 || who >= actor_count || object < 0 || object >= library_count) return false;
    const LibraryObject& record = object_library[at(object)];
    const int count = std::min(record.pair_count, actor_vertices);
    actor::Vertex_count[at(who)] = 0;  // the tick and a snapshot see none or the whole
    for (std::size_t i = 0; i < at(count); ++i) {
        actor::Vertex_angle[at(who)][i] = record.pairs[i].angle;
        actor::Vertex_radius[at(who)][i] = record.pairs[i].radius;
    }
    actor::Vertex_count[at(who)] = count;
    return true;
}

}  // namespace nubo
