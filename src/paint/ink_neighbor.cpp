// The inks that compare a pixel with its neighbours: CLOSE, HOLLOW, JUMBLE, SWEEP, UNZAG. Neighbours outside the frame
// are left out.
#include "base/random.h"
#include "paint/ink_rows.h"

#include <array>

namespace nubo {
namespace {

/// Calls `visit(pixel)` for the neighbours of (x, y) that lie in the bitmap, row by row, until one gives false.
template <typename Visit> void for_each_neighbor(BITMAP* bitmap, int x, int y, Visit visit) {
    const int left = std::max(x - 1, 0), right = std::min(x + 1, bitmap->w - 1);
    const int top = std::max(y - 1, 0), bottom = std::min(y + 1, bitmap->h - 1);
    for (int ny = top; ny <= bottom; ++ny) {
        const Color* const line = pixels_at(bitmap, 0, ny);
        for (int nx = left; nx <= right; ++nx)
            if ((nx != x || ny != y) && !visit(line[nx])) return;
    }
}

bool has_match_around(BITMAP* bitmap, int x, int y, int tolerance) {
    const Color center = *pixels_at(bitmap, x, y);
    bool found = false;
    for_each_neighbor(bitmap, x, y,
                      [&](Color neighbor) { return !(found = colors_match(neighbor, center, tolerance)); });
    return found;
}

}  // namespace

// The reference is the brush colour itself. Every pixel of the row is examined, also those outside the tip.
template <> void paint_row_with<INK_CLOSE>(const InkRow& row, Color) {
    const int tolerance = strength_of(INK_CLOSE);
    BITMAP* const before = stroke_snapshot();
    const Color reference = brush_color;
    const auto matches = [=](int x, int y) { return colors_match(*pixels_at(before, x, y), reference, tolerance); };
    const bool has_rows = row.y > 0 && row.y + 1 < before->h;
    for_each_pixel(row, [=, y = row.y](int x, int) {
        const bool across = x > 0 && x + 1 < before->w && matches(x - 1, y) && matches(x + 1, y);
        if (!across && !(has_rows && matches(x, y - 1) && matches(x, y + 1))) return;
        if (!matches(x, y)) *pixels_at(current_frame, x, y) = reference;
    });
}

// ---- HOLLOW --------------------------------------------------------------------------------------------------------

namespace {

constexpr int hollow_chunk = 256;  // pixels looked at in one go
constexpr int pixel_bytes = sizeof(Color);
using ByteLine = std::array<std::uint8_t, static_cast<std::size_t>(hollow_chunk) * pixel_bytes>;

/// Raises `spread` to the difference of each byte of `center` to the byte of `other`.
void raise_to_difference(std::uint8_t* __restrict__ spread, const Color* center, const Color* other, int pixels) {
    const auto* const a = reinterpret_cast<const std::uint8_t*>(center);
    const auto* const b = reinterpret_cast<const std::uint8_t*>(other);
    for (int i = 0; i < pixels * pixel_bytes; ++i) {
        const auto difference = static_cast<std::uint8_t>(std::max(a[i], b[i]) - std::min(a[i], b[i]));
        spread[i] = std::max(spread[i], difference);
    }
}

/// The largest difference of each component of `count` pixels from (x, y) on to any of their neighbours.
void neighbor_spread(ByteLine& spread, BITMAP* before, int x, int y, int count) {
    spread.fill(0);
    const Color* const center = pixels_at(before, x, y);
    const int first = x == 0 ? 1 : 0;                             // of the chunk, with a neighbour at the left
    const int last = x + count == before->w ? count - 1 : count;  // behind those with one at the right
    for (int ny = std::max(y - 1, 0); ny <= std::min(y + 1, before->h - 1); ++ny) {
        const Color* const line = pixels_at(before, x, ny);
        raise_to_difference(spread.data() + first * pixel_bytes, center + first, line + first - 1, count - first);
        raise_to_difference(spread.data(), center, line, count);
        raise_to_difference(spread.data(), center, line + 1, last);
    }
}

void hollow_chunk_of_run(const TipRun& run, int tolerance, int start, int count) {
    ByteLine spread;
    neighbor_spread(spread, stroke_snapshot(), run.x + start, run.y, count);
    for (int i = 0; i < count; ++i) {
        const std::uint8_t* const parts = spread.data() + i * pixel_bytes;
        if (std::max({parts[0], parts[1], parts[2]}) >= tolerance) continue;
        Color& pixel = run.frame[start + i];
        pixel = run.tip == 0 ? mask_color : blend_fill_pixel(pixel, mask_color, run.tip_coverage());
    }
}

}  // namespace

// A pixel all of whose neighbours match it lies inside a solid area and is erased. A tolerance of 0 matches not even
// the pixel itself. The mask is not used: soft stamps go on erasing.
template <> void paint_row_with<INK_HOLLOW>(const InkRow& row, Color) {
    const int tolerance = held_option(INK_HOLLOW, OPTION_HOLLOW_TOLERANCE);
    if (tolerance == 0) return;
    for_each_run(row, [=](const TipRun& run) {
        for (int start = 0; start < run.length; start += hollow_chunk)
            hollow_chunk_of_run(run, tolerance, start, std::min(hollow_chunk, run.length - start));
    });
}

// ---- JUMBLE, SWEEP, UNZAG ------------------------------------------------------------------------------------------

// All pixels of the row are scattered, also those outside the tip, and every stamp scatters afresh.
template <> void paint_row_with<INK_JUMBLE>(const InkRow& row, Color) {
    const int reach = strength_of(INK_JUMBLE);
    BITMAP* const before = stroke_snapshot();
    for_each_pixel(row, [=, y = row.y](int x, int) {
        const int from_x = x - reach + UA_random(2 * reach);
        const int from_y = y - reach + UA_random(2 * reach);
        if (frame_contains(before, from_x, from_y))
            *pixels_at(current_frame, x, y) = *pixels_at(before, from_x, from_y);
    });
}

Color mean_neighbor(BITMAP* bitmap, int x, int y) {
    int red = 0, green = 0, blue = 0, count = 0;
    for_each_neighbor(bitmap, x, y, [&](Color neighbor) {
        red += red_of(neighbor), green += green_of(neighbor), blue += blue_of(neighbor), ++count;
        return true;
    });
    return count == 0 ? *pixels_at(bitmap, x, y) : pack_color(red / count, green / count, blue / count);
}

// Whether a pixel is a stray is asked of the snapshot, what takes its place of the frame: so a mean of the stroke's own
// pixels, not of other strays. With no neighbour at all the mean is the pixel itself.
template <> void paint_row_with<INK_SWEEP>(const InkRow& row, Color) {
    const int tolerance = strength_of(INK_SWEEP);
    BITMAP* const before = stroke_snapshot();
    for_each_pixel(row, [=, y = row.y](int x, int) {
        if (!has_match_around(before, x, y, tolerance))
            *pixels_at(current_frame, x, y) = mean_neighbor(current_frame, x, y);
    });
}

// A corner of a step is softened: where the neighbours on three sides of it agree and it stands out from them, it moves
// toward their colour.
template <> void paint_row_with<INK_UNZAG>(const InkRow& row, Color) {
    const int alpha = strength_of(INK_UNZAG);
    constexpr int agree_tolerance = 6, stand_out_tolerance = 20;
    constexpr std::array<Point, 4> diagonals{{{-1, -1}, {1, -1}, {-1, 1}, {1, 1}}};
    BITMAP* const before = stroke_snapshot();
    for_each_pixel(row, [=, y = row.y](int x, int) {
        const Color center = *pixels_at(before, x, y);
        for (const auto& [dx, dy] : diagonals) {
            if (!frame_contains(before, x + dx, y + dy)) continue;
            const Color beside = *pixels_at(before, x + dx, y);
            if (!colors_match(beside, *pixels_at(before, x + dx, y + dy), agree_tolerance) ||
                !colors_match(beside, *pixels_at(before, x, y + dy), agree_tolerance) ||
                colors_match(beside, center, stand_out_tolerance))
                continue;
            *pixels_at(current_frame, x, y) = blend_color(center, beside, alpha);
            return;
        }
    });
}

}  // namespace nubo
