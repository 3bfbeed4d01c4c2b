#pragma once
// Lines of shapes whose points may lie anywhere: the pixels of Allegro's `do_line`, in its order, but only those inside
// an area.
#include "paint/area.h"
#include "state/stroke.h"
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace nubo {

// ---- Points far away -----------------------------------------------------------------------------------------------

/// Coordinates are held here: formulas reach beyond any integer, while a line between two such points still fits into
/// the arithmetic below. The largest spiral stays within.
inline constexpr int far_pixel = 1 << 28;

/// A coordinate as a pixel, truncated, or with halves away from 0. What is no number lies far away.
inline int pixel_of(double value) { return static_cast<int>(std::fmin(std::fmax(value, -far_pixel), far_pixel)); }
inline int nearest_pixel(double value) { return pixel_of(std::round(value)); }

// ---- Lines ---------------------------------------------------------------------------------------------------------

/// The steps of a line, first to last, that lie in a bitmap; none when `last` is below `first`.
struct LineSteps {
    std::int64_t first, last;
};

/// The steps 0 to `length` at which `start`, going by `direction` at each, lies in `first` to `last`.
inline LineSteps steps_inside(int start, int direction, std::int64_t length, int first, int last) {
    const std::int64_t begin = direction > 0 ? std::int64_t{first} - start : std::int64_t{start} - last;
    return {std::max<std::int64_t>(begin, 0), std::min<std::int64_t>(begin + last - first, length)};
}

/// Calls `visit(x, y)` for each pixel of the line that lies in `clip`. The direction matters: a pixel halfway between
/// two rows goes away from `from`. Points lie within `far_pixel`.
template <typename Visit> void walk_line(Point from, Point to, const Area& clip, Visit visit) {
    const int dx = to.x - from.x, dy = to.y - from.y;
    const bool level = std::abs(dx) >= std::abs(dy);
    const std::int64_t length = level ? std::abs(dx) : std::abs(dy), rise = level ? std::abs(dy) : std::abs(dx);
    const int step_x = dx >= 0 ? 1 : -1, step_y = dy >= 0 ? 1 : -1;
    const LineSteps in_columns = steps_inside(from.x, step_x, level ? length : rise, clip.left, clip.right);
    const LineSteps in_rows = steps_inside(from.y, step_y, level ? rise : length, clip.top, clip.bottom);
    LineSteps along = level ? in_columns : in_rows;
    const LineSteps across = level ? in_rows : in_columns;
    if (across.first > across.last) return;
    // At step n the line has risen by (2 * rise * n + length) / (2 * length).
    const auto first_step_at = [&](std::int64_t risen) {
        return risen <= 0 ? 0 : ((2 * risen - 1) * length + 2 * rise - 1) / (2 * rise);
    };
    along.first = std::max(along.first, first_step_at(across.first));
    if (across.last < rise) along.last = std::min(along.last, first_step_at(across.last + 1) - 1);
    if (along.first > along.last) return;
    const std::int64_t risen = length == 0 ? 0 : (2 * rise * along.first + length) / (2 * length);
    std::int64_t error = 2 * rise * (along.first + 1) - length - 2 * length * risen;
    int x = from.x + step_x * static_cast<int>(level ? along.first : risen);
    int y = from.y + step_y * static_cast<int>(level ? risen : along.first);
    for (std::int64_t n = along.first; n <= along.last; ++n) {
        visit(x, y);
        const bool rises = error >= 0;
        error += 2 * rise - (rises ? 2 * length : 0);
        if (level || rises) x += step_x;
        if (!level || rises) y += step_y;
    }
}

}  // namespace nubo
