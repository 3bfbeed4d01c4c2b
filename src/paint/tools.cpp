#include "paint/tools.h"

#include "gui/presses.h"
#include "paint/stroke.h"
#include "state/flow.h"
#include "state/options.h"
#include "state/run.h"
#include "state/stroke.h"
#include "state/view.h"

namespace nubo {
namespace {

Point pixel_under_mouse() { return {pixel_x, pixel_y}; }

/// Shows the distance from a point while a tool runs, if the user wants that and does not measure already.
class ToolDistance {
public:
    explicit ToolDistance(Point anchor) : shown_(opt_tool_distance != 0 && measure_state == 0) {
        if (shown_) set_anchor(anchor);
    }
    ~ToolDistance() {
        if (shown_) set_anchor({-1, -1});
    }
    ToolDistance(const ToolDistance&) = delete;
    ToolDistance& operator=(const ToolDistance&) = delete;

private:
    static void set_anchor(Point anchor) {
        measure_x = anchor.x;
        measure_y = anchor.y;
    }
    bool shown_;
};

/// BOX, CIRCLE, LINE: a press for the first point, a click for the second, the shape in stripes between.
void run_two_click_tool(BrushTool tool) {
    click_points[0] = pixel_under_mouse();
    bool placed = false;
    {
        const ToolDistance distance(click_points[0]);
        wait_while_down(mouse_left);
        tool_preview = tool;
        tool_preview_on = 1;
        placed = wait_for_point(1);
        tool_preview = -1;
        tool_preview_on = 0;
    }
    if (!placed) return;
    click_points[1] = pixel_under_mouse();
    draw_to_frame(0, 0, tool, active_ink(), brush_tip);
}

}  // namespace

bool wait_for_point(int slot) {
    for (;;) {
        update_screen(UPDATE_NORMAL);
        bool left = false, right = false;
        if (mouse_left) {
            click_points[static_cast<unsigned>(slot)] = pixel_under_mouse();
            left = true;
            wait_while_down(mouse_left);
        }
        if (mouse_right) {
            right = true;
            wait_while_down(mouse_right);
        }
        if (left != right) return left;
    }
}

void run_tool() {
    click_points.fill({});
    const BrushTool tool = active_tool();
    switch (tool) {
    case TOOL_BOX:
    case TOOL_CIRCLE:
    case TOOL_LINE: run_two_click_tool(tool); return;
    case TOOL_DRAW:
    case TOOL_DRIZ:
    case TOOL_SPRAY:
    case TOOL_EDGE:
    case TOOL_SEP:
    case TOOL_FILL: draw_to_frame(pixel_x, pixel_y, tool, active_ink(), brush_tip); return;
    case TOOL_MOVE: return;
    case TOOL_OVAL: return;
    case TOOL_POLY: return;
    case TOOL_RPOLY: return;
    case TOOL_FSHAPE: return;
    case TOOL_SSHAPE: return;
    case TOOL_SPIRAL: return;
    case TOOL_SPLINE: return;
    case TOOL_TEXT: return;
    case TOOL_NONE:
    case TOOL_COUNT: return;
    }
}

}  // namespace nubo
