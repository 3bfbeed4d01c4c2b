#include "windows/cel/custom_tip.h"

#include "base/bitmap.h"
#include "base/color.h"
#include "gui/waiting.h"
#include "paint/tips.h"
#include "paint/tool_preview.h"
#include "state/frames.h"
#include "state/run.h"
#include "state/shown.h"
#include "state/stroke.h"
#include "view/frame_tiles.h"
#include "windows/kit/over_frame.h"

namespace nubo {
namespace {

// The outline stands one pixel around the area of the tip.
constexpr int area_left = custom_tip_w / 2, area_top = custom_tip_h / 2;

void draw_outline() {
    const int x = shown.pixel_x - shown.pan_x, y = shown.pixel_y - shown.pan_y;
    preview_rect(overlay, x - area_left - 1, y - area_top - 1, x + area_left, y + area_top);
}

Color gray_of(Color color) {
    const int mean = (red_of(color) + green_of(color) + blue_of(color)) / 3;
    return pack_color(mean, mean, mean);
}

/// What lies outside the Frame takes the highlight's gray, which by default is too light to paint.
void take_area(int left, int top) {
    for (int y = 0; y < custom_tip_h; ++y) {
        Color* const tip = pixels_at(tip_sheet, 0, custom_tip_y + y);
        for (int x = 0; x < custom_tip_w; ++x) {
            const Point real = real_pixel({left + x, top + y});
            const bool inside = frame_contains(current_frame, real.x, real.y);
            tip[x] = gray_of(inside ? *pixels_at(current_frame, real.x, real.y) : ui_highlight_back);
        }
    }
}

}  // namespace

void set_custom_tip() {
    const OverlayShown overlay_shown(draw_outline);
    Waiting wait;
    HandStep hand = HAND_RESTS;
    while (hand == HAND_RESTS) hand = wait.pass();
    if (hand == HAND_LEFT) take_area(wait.point().x - area_left, wait.point().y - area_top);
}

}  // namespace nubo
