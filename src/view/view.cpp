#include "view/view.h"

#include "state/flow.h"
#include "state/frames.h"
#include "state/gui.h"
#include "state/hotkeys.h"
#include "state/mouse.h"
#include "state/run.h"
#include "state/status.h"
#include "state/view.h"
#include "view/frame_tiles.h"
#include <algorithm>
#include <allegro.h>
#include <cmath>

namespace nubo {
namespace {

/// The zoom level, held to its range: a workspace that is being read may have stored less.
std::size_t level() { return static_cast<std::size_t>(std::clamp<int>(zoom, zoom_min, zoom_max)); }

/// `half` is half the view, so that its centre reaches each edge of the Frame and no further.
int clamp_pan(int pan, int view_size, int frame_size) {
    const int half =
        static_cast<int>(std::ceil(static_cast<float>(view_size) / static_cast<float>(zoom_scale[level()]))) / 2;
    return std::clamp(pan, -half, std::max(frame_size - half, -half));
}

int zoomed_center(int center, int pixel, int direction) {
    const int distance = center - pixel;
    return direction == ZOOM_IN ? center - distance / 2 : center + static_cast<int>(distance / 1.5);
}

int pan_of_center(int center, float view_size) {
    return static_cast<int>(static_cast<float>(center) - view_size * 0.5F);
}

}  // namespace

void view_clamp() {
    if (!tiles_across()) pan_x = clamp_pan(pan_x, view_w, frame_w);
    if (!tiles_down()) pan_y = clamp_pan(pan_y, view_h, frame_h);
}

void view_to_frame() {
    if (guides.tiles == TILES_OFF) return;  // the other flow pans meanwhile, and a write here could lose its step
    view_update_pixel();
    const Point center{view_center_x, view_center_y}, real = real_pixel(center);
    pan_x += real.x - center.x;
    pan_y += real.y - center.y;
    view_update_pixel();
}

void view_update_pixel() {
    const int shift = static_cast<int>(level()) - 1;
    pixel_x = (mouse_x >> shift) + pan_x;
    pixel_y = (mouse_y >> shift) + pan_y;
    view_center_x = static_cast<int>(static_cast<float>(pan_x) + zoom_view_w[level()] * 0.5F);
    view_center_y = static_cast<int>(static_cast<float>(pan_y) + zoom_view_h[level()] * 0.5F);
}

void view_zoom(int direction) {
    const int target = zoom + (direction == ZOOM_IN ? 1 : -1);
    if (target < zoom_min || target > zoom_max) return;
    const int center_x = zoomed_center(view_center_x, pixel_x, direction);
    const int center_y = zoomed_center(view_center_y, pixel_y, direction);
    zoom = target;
    pan_x = pan_of_center(center_x, zoom_view_w[level()]);
    pan_y = pan_of_center(center_y, zoom_view_h[level()]);
    view_clamp();
    view_update_pixel();
}

void view_tick() {
    if (hotkeys_busy == 0) check_hotkeys(HOTKEYS_PAN);
    view_clamp();
    view_update_pixel();
    if (status_timer > 0 && (status_timer -= 1) == 0) status_message = status_coordinates;
    const int wheel = ::mouse_z - last_wheel;
    if (hover == -1 && wheel != 0) view_zoom(wheel > 0 ? ZOOM_IN : ZOOM_OUT);
}

void center_frame() {
    zoom = zoom_min;
    pan_x = frame_w / 2 - view_w / 2;
    pan_y = frame_h / 2 - view_h / 2;
}

}  // namespace nubo
