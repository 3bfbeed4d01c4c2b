// DRAW, DRIZ. and SPRAY: a stroke that lasts as long as the button is held.
#include "base/bitmap.h"
#include "base/geometry.h"
#include "base/random.h"
#include "paint/stroke.h"
#include "paint/tool_table.h"
#include "state/flow.h"
#include "state/frames.h"
#include "state/mouse.h"
#include "state/run.h"
#include "state/stroke.h"
#include "state/tools.h"
#include "state/view.h"
#include "view/view.h"
#include <cstdlib>

namespace nubo {
namespace {

/// Calls `pass` with the pixel under the mouse until the button is up, at least once, and shows the paint after each
/// pass. The first pixel is that of the press: a quick click paints there even if the hand has moved on meanwhile.
template <typename Pass> void while_held(const StrokeStart& start, Pass pass) {
    Point mouse{start.x, start.y};
    do {
        pass(mouse);
        update_screen(UPDATE_NORMAL);
        view_update_pixel();
        mouse = {pixel_x, pixel_y};
    } while (mouse_left && exit_requested == 0);
}

/// True if the stroke goes on at `point` without a gap, or begins there.
bool follows_previous(Point point) {
    const auto near = [](int previous, int now) { return previous == no_coordinate || std::abs(now - previous) <= 1; };
    return near(previous_point.x, point.x) && near(previous_point.y, point.y);
}

/// The radius of DRIZ. for a move to `point`: the faster, the smaller. `no_disc` beyond the taper distance.
constexpr int no_disc = -1;
int driz_radius(Point point) {
    const int radius = tool_option(TOOL_DRIZ, OPTION_DRIZ_RADIUS), taper = tool_option(TOOL_DRIZ, OPTION_DRIZ_TAPER);
    if (follows_previous(point)) return radius;
    const int distance = UA_distance_2d(previous_point.x, previous_point.y, point.x, point.y);
    if (distance > taper) return no_disc;
    return radius - static_cast<int>(static_cast<double>(distance) / taper * radius);
}

/// One try of SPRAY: a pixel of the square around the mouse, painted if it lies in the circle.
void spray_once(int radius, const StrokeStart& start) {
    // The mouse is read anew for each try, so that a burst follows the hand.
    const Point mouse{pixel_x, pixel_y};
    const int x = mouse.x - radius + UA_random(2 * radius);
    const int y = mouse.y - radius + UA_random(2 * radius);
    if (UA_distance_2d(mouse.x, mouse.y, x, y) < radius)
        stamp_tip(x, y, TOOL_SPRAY, start.ink, tip_single, start.color);
}

}  // namespace

void commit_draw(const StrokeStart& start) {
    while_held(start, [&start](Point mouse) {
        if (mouse == previous_point) return;
        if (follows_previous(mouse))
            stamp_tip(mouse.x, mouse.y, TOOL_DRAW, start.ink, start.style, start.color);
        else
            do_line(current_frame, previous_point.x, previous_point.y, mouse.x, mouse.y, static_cast<int>(start.color),
                    stamp_callback);
        previous_point = mouse;
    });
}

void commit_driz(const StrokeStart& start) {
    while_held(start, [&start](Point mouse) {
        if (mouse == previous_point) return;
        const int radius = driz_radius(mouse);
        if (radius != no_disc) fill_disc(mouse.x, mouse.y, radius, start.color);
        previous_point = mouse;
    });
}

void commit_spray(const StrokeStart& start) {
    while_held(start, [&start](Point) {
        if (!spray_tick.take()) return;
        const int density = tool_option(TOOL_SPRAY, OPTION_SPRAY_DENSITY);
        const int radius = tool_option(TOOL_SPRAY, OPTION_SPRAY_RADIUS);
        for (int i = 0; i < density; ++i) spray_once(radius, start);
    });
}

}  // namespace nubo
