#include "windows/axis_handle.h"

#include "gui/presses.h"
#include "gui/waiting.h"
#include "paint/image_maps.h"
#include "state/colors.h"
#include "state/mouse.h"
#include "state/run.h"
#include "state/shown.h"
#include "state/view.h"
#include <algorithm>
#include <allegro.h>
#include <cstdlib>

namespace nubo {
namespace {

constexpr int reach = 3;  // of a handle from its middle, logical pixels
bool has_handles = false;

int shown_scale() { return zoom_scale[static_cast<std::size_t>(shown.zoom)]; }

int axis_of_frame(bool upright) { return upright ? axis_of(guides.axis_x, frame_w) : axis_of(guides.axis_y, frame_h); }

/// Where no window of the guides stands: below the status bar, and at the left rim.
Point handle_of(bool upright) {
    constexpr int from_top = 14, from_left = 8;
    return upright ? Point{axis_place(upright), from_top} : Point{from_left, axis_place(upright)};
}

bool has_handle(bool upright) {
    const Point at = handle_of(upright);
    return has_handles && shows_axis(upright) && at.x >= 0 && at.x < view_w && at.y >= 0 && at.y < view_h;
}

bool is_under_mouse(bool upright) {
    constexpr int near = reach + 2;
    const Point at = handle_of(upright);
    return has_handle(upright) && std::abs(mouse_x - at.x) <= near && std::abs(mouse_y - at.y) <= near;
}

/// The nearest half pixel to the mouse; the inverse of `axis_place`.
void follow_mouse(bool upright) {
    const int place = upright ? mouse_x : mouse_y, pan = upright ? pan_x : pan_y;
    const int stored = (2 * place + shown_scale() / 2) / shown_scale() + 2 * pan;
    (upright ? guides.axis_x : guides.axis_y) = std::clamp(stored, 1, axis_max);
}

void drag(bool upright) {
    int& axis = upright ? guides.axis_x : guides.axis_y;
    const int before = axis, place = upright ? mouse_x : mouse_y;
    Waiting wait;
    HandStep hand = HAND_LEFT;
    while (hand == HAND_LEFT) {
        hand = wait.held_pass();
        const bool has_moved = axis != before || (upright ? mouse_x : mouse_y) != place;
        if (has_moved) follow_mouse(upright);
    }
    if (hand == HAND_ESCAPES) axis = before;
}

}  // namespace

bool shows_axis(bool upright) {
    const int alone = upright ? SYMMETRY_ACROSS : SYMMETRY_DOWN, other = upright ? SYMMETRY_DOWN : SYMMETRY_ACROSS;
    return guides.symmetry == alone || (guides.symmetry != SYMMETRY_OFF && guides.symmetry != other);
}

// It lies at s / 2 from the middle of pixel 0, which is half a pixel from the Frame's rim.
int axis_place(bool upright) {
    const int pan = upright ? shown.pan_x : shown.pan_y;
    return (axis_of_frame(upright) + 1 - 2 * pan) * shown_scale() / 2;
}

AxisHandles::AxisHandles() { has_handles = true; }
AxisHandles::~AxisHandles() { has_handles = false; }

void draw_axis_handles() {
    for (const bool upright : {true, false}) {
        if (!has_handle(upright)) continue;
        const auto [x, y] = handle_of(upright);
        rectfill(screen_buffer, x - reach, y - reach, x + reach, y + reach, static_cast<int>(fixed_black));
        rectfill(screen_buffer, x - reach + 1, y - reach + 1, x + reach - 1, y + reach - 1,
                 static_cast<int>(ui_highlight_fore));
    }
}

void serve_axis_handles() {
    if (!pressed_outside(mouse_left)) return;
    for (const bool upright : {true, false})
        if (is_under_mouse(upright)) return drag(upright);
}

}  // namespace nubo
