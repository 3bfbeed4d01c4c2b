// Outlines in the moving stripes, and the previews of the tools that are made of them.
#include "base/geometry.h"
#include "gui/stripes.h"
#include "paint/stroke.h"
#include "paint/tools.h"
#include "state/run.h"
#include "state/stroke.h"
#include "state/view.h"

namespace nubo {

void preview_line(BITMAP* bitmap, int x1, int y1, int x2, int y2) {
    const StripesMode stripes;
    line(bitmap, x1, y1, x2, y2, 0);
}

void preview_rect(BITMAP* bitmap, int x1, int y1, int x2, int y2) {
    const StripesMode stripes;
    rect(bitmap, x1, y1, x2, y2, 0);
}

void preview_circle(BITMAP* bitmap, int center_x, int center_y, int rim_x, int rim_y) {
    const StripesMode stripes;
    circle(bitmap, center_x, center_y, UA_distance_2d(center_x, center_y, rim_x, rim_y), 0);
}

void draw_tool_preview() {
    const Point from{click_points[0].x - shown.pan_x, click_points[0].y - shown.pan_y};
    const Point mouse{shown.pixel_x - shown.pan_x, shown.pixel_y - shown.pan_y};
    if (tool_preview == TOOL_BOX) preview_rect(overlay, from.x, from.y, mouse.x, mouse.y);
    if (tool_preview == TOOL_CIRCLE) preview_circle(overlay, from.x, from.y, mouse.x, mouse.y);
    if (tool_preview == TOOL_LINE) preview_line(overlay, from.x, from.y, mouse.x, mouse.y);
}

}  // namespace nubo
