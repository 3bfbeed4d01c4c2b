// The inks that weigh all neighbours of a pixel: EMBOSS, SOFTEN. Sums run in double, row by row from the top.
#include "paint/ink_rows.h"

#include <array>

namespace nubo {
namespace {

constexpr int chunk_pixels = 64;  // pixels worked out in one go
constexpr int component_count = 3;

/// Three lines of one component around a stretch of pixels, one column more at either end.
using Lines = std::array<std::array<double, chunk_pixels + 2>, 3>;
using Component = std::array<int, chunk_pixels>;

int component_of(Color color, int component) { return static_cast<int>(color >> (8 * component) & 0xff); }

/// One component of the snapshot around `count` pixels from (x, y) on, times `factor`. What lies outside the frame is
/// 0 and so adds nothing to a sum.
void fill_lines(Lines& lines, const InkCanvas& canvas, int x, int y, int count, int component, double factor) {
    const int first = x == canvas.inside.left ? 1 : 0, last = x + count > canvas.inside.right ? count + 1 : count + 2;
    for (int row = 0; row < 3; ++row) {
        double* const line = lines[static_cast<std::size_t>(row)].data();
        const int ny = y + row - 1;
        if (ny < canvas.inside.top || ny > canvas.inside.bottom) {
            std::fill_n(line, count + 2, 0.0);
            continue;
        }
        line[0] = line[count + 1] = 0;
        const Color* const source = canvas.before(x, ny) - 1;
        for (int i = first; i < last; ++i) line[i] = factor * component_of(source[i], component);
    }
}

/// Calls `visit(first, count)` for the stretches of the run that are covered by less than its tip coverage, none longer
/// than a chunk, and covers them.
template <typename Visit> void for_each_fresh_chunk(const TipRun& run, Visit visit) {
    const int coverage = run.tip_coverage();
    const auto is_fresh = [&](int i) { return static_cast<int>(run.mask[i]) < coverage; };
    for (int first = 0; first < run.length;) {
        int end = first;
        while (end < run.length && end - first < chunk_pixels && is_fresh(end)) ++end;
        if (end == first) {
            ++first;
            continue;
        }
        std::fill(run.mask + first, run.mask + end, static_cast<Color>(coverage));
        visit(first, end - first);
        first = end;
    }
}

/// Paints the fresh pixels of the row: `weigh(result, lines, centre pixels, component, count, factor)` gives one
/// component of a chunk from the lines around it, which are scaled by the strength's factor.
template <typename Weigh> void weigh_row(const InkRow& row, int strength, Weigh weigh) {
    for_each_run(row, [=, &canvas = *row.canvas](const TipRun& run) {
        const double factor = strength_factor(strength, run.tip);
        for_each_fresh_chunk(run, [&](int first, int count) {
            Lines lines;
            std::array<Component, component_count> result;
            for (int component = 0; component < component_count; ++component) {
                fill_lines(lines, canvas, run.x + first, run.y, count, component, factor);
                weigh(result[static_cast<std::size_t>(component)], lines, run.before + first, component, count, factor);
            }
            for (int i = 0; i < count; ++i) {
                const auto at = static_cast<std::size_t>(i);
                run.frame[first + i] = pack_color(result[2][at], result[1][at], result[0][at]);
            }
        });
    });
}

}  // namespace

// The weights fall from the lower right to the upper left: -2 -1 0, -1 . 1, 0 1 2. The centre counts once, unscaled.
template <> void paint_row_with<INK_EMBOSS>(const InkRow& row, Color) {
    weigh_row(row, strength_of(INK_EMBOSS),
              [](Component& result, const Lines& lines, const Color* center, int component, int count, double) {
                  const double *const up = lines[0].data(), *const at = lines[1].data(), *const down = lines[2].data();
                  for (int i = 0; i < count; ++i) {
                      double sum = -2 * up[i] - up[i + 1];
                      sum = sum - at[i] + component_of(center[i], component) + at[i + 2];
                      sum = sum + down[i + 1] + 2 * down[i + 2];
                      result[static_cast<std::size_t>(i)] = clamp_component(sum);
                  }
              });
}

// The divisor stays 8 at the frame's edges: the missing neighbours count as black.
template <> void paint_row_with<INK_SOFTEN>(const InkRow& row, Color) {
    weigh_row(row, strength_of(INK_SOFTEN),
              [](Component& result, const Lines& lines, const Color* center, int component, int count, double factor) {
                  const double *const up = lines[0].data(), *const at = lines[1].data(), *const down = lines[2].data();
                  const double kept = 1 - factor;
                  for (int i = 0; i < count; ++i) {
                      double sum = up[i] + up[i + 1] + up[i + 2] + at[i];
                      sum = sum + at[i + 2] + down[i] + down[i + 1] + down[i + 2];
                      result[static_cast<std::size_t>(i)] =
                          clamp_component(kept * component_of(center[i], component) + sum * 0.125);
                  }
              });
}

}  // namespace nubo
