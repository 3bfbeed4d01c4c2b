// The inks that compare a pixel with its neighbours: CLOSE, HOLLOW, JUMBLE, SWEEP, UNZAG. Neighbours outside the frame
// are left out.
#include "base/random.h"
#include "paint/ink_rows.h"

#include <array>

namespace nubo {
namespace {

/// One of the three surfaces of a canvas.
using Surface = Color* (InkCanvas::*)(int x, int y) const;

/// Calls `visit(pixel)` for the neighbours of (x, y) on a surface, row by row, until one gives false.
template <typename Visit> void for_each_neighbor(const InkCanvas& canvas, Surface surface, int x, int y, Visit visit) {
    const Area& inside = canvas.inside;
    const int left = std::max(x - 1, inside.left), right = std::min(x + 1, inside.right);
    const int top = std::max(y - 1, inside.top), bottom = std::min(y + 1, inside.bottom);
    for (int ny = top; ny <= bottom; ++ny) {
        const Color* const line = (canvas.*surface)(left, ny);
        for (int nx = left; nx <= right; ++nx)
            if ((nx != x || ny != y) && !visit(line[nx - left])) return;
    }
}

bool has_match_around(const InkCanvas& canvas, int x, int y, int tolerance) {
    const Color center = *canvas.before(x, y);
    bool found = false;
    for_each_neighbor(canvas, &InkCanvas::before, x, y,
                      [&](Color neighbor) { return !(found = colors_match(neighbor, center, tolerance)); });
    return found;
}

}  // namespace

// The reference is the brush colour itself. Every pixel of the row is examined, also those outside the tip.
template <> void paint_row_with<INK_CLOSE>(const InkRow& row, Color) {
    const int tolerance = strength_of(INK_CLOSE);
    const InkCanvas& canvas = *row.canvas;
    const Area& inside = canvas.inside;
    const Color reference = brush_color;
    const auto matches = [=, &canvas](int x, int y) {
        return colors_match(*canvas.before(x, y), reference, tolerance);
    };
    const bool has_rows = row.y > inside.top && row.y < inside.bottom;
    for_each_pixel(row, [=, &canvas, &inside, y = row.y](int x, int) {
        const bool across = x > inside.left && x < inside.right && matches(x - 1, y) && matches(x + 1, y);
        if (!across && !(has_rows && matches(x, y - 1) && matches(x, y + 1))) return;
        if (!matches(x, y)) *canvas.frame(x, y) = reference;
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
void neighbor_spread(ByteLine& spread, const InkCanvas& canvas, int x, int y, int count) {
    spread.fill(0);
    const Color* const center = canvas.before(x, y);
    const Area& inside = canvas.inside;
    const int first = x == inside.left ? 1 : 0;                     // of the chunk, with a neighbour at the left
    const int last = x + count > inside.right ? count - 1 : count;  // behind those with one at the right
    for (int ny = std::max(y - 1, inside.top); ny <= std::min(y + 1, inside.bottom); ++ny) {
        const Color* const line = canvas.before(x, ny);
        raise_to_difference(spread.data() + first * pixel_bytes, center + first, line + first - 1, count - first);
        raise_to_difference(spread.data(), center, line, count);
        raise_to_difference(spread.data(), center, line + 1, last);
    }
}

void hollow_chunk_of_run(const InkCanvas& canvas, const TipRun& run, int tolerance, int start, int count) {
    ByteLine spread;
    neighbor_spread(spread, canvas, run.x + start, run.y, count);
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
    for_each_run(row, [=, &canvas = *row.canvas](const TipRun& run) {
        for (int start = 0; start < run.length; start += hollow_chunk)
            hollow_chunk_of_run(canvas, run, tolerance, start, std::min(hollow_chunk, run.length - start));
    });
}

// ---- JUMBLE, SWEEP, UNZAG ------------------------------------------------------------------------------------------

// All pixels of the row are scattered, also those outside the tip, and every stamp scatters afresh.
template <> void paint_row_with<INK_JUMBLE>(const InkRow& row, Color) {
    const int reach = strength_of(INK_JUMBLE);
    for_each_pixel(row, [=, &canvas = *row.canvas, y = row.y](int x, int) {
        const int from_x = x - reach + UA_random(2 * reach);
        const int from_y = y - reach + UA_random(2 * reach);
        if (canvas.has(from_x, from_y)) *canvas.frame(x, y) = *canvas.before(from_x, from_y);
    });
}

Color mean_neighbor(const InkCanvas& canvas, int x, int y) {
    int red = 0, green = 0, blue = 0, count = 0;
    for_each_neighbor(canvas, &InkCanvas::frame, x, y, [&](Color neighbor) {
        red += red_of(neighbor), green += green_of(neighbor), blue += blue_of(neighbor), ++count;
        return true;
    });
    return count == 0 ? *canvas.frame(x, y) : pack_color(red / count, green / count, blue / count);
}

// Whether a pixel is a stray is asked of the snapshot, what takes its place of the frame: so a mean of the stroke's own
// pixels, not of other strays. With no neighbour at all the mean is the pixel itself.
template <> void paint_row_with<INK_SWEEP>(const InkRow& row, Color) {
    const int tolerance = strength_of(INK_SWEEP);
    for_each_pixel(row, [=, &canvas = *row.canvas, y = row.y](int x, int) {
        if (!has_match_around(canvas, x, y, tolerance)) *canvas.frame(x, y) = mean_neighbor(canvas, x, y);
    });
}

// A corner of a step is softened: where the neighbours on three sides of it agree and it stands out from them, it moves
// toward their colour.
template <> void paint_row_with<INK_UNZAG>(const InkRow& row, Color) {
    const int alpha = strength_of(INK_UNZAG);
    constexpr int agree_tolerance = 6, stand_out_tolerance = 20;
    constexpr std::array<Point, 4> diagonals{{{-1, -1}, {1, -1}, {-1, 1}, {1, 1}}};
    for_each_pixel(row, [=, &canvas = *row.canvas, y = row.y](int x, int) {
        const Color center = *canvas.before(x, y);
        for (const auto& [dx, dy] : diagonals) {
            if (!canvas.has(x + dx, y + dy)) continue;
            const Color beside = *canvas.before(x + dx, y);
            if (!colors_match(beside, *canvas.before(x + dx, y + dy), agree_tolerance) ||
                !colors_match(beside, *canvas.before(x, y + dy), agree_tolerance) ||
                colors_match(beside, center, stand_out_tolerance))
                continue;
            *canvas.frame(x, y) = blend_color(center, beside, alpha);
            return;
        }
    });
}

}  // namespace nubo
