// BOX, CIRCLE and LINE: the shapes between two points, and the disc that DRIZ. paints too.
#include "base/geometry.h"
#include "paint/stroke.h"
#include "paint/tool_commits.h"
#include "state/frames.h"
#include "state/stroke.h"
#include <algorithm>
#include <vector>

namespace nubo {
namespace {

void stamp_line(int x1, int y1, int x2, int y2) {
    do_line(current_frame, x1, y1, x2, y2, static_cast<int>(brush_color), stamp_callback);
}

/// The running disc, for Allegro's callback. `left` holds, for each row from `top` on, the leftmost column painted.
struct Disc {
    int top = 0, ink = 0;
    std::vector<int> left;
};
constexpr int row_unset = -1;
Disc disc;

/// One point of the circle's rim. Only those of the left half paint: the first of a row the whole span to the opposite
/// rim, later ones, each a step further out, the two ends.
void disc_span_callback(BITMAP* bitmap, int x, int y, int) {
    const int center_x = click_points[0].x;
    if (y < 0 || y >= bitmap->h || x > center_x) return;
    const int right = x + 2 * (center_x - x);
    int& left = disc.left[static_cast<unsigned>(y - disc.top)];
    if (left == row_unset) {
        stamp_row(x, right, y, disc.ink);
        left = x;
    } else if (x < left) {
        stamp_row(x, x, y, disc.ink);
        stamp_row(right, right, y, disc.ink);
        left = x;
    }
    refresh_stroke();
}

}  // namespace

void fill_disc(int center_x, int center_y, int radius) {
    disc = {center_y - radius, active_ink(), std::vector<int>(static_cast<unsigned>(2 * radius + 1), row_unset)};
    click_points[0] = {center_x, center_y};
    do_circle(current_frame, center_x, center_y, radius, static_cast<int>(brush_color), disc_span_callback);
    disc = {};
}

void commit_box(int ink) {
    const Point a = click_points[0], b = click_points[1];
    const auto [left, right] = std::minmax(a.x, b.x);
    const auto [top, bottom] = std::minmax(a.y, b.y);
    if (tool_option(TOOL_BOX, OPTION_FILLED) == 0) {
        stamp_line(left, top, right, top);
        stamp_line(left, bottom, right, bottom);
        stamp_line(left, top, left, bottom);
        stamp_line(right, top, right, bottom);
        return;
    }
    for (int y = std::max(top, 0); y <= std::min(bottom, current_frame->h - 1); ++y) {
        stamp_row(left, right, y, ink);
        refresh_stroke();
    }
}

void commit_circle() {
    const Point center = click_points[0], rim = click_points[1];
    const int radius = UA_distance_2d(center.x, center.y, rim.x, rim.y);
    if (tool_option(TOOL_CIRCLE, OPTION_FILLED) != 0)
        fill_disc(center.x, center.y, radius);
    else
        do_circle(current_frame, center.x, center.y, radius, static_cast<int>(brush_color), stamp_callback);
}

void commit_line() { stamp_line(click_points[0].x, click_points[0].y, click_points[1].x, click_points[1].y); }

}  // namespace nubo
