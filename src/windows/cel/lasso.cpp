#include "windows/cel/lasso.h"

#include "gui/presses.h"
#include "paint/shape_in_hand.h"
#include "paint/snap.h"
#include "state/mouse.h"
#include "state/view.h"
#include "view/view.h"
#include "workspace/notices.h"
#include <allegro.h>
#include <utility>

namespace nubo {
namespace {

enum LassoStep { CORNER_IS_SET, WAY_IS_CLOSED, USER_LEAVES };

Point mouse_pixel() {
    view_update_pixel();
    return {pixel_x, pixel_y};
}

/// From a press to its release. What a press in place has drawn is one corner.
LassoStep follow_press(Waiting& wait) {
    const std::size_t drawn_before = point_list.size();
    const Point press = mouse_pixel();
    bool is_drawn = false, is_full = false;
    HandStep hand = HAND_LEFT;
    set_told_text("THE RELEASE CLOSES IT. IN PLACE IT SETS A CORNER");
    add_freehand_point(press);
    while (hand == HAND_LEFT && !is_full) {
        hand = wait.held_pass();
        is_drawn = is_drawn || hand_has_moved();
        add_freehand_point(mouse_pixel());
        is_full = point_list.size() >= freehand_points_max;
    }
    if (hand == HAND_ESCAPES) return USER_LEAVES;
    if (is_full) say_shape_is_full();
    if (is_drawn || is_full) return WAY_IS_CLOSED;
    point_list.resize(drawn_before);
    point_list.push_back(snapped_corner(press));
    return CORNER_IS_SET;
}

/// What the hand does after a corner.
LassoStep follow_next(Waiting& wait) {
    KeyPress takes_back(KEY_BACKSPACE), closes(KEY_ENTER), closes_too(KEY_ENTER_PAD);
    for (;;) {
        set_told_text("RIGHT CLICK CLOSES. BACKSPACE TAKES ONE BACK");
        switch (wait.pass()) {
        case HAND_LEFT: return follow_press(wait);
        case HAND_RIGHT: return WAY_IS_CLOSED;
        case HAND_ESCAPES: return USER_LEAVES;
        case HAND_RESTS: break;
        }
        if (closes.happens() || closes_too.happens()) return WAY_IS_CLOSED;
        if (!takes_back.happens()) continue;
        point_list.pop_back();
        if (point_list.empty()) return USER_LEAVES;
    }
}

}  // namespace

std::vector<Point> follow_lasso(Waiting& wait) {
    point_list.clear();
    LassoStep step = follow_press(wait);
    while (step == CORNER_IS_SET) step = follow_next(wait);
    std::vector<Point> way = std::exchange(point_list, {});
    if (step == USER_LEAVES) return {};
    way.push_back(way.front());
    return way;
}

void draw_lasso() {
    if (point_list.empty()) return;
    preview_points(shown_corner());
    preview_edge(point_list.back(), shown_mouse(), shown_corner());
}

}  // namespace nubo
