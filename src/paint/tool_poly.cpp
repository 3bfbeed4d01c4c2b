// POLY: a corner for each press, until a right press closes the polygon.
#include "gui/waiting.h"
#include "paint/shape_in_hand.h"
#include "paint/tool_table.h"
#include "state/flow.h"
#include "state/view.h"
#include <allegro.h>

namespace nubo {
namespace {

void add_corner(Point corner) {
    if (point_list.size() + 1 < list_capacity)  // one is kept for the closing point
        point_list.push_back(corner);
    else
        say_shape_is_full();
}

/// False when the user leaves without painting.
bool place_corners() {
    Waiting wait({.hotkeys = HOTKEYS_TOOL});
    KeyPress takes_back(KEY_BACKSPACE);
    for (;;) {
        check_hotkeys(HOTKEYS_MODAL);
        const HandStep hand = wait.pass();
        if (hand == HAND_LEFT) add_corner(line_end(point_list.back(), wait.point(), wait.shift()));
        if (hand == HAND_RIGHT || hand == HAND_ESCAPES) return hand == HAND_RIGHT;
        if (takes_back.happens() && point_list.size() > 1) point_list.pop_back();
    }
}

}  // namespace

void run_poly_tool(BrushTool tool) {
    ShapeInHand shape(tool, list_capacity);
    point_list.push_back({pixel_x, pixel_y});
    if (!place_corners()) return;
    point_list.push_back(point_list.front());
    shape.commit();
}

void draw_poly_preview() {
    if (point_list.empty()) return;
    const Point last = point_list.back(), end = line_end(last, shown_mouse());
    preview_points(shown_corner());
    preview_edge(last, end, shown_corner());
    tell_line(last, end);
}

}  // namespace nubo
