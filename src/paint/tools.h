#pragma once
// The brush tools: from the user's presses to the points of a stroke. What each of them does is a row in tools.cpp.
#include "state/colors.h"
#include "state/tools.h"
#include "state/view.h"

namespace nubo {

struct StrokeStart;

// ---- Running --------------------------------------------------------------------------------------------------------

/// Runs the tool of the active slot from a left press on the Frame to its end. By `program_loop`.
void run_tool();

/// What a stroke paints: the case of `draw_to_frame`. A number without a case paints nothing.
void commit_tool(const StrokeStart& start);

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

/// Runs a tool from the press to its commit or its leaving; `tool` tells those apart that share a runner.
using ToolRunner = void (*)(BrushTool tool);
/// Names the runner of a tool that opens a window and so stands above. One that has its own here is a mistake.
void set_tool_runner(BrushTool tool, ToolRunner run);

/// Draws on `overlay`, in Frame pixels less the view's corner, both of `shown`.
using PreviewDrawer = void (*)();
/// Names what a value of `tool_preview` draws: a tool's number, or `nodes_preview` and more.
void set_preview_drawer(int preview, PreviewDrawer draw);

// ---- For the tools --------------------------------------------------------------------------------------------------

/// The second click of a two-click tool, into `click_points[slot]`. False after a right press, ESC or the end of the
/// program.
bool wait_for_point(int slot);

/// Fills the connected area of `color` around (x, y) with the active ink.
void flood_fill(int x, int y, Color color, int tolerance);

}  // namespace nubo
