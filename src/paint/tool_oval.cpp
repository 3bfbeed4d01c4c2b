// OVAL: two clicks for length and middle, then the mouse for width and direction at once.
#include "base/geometry.h"
#include "base/keys.h"
#include "gui/waiting.h"
#include "gui/window.h"
#include "paint/shape_generators.h"
#include "paint/shape_in_hand.h"
#include "paint/shape_lines.h"
#include "paint/tool_table.h"
#include "paint/tools.h"
#include "state/flow.h"
#include "state/view.h"

namespace nubo {
namespace {

struct Oval {
    Point center;
    int a = 0, b = 0, rotation = 0;  // half-axes, degrees
    bool operator==(const Oval&) const = default;
};
constinit Oval oval;            // that of `point_list`
constinit bool is_set = false;  // it no longer follows the mouse

/// With the mouse on the centre, where it has no direction, the last one stays.
int rotation_toward(Point center, Point mouse) {
    constexpr int full_circle = 360, step = 15;
    if (center == mouse) return oval.rotation;
    const int rotation = nearest_pixel(full_circle - UA_angle_degrees(center.x, center.y, mouse.x, mouse.y));
    return shift_is_down() ? (rotation + step / 2) / step * step : rotation;
}

void plot_oval(Point mouse) {
    constexpr int steps = 360;
    const Point first = click_points[0], last = click_points[1];
    const Point center{(first.x + last.x) / 2, (first.y + last.y) / 2};
    const Oval next{center, UA_distance_2d(first.x, first.y, last.x, last.y) / 2,
                    UA_distance_2d(center.x, center.y, mouse.x, mouse.y), rotation_toward(center, mouse)};
    if (next == oval && !point_list.empty()) return;
    oval = next;
    interpolate_ellipse(oval.center.x, oval.center.y, oval.a, oval.b, oval.rotation, steps);
}

bool place_length() {
    const ShapeInHand line(TOOL_LINE);
    click_points[0] = {pixel_x, pixel_y};
    click_points[1] = {-1, -1};
    bool shift = false;
    if (!wait_for_point(1, shift)) return false;
    click_points[1] = line_end(click_points[0], click_points[1], shift);
    return true;
}

/// False when the user leaves without painting. A right press hides the menu, so that the Frame can be seen.
bool place_width() {
    Waiting wait({.hotkeys = HOTKEYS_TOOL});
    oval = {};
    is_set = false;
    for (;;) {
        check_hotkeys(HOTKEYS_MODAL);
        const HandStep hand = wait.pass();
        if (hand == HAND_RIGHT) toggle_window();
        if (hand == HAND_ESCAPES) return false;
        if (hand != HAND_LEFT) continue;
        plot_oval(wait.point());
        is_set = true;
        return true;
    }
}

}  // namespace

void run_oval_tool(BrushTool tool) {
    if (!place_length()) return;
    ShapeInHand shape(tool);
    if (!place_width()) return;
    shape.hide();
    if (tool_option(TOOL_OVAL, OPTION_FILLED) != 0)
        fill_outline(brush_color);
    else
        commit_outline(brush_color);
}

void draw_oval_preview() {
    if (!is_set) plot_oval(shown_mouse());
    preview_points(shown_corner());
    tell_placing("AXES > |c24%d X %d, %d", 2 * oval.a, 2 * oval.b, oval.rotation);
}

}  // namespace nubo
