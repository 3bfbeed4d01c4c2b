// BOX, CIRCLE and LINE: the shapes between two clicks, and the disc that DRIZ. paints too.
#include "base/geometry.h"
#include "gui/presses.h"
#include "paint/stroke.h"
#include "paint/tool_cases.h"
#include "paint/tools.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "state/stroke.h"
#include "state/view.h"
#include <algorithm>
#include <vector>

namespace nubo {
namespace {

// ---- The two clicks
// --------------------------------------------------------------------------------------------------

/// Shows the distance from a point while a tool runs, if the user wants that and does not measure already.
class ToolDistance {
public:
    explicit ToolDistance(Point anchor) : shown_(opt_tool_distance != 0 && measure_state == 0) {
        if (shown_) set_anchor(anchor);
    }
    ~ToolDistance() {
        if (shown_) set_anchor({-1, -1});
    }
    ToolDistance(const ToolDistance&) = delete;
    ToolDistance& operator=(const ToolDistance&) = delete;

private:
    static void set_anchor(Point anchor) {
        measure_x = anchor.x;
        measure_y = anchor.y;
    }
    bool shown_;
};

/// The first click and the mouse, on `overlay`.
struct PreviewEnds {
    Point from, mouse;
};
PreviewEnds preview_ends() {
    return {{click_points[0].x - shown.pan_x, click_points[0].y - shown.pan_y},
            {shown.pixel_x - shown.pan_x, shown.pixel_y - shown.pan_y}};
}

// ---- Painting
// --------------------------------------------------------------------------------------------------------

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

void run_two_click_tool(BrushTool tool) {
    click_points[0] = {pixel_x, pixel_y};
    bool placed = false;
    {
        const ToolDistance distance(click_points[0]);
        wait_while_down(mouse_left);
        tool_preview = tool;
        tool_preview_on = 1;
        placed = wait_for_point(1);
        tool_preview = -1;
        tool_preview_on = 0;
    }
    if (!placed) return;
    click_points[1] = {pixel_x, pixel_y};
    draw_to_frame(0, 0, tool, active_ink(), brush_tip);
}

void draw_box_preview() {
    const auto [from, mouse] = preview_ends();
    preview_rect(overlay, from.x, from.y, mouse.x, mouse.y);
}

void draw_circle_preview() {
    const auto [from, mouse] = preview_ends();
    preview_circle(overlay, from.x, from.y, mouse.x, mouse.y);
}

void draw_line_preview() {
    const auto [from, mouse] = preview_ends();
    preview_line(overlay, from.x, from.y, mouse.x, mouse.y);
}

void fill_disc(int center_x, int center_y, int radius) {
    disc = {center_y - radius, active_ink(), std::vector<int>(static_cast<unsigned>(2 * radius + 1), row_unset)};
    click_points[0] = {center_x, center_y};
    do_circle(current_frame, center_x, center_y, radius, static_cast<int>(brush_color), disc_span_callback);
    disc = {};
}

void commit_box(const StrokeStart& start) {
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
        stamp_row(left, right, y, start.ink);
        refresh_stroke();
    }
}

void commit_circle(const StrokeStart&) {
    const Point center = click_points[0], rim = click_points[1];
    const int radius = UA_distance_2d(center.x, center.y, rim.x, rim.y);
    if (tool_option(TOOL_CIRCLE, OPTION_FILLED) != 0)
        fill_disc(center.x, center.y, radius);
    else
        do_circle(current_frame, center.x, center.y, radius, static_cast<int>(brush_color), stamp_callback);
}

void commit_line(const StrokeStart&) {
    stamp_line(click_points[0].x, click_points[0].y, click_points[1].x, click_points[1].y);
}

}  // namespace nubo
