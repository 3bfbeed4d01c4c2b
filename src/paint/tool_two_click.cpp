// BOX, CIRCLE and LINE: the shapes between two clicks, and the disc that DRIZ. paints too.
#include "base/geometry.h"
#include "base/keys.h"
#include "gui/presses.h"
#include "paint/images.h"
#include "paint/shape_in_hand.h"
#include "paint/snap.h"
#include "paint/stroke.h"
#include "paint/tool_distance.h"
#include "paint/tool_preview.h"
#include "paint/tool_table.h"
#include "paint/tools.h"
#include "state/frames.h"
#include "state/mouse.h"
#include "state/options.h"
#include "state/run.h"
#include "state/stroke.h"
#include "state/tools.h"
#include "state/view.h"
#include <algorithm>
#include <cstdlib>
#include <vector>

namespace nubo {
namespace {

// ---- The two clicks -------------------------------------------------------------------------------------------------

/// Where the shape ends with the mouse on `mouse`: with SHIFT a line keeps to whole 15 degrees, a box is a square, and
/// a circle reaches the row or the column of the mouse, whichever is further away.
Point end_point(BrushTool tool, Point mouse, bool shift) {
    const Point from = click_points[0];
    if (tool == TOOL_LINE) return line_end(from, mouse, shift);
    if (!shift) return mouse;
    const Point corner = square_end(from, mouse);
    return tool == TOOL_CIRCLE ? Point{corner.x, from.y} : corner;
}

/// The ends of the shape in the picture being drawn, in Frame pixels and on `overlay`.
struct PreviewEnds {
    Point from, to, on_overlay, to_on_overlay;
};
PreviewEnds preview_ends(BrushTool tool) {
    const Point from = click_points[0], to = end_point(tool, shown_mouse(), shift_is_down()), corner = shown_corner();
    return {from, to, {from.x - corner.x, from.y - corner.y}, {to.x - corner.x, to.y - corner.y}};
}

// ---- Painting -------------------------------------------------------------------------------------------------------

void stamp_line(int x1, int y1, int x2, int y2, Color color) {
    do_line(current_frame, x1, y1, x2, y2, static_cast<int>(color), stamp_callback);
}

/// The running disc, for Allegro's callback. `left` holds, for each row from `top` on, the leftmost column painted.
struct Disc {
    int top = 0, ink = 0;
    std::vector<int> left;
    Area window;
};
Disc disc;

/// One point of the circle's rim. Only those of the left half paint: the first of a row the whole span to the opposite
/// rim, later ones, each a step further out, the two ends. `d` is the colour.
void disc_span_callback(BITMAP*, int x, int y, int d) {
    const auto color = static_cast<Color>(d);
    const int center_x = click_points[0].x;
    if (y < disc.window.top || y > disc.window.bottom || x > center_x) return;
    const int right = x + 2 * (center_x - x);
    int& left = disc.left[static_cast<unsigned>(y - disc.top)];
    if (left == no_coordinate) {
        stamp_row(x, right, y, disc.ink, color);
        left = x;
    } else if (x < left) {
        stamp_row(x, x, y, disc.ink, color);
        stamp_row(right, right, y, disc.ink, color);
        left = x;
    }
    refresh_stroke();
}

}  // namespace

void run_two_click_tool(BrushTool tool) {
    click_points[0] = {pixel_x, pixel_y};
    bool placed = false, shift = false;
    {
        const ToolDistance distance(click_points[0]);
        wait_while_down(mouse_left);
        const ToolPreview preview(tool);
        placed = wait_for_point(1, shift);
    }
    if (!placed) return;
    click_points[1] = end_point(tool, {pixel_x, pixel_y}, shift);
    if (tool == TOOL_BOX) snap_corners(click_points[0], click_points[1]);
    draw_to_frame(0, 0, tool, active_ink(), brush_tip, brush_color);
}

void draw_box_preview() {
    auto [from, to, a, b] = preview_ends(TOOL_BOX);
    snap_corners(from, to);
    const Point corner = shown_corner();
    a = {from.x - corner.x, from.y - corner.y};
    b = {to.x - corner.x, to.y - corner.y};
    preview_rect(overlay, a.x, a.y, b.x, b.y);
    tell_size(std::abs(to.x - from.x) + 1, std::abs(to.y - from.y) + 1);
}

void draw_circle_preview() {
    const auto [from, to, a, b] = preview_ends(TOOL_CIRCLE);
    preview_circle(overlay, a.x, a.y, b.x, b.y);
    tell_placing("RADIUS > |c24%d", UA_distance_2d(from.x, from.y, to.x, to.y), 0);
}

void draw_line_preview() {
    const auto [from, to, a, b] = preview_ends(TOOL_LINE);
    preview_line(overlay, a.x, a.y, b.x, b.y);
    tell_line(from, to);
}

void fill_disc(int center_x, int center_y, int radius, Color color) {
    disc = {center_y - radius, active_ink(), std::vector<int>(static_cast<unsigned>(2 * radius + 1), no_coordinate),
            paint_window()};
    click_points[0] = {center_x, center_y};
    do_circle(current_frame, center_x, center_y, radius, static_cast<int>(color), disc_span_callback);
    disc = {};
}

void commit_box(const StrokeStart& start) {
    const Point a = click_points[0], b = click_points[1];
    const auto [left, right] = std::minmax(a.x, b.x);
    const auto [top, bottom] = std::minmax(a.y, b.y);
    if (tool_option(TOOL_BOX, OPTION_FILLED) == 0) {
        stamp_line(left, top, right, top, start.color);
        stamp_line(left, bottom, right, bottom, start.color);
        stamp_line(left, top, left, bottom, start.color);
        stamp_line(right, top, right, bottom, start.color);
        return;
    }
    const Area window = paint_window();
    for (int y = std::max(top, window.top); y <= std::min(bottom, window.bottom); ++y) {
        stamp_row(left, right, y, start.ink, start.color);
        refresh_stroke();
    }
}

void commit_circle(const StrokeStart& start) {
    const Point center = click_points[0], rim = click_points[1];
    const int radius = UA_distance_2d(center.x, center.y, rim.x, rim.y);
    if (tool_option(TOOL_CIRCLE, OPTION_FILLED) != 0)
        fill_disc(center.x, center.y, radius, start.color);
    else
        do_circle(current_frame, center.x, center.y, radius, static_cast<int>(start.color), stamp_callback);
}

void commit_line(const StrokeStart& start) {
    stamp_line(click_points[0].x, click_points[0].y, click_points[1].x, click_points[1].y, start.color);
}

}  // namespace nubo
