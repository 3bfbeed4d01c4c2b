// EDGE and SEP.: over the whole Frame, by the colour under the click.
#include "paint/tool_colors.h"
#include "paint/images.h"

#include "paint/stroke.h"
#include "paint/surfaces.h"
#include "paint/tool_table.h"
#include "state/stroke.h"

namespace nubo {
namespace {

Color color_at(const StrokeStart& start) {
    const Point place = real_pixel({start.x, start.y});
    return *pixels_at(current_frame, place.x, place.y);
}

/// How many of the four neighbours in the Frame lie beyond the range.
int count_outer_neighbors(int x, int y, const ColorRange& range) {
    BITMAP* const before = stroke_snapshot();
    int outer = 0;
    constexpr std::array<Point, 4> steps{{{0, -1}, {1, 0}, {0, 1}, {-1, 0}}};
    for (const Point step : steps)
        if (const Point at = real_pixel({x + step.x, y + step.y});
            frame_contains(before, at.x, at.y) && !range.reaches(*pixels_at(before, at.x, at.y)))
            ++outer;
    return outer;
}

}  // namespace

void commit_edge(const StrokeStart& start) {
    const ColorRange range(color_at(start), tool_option(TOOL_EDGE, OPTION_TOLERANCE));
    for (int row = 0; row < current_frame->h; ++row)
        for (int column = 0; column < current_frame->w; ++column) {
            if (!range.holds(*pixels_at(stroke_snapshot(), column, row))) continue;
            // Once for each: inks with random draws take as many.
            for (int outer = count_outer_neighbors(column, row, range); outer > 0; --outer) {
                stamp_tip(column, row, TOOL_EDGE, start.ink, tip_single, start.color);
                refresh_stroke();
            }
        }
}

void commit_sep(const StrokeStart& start) {
    const ColorRange range(color_at(start), tool_option(TOOL_SEP, OPTION_TOLERANCE));
    const int width = current_frame->w;
    for (int row = 0; row < current_frame->h; ++row) {
        const Color* const before = pixels_at(stroke_snapshot(), 0, row);
        for (int column = 0; column < width; ++column) {
            const int first = column;
            while (column < width && range.holds(before[column])) ++column;
            if (column == first) continue;
            stamp_row(first, column - 1, row, start.ink, start.color);
            refresh_stroke();
        }
    }
}

}  // namespace nubo
