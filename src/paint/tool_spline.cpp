// SPLINE: a click for each node, or on a node to move it, until a right press paints the curve through them.
#include "base/geometry.h"
#include "base/log.h"
#include "gui/waiting.h"
#include "paint/shape_generators.h"
#include "paint/shape_in_hand.h"
#include "paint/shape_spline.h"
#include "paint/tool_preview.h"
#include "paint/tool_table.h"
#include "state/flow.h"
#include "state/run.h"
#include "state/view.h"
#include <allegro.h>

namespace nubo {
namespace {

constexpr Point unset{-1, -1};

/// What the curve depends on.
struct Curve {
    std::array<Point, click_slots> nodes;
    int count, closed, curve;
    bool operator==(const Curve&) const = default;
};
constinit Remembered<Curve> built;
constexpr int no_slot = 0;
constinit int moving_slot = no_slot;  // the node that follows the mouse

Point& node(int slot) { return click_points[at(slot)]; }
int next_slot() { return point_count - 1; }

void build_curve() {
    const Curve now{click_points, point_count, tool_option(TOOL_SPLINE, OPTION_CLOSED),
                    tool_option(TOOL_SPLINE, OPTION_CURVE)};
    if (!built.changes_to(now)) return;
    close_spline(next_slot());
    build_spline();
}

void add_node(Point place) {
    if (next_slot() > spline_nodes_max) {
        say_shape_is_full();
        return;
    }
    node(next_slot()) = place;
    ++point_count;
}

void take_back_node() {
    if (point_count <= 3) return;  // the first one stays
    --point_count;
    node(next_slot()) = unset;
}

/// The node follows the mouse until the next press; a right press or ESC puts it back.
void reposition_spline_node(int slot, Waiting& wait) {
    if (slot >= click_slots) {
        UA_log("[ ERROR ] : Slot OOB in call to reposition_spline_node! Slot = %d", slot);
        return;
    }
    const Point before = node(slot);
    moving_slot = slot;
    HandStep hand = HAND_RESTS;
    while (hand == HAND_RESTS) hand = wait.pass();
    moving_slot = no_slot;
    node(slot) = hand == HAND_LEFT ? wait.point() : before;
}

/// A press near nodes moves each of them, one after the other; elsewhere it makes a new one.
void serve_press(Waiting& wait) {
    constexpr int near = 9;
    const Point press = wait.point();
    bool moved = false;
    for (int slot = 1; slot < next_slot(); ++slot) {
        if (UA_distance_2d(node(slot).x, node(slot).y, press.x, press.y) >= near) continue;
        reposition_spline_node(slot, wait);
        moved = true;
    }
    if (!moved) add_node(press);
}

/// False when the user leaves without painting.
bool place_nodes() {
    Waiting wait({.hotkeys = HOTKEYS_TOOL});
    KeyPress takes_back(KEY_BACKSPACE);
    for (;;) {
        check_hotkeys(HOTKEYS_MODAL);
        const HandStep hand = wait.pass();
        if (hand == HAND_LEFT) serve_press(wait);
        if (hand == HAND_RIGHT || hand == HAND_ESCAPES) return hand == HAND_RIGHT;
        if (takes_back.happens()) take_back_node();
    }
}

void free_unexpected_list() {
    if (point_list.capacity() == 0) return;
    UA_log("[ WARNING ] : pointer expected to be NULL in spline_tool(). I don't like surprises.");
    free_point_list();
}

}  // namespace

void run_spline_tool(BrushTool tool) {
    free_unexpected_list();
    click_points.fill(unset);
    click_points[0] = click_points[1] = {pixel_x, pixel_y};
    point_count = 3;
    built.forget();
    ShapeInHand shape(tool);
    if (!place_nodes()) return;
    build_curve();
    shape.commit();
}

void draw_spline_preview() {
    constexpr int radius = 8;
    const Point corner = shown_corner();
    if (moving_slot != no_slot) node(moving_slot) = shown_mouse();
    for (int slot = 1; slot < next_slot(); ++slot) {
        const Point center{node(slot).x - corner.x, node(slot).y - corner.y};
        preview_circle(overlay, center.x, center.y, center.x + radius, center.y);
    }
    if (point_count > 3) {
        build_curve();
        preview_points(corner);
    }
    tell_placing("NODES > |c24%d", next_slot() - 1, 0);
}

}  // namespace nubo
