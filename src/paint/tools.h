#pragma once
// The brush tools: from the user's presses to the points of a stroke. What each of them does is a row in tool_table.h.
#include "paint/shape_fill.h"
#include "paint/tool_table.h"
#include "state/colors.h"
#include "state/overlay.h"
#include "state/tools.h"

namespace nubo {

// ---- Running --------------------------------------------------------------------------------------------------------

/// Runs the tool of the active slot from a left press on the Frame to its end. By `program_loop`.
void run_tool();

/// As long as it lives a preview stands over the Frame, and then again what stood before: a tool's number, or
/// `nodes_preview` and more.
class ToolPreview {
public:
    explicit ToolPreview(int preview) : before_(tool_preview), on_before_(tool_preview_on) {
        tool_preview = preview;
        tool_preview_on = 1;
    }
    ~ToolPreview() {
        tool_preview = before_;
        tool_preview_on = on_before_;
    }
    ToolPreview(const ToolPreview&) = delete;
    ToolPreview& operator=(const ToolPreview&) = delete;

private:
    int before_, on_before_;
};

/// Draws what `tool_preview` asks for on `overlay`. By `update_screen`, which has cleared it.
void draw_tool_preview();

// ---- What rooms above hand over, at start ---------------------------------------------------------------------------

/// Names the runner of a tool that opens a window and so stands above. One that has its own here is a mistake.
void set_tool_runner(BrushTool tool, ToolRunner run);

/// Names what a value of `tool_preview` draws: a tool's number, or `nodes_preview` and more.
void set_preview_drawer(int preview, PreviewDrawer draw);

// ---- For the tools --------------------------------------------------------------------------------------------------

/// The second click of a two-click tool, into `click_points[slot]`; `shift` tells whether SHIFT was down at the press.
/// False after a right press, ESC or the end of the program.
bool wait_for_point(int slot, bool& shift);

/// Fills the connected area of `color` around (x, y) with the active ink in `paint`.
void flood_fill(int x, int y, Color color, int tolerance, Color paint);

/// The spans that FILL would paint around a pixel; on a tiled Frame they may reach over its seam. False without memory.
bool find_filled(Point from, int tolerance, const PaintRun& found);

}  // namespace nubo
