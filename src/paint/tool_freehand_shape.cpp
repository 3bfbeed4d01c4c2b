// FSHAPE: the way of the hand while the button is held, closed and painted when it rises.
#include "gui/waiting.h"
#include "paint/shape_in_hand.h"
#include "paint/tool_table.h"
#include "state/flow.h"
#include "state/mouse.h"
#include "state/view.h"
#include "view/view.h"
#include <cstdlib>

namespace nubo {
namespace {

/// False when the user leaves without painting.
bool follow_hand() {
    Escape escape;
    add_freehand_point({pixel_x, pixel_y});
    while (mouse_left != 0) {
        update_screen(UPDATE_NORMAL);
        if (escape.asked()) return false;
        if (point_list.size() >= freehand_points_max) {
            say_shape_is_full();
            return true;
        }
        view_update_pixel();
        add_freehand_point({pixel_x, pixel_y});
    }
    return true;
}

}  // namespace

void run_freehand_shape_tool(BrushTool tool) {
    ShapeInHand shape(tool, freehand_capacity);
    if (!follow_hand()) return;
    point_list.push_back(point_list.front());
    shape.commit();
}

void draw_freehand_shape_preview() {
    preview_points(shown_corner());
    Point low = shown_mouse(), high = low;
    for (const Point& point : point_list) {
        low = {std::min(low.x, point.x), std::min(low.y, point.y)};
        high = {std::max(high.x, point.x), std::max(high.y, point.y)};
    }
    tell_size(high.x - low.x + 1, high.y - low.y + 1);
}

}  // namespace nubo
