#include "windows/cel/corners.h"

#include "base/keys.h"
#include "gui/mouse_text.h"
#include "gui/waiting.h"
#include "paint/shape_in_hand.h"
#include "paint/snap.h"
#include "paint/tool_distance.h"
#include "paint/tool_preview.h"
#include "state/flow.h"
#include "state/overlay.h"
#include "state/run.h"
#include "state/shown.h"
#include "state/view.h"
#include "view/view.h"
#include "windows/kit/over_frame.h"
#include <cstdio>

namespace nubo {
namespace {

void draw_cross(Point mouse) {
    preview_line(overlay, 0, mouse.y, view_w - 1, mouse.y);
    preview_line(overlay, mouse.x, 0, mouse.x, view_h - 1);
}

/// The area between the first corner and a second one at `to`, a square if that is asked for.
Area area_to(Point first, Point to, bool is_square) {
    if (is_square) to = square_end(first, to);
    snap_corners(first, to);
    return area_between(first.x, first.y, to.x, to.y);
}

void draw_area(Point first) {
    const Area area = area_to(first, {shown.pixel_x, shown.pixel_y}, shift_is_down());
    preview_rect(overlay, area.left - shown.pan_x, area.top - shown.pan_y, area.right - shown.pan_x,
                 area.bottom - shown.pan_y);
    std::array<char, 32> text;
    std::snprintf(text.data(), text.size(), "%d X %d", area.width(), area.height());
    const bool distance_stands_there = measure_x != -1;
    put_mouse_text(text.data(), first.x, first.y, distance_stands_there ? 1 : 0);
}

/// The area to the mouse with its size, or a cross through the mouse as long as there is no corner.
void draw_rectangle() {
    if (rectangle_preview.x == rectangle_unset)
        draw_cross({shown.pixel_x - shown.pan_x, shown.pixel_y - shown.pan_y});
    else
        draw_area({rectangle_preview.x, rectangle_preview.y});
}

/// The rectangle from a corner to the mouse, as long as it lives.
class RectangleShown {
public:
    explicit RectangleShown(Point first) { start_at(first); }
    ~RectangleShown() { rectangle_preview = {}; }
    RectangleShown(const RectangleShown&) = delete;
    RectangleShown& operator=(const RectangleShown&) = delete;
    static void start_at(Point first) { rectangle_preview = {.x = first.x, .y = first.y}; }

private:
    OverlayShown overlay_{draw_rectangle};
};

/// False if the user leaves; SHIFT counts as the button goes down.
bool wait_for_corner(Waiting& wait, Point& corner, bool& is_square) {
    HandStep hand = HAND_RESTS;
    while (hand == HAND_RESTS) hand = wait.pass();
    view_update_pixel();  // the press may have come in the same instant as the motion to its place
    corner = {pixel_x, pixel_y};
    is_square = shift_is_down();
    return hand == HAND_LEFT;
}

}  // namespace

std::optional<Area> ask_corners(Point first, const CornerPrompts& prompts) {
    Waiting wait({.prompt = prompts.first, .hotkeys = HOTKEYS_MODAL});
    const RectangleShown rectangle(first);
    std::optional<ToolDistance> distance;
    bool is_square = false;
    if (first == no_corner) {
        if (!wait_for_corner(wait, first, is_square)) return std::nullopt;
        RectangleShown::start_at(first);
        distance.emplace(first);
    }
    wait.set_prompt(prompts.second);
    Point corner;
    if (!wait_for_corner(wait, corner, is_square)) return std::nullopt;
    return area_to(first, corner, is_square);
}

}  // namespace nubo
