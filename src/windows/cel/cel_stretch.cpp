// STRETCH: the Cel between a point that the user clicks and the mouse.
#include "base/keys.h"
#include "paint/cel_pixels.h"
#include "state/flow.h"
#include "windows/cel/cel_commands.h"
#include "windows/kit/over_frame.h"
#include "windows/kit/placement.h"
#include "windows/kit/run_window.h"
#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace nubo {
namespace {

/// The moving corner at the mouse, or with SHIFT where the Cel keeps its proportions.
void follow_mouse(Point mouse) {
    const int dx = mouse.x - cel_place.x, dy = mouse.y - cel_place.y;
    cel_place.x2 = mouse.x;
    cel_place.y2 = mouse.y;
    if (!shift_is_down()) return;
    const double scale =
        std::max(std::abs(dx) / static_cast<double>(cel->w), std::abs(dy) / static_cast<double>(cel->h));
    const int w = static_cast<int>(std::lround(scale * cel->w)), h = static_cast<int>(std::lround(scale * cel->h));
    cel_place.x2 = cel_place.x + (dx < 0 ? -w : w);
    cel_place.y2 = cel_place.y + (dy < 0 ? -h : h);
}

/// As long as the size isn't set: it follows the mouse, a left press sets it, a right one leaves.
Outcome serve_stretch(HandStep hand, Point mouse) {
    if (cel_place.selected != 0) return NOT_SERVED;
    follow_mouse(mouse);
    if (hand == HAND_LEFT) cel_place.selected = 1;
    return hand == HAND_RIGHT || hand == HAND_ESCAPES ? LEAVES : GOES_ON;
}

bool lies_in_box(Point at) {
    const int left = std::min(cel_place.x, cel_place.x2), top = std::min(cel_place.y, cel_place.y2);
    return at.x >= left && at.x < left + std::abs(cel_place.x2 - cel_place.x) && at.y >= top &&
           at.y < top + std::abs(cel_place.y2 - cel_place.y);
}

constexpr PlacementKind stretch_kind{
    .shown = CEL_STRETCH,
    .committed = CEL_STRETCH,
    .prompt = [] { return cel_place.selected != 0 ? MESSAGE_STRETCH_ADJUST : MESSAGE_STRETCH_SIZE; },
    .held_prompt = MESSAGE_STRETCH_ADJUST,
    .takes_up = lies_in_box,
    .serve = serve_stretch,
    .press_beside = [] { cel_place.selected = 0; }};

bool ask_fixed_corner(Point& corner) {
    Waiting wait({.prompt = MESSAGE_STRETCH_FROM, .hotkeys = HOTKEYS_MODAL});
    if (!wait.for_click()) return false;
    corner = wait.point();
    return true;
}

}  // namespace

void stretch_cel() {
    const ClearedScreen cleared;
    Point corner;
    if (!ask_fixed_corner(corner)) return;
    prepare_cel();
    cel_place = {.x = corner.x, .y = corner.y, .x2 = corner.x, .y2 = corner.y, .selected = 0};
    run_placement(stretch_kind, UNDO_TO_SAVE);
}

}  // namespace nubo
