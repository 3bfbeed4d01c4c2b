#pragma once
// The table of the tools: how each runs, what its stroke paints, what it previews; and what stands in it. A tool's
// name, options and description are its row in state/tools.h.
#include "paint/image_maps.h"
#include "state/colors.h"
#include "state/tools.h"
#include <cstddef>
#include <cstdint>
#include <memory>

namespace nubo {

/// Where a stroke begins and with what: the arguments of `draw_to_frame`. `brush` is the tool, `style` the tip.
struct StrokeStart {
    int x, y, brush, ink, style;
    Color color;
};

// ---- Runners: from the press on the Frame to the end ---------------------------------------------------------------

/// The tools that need no more than the press: a stroke at the pixel under the mouse.
void run_press_tool(BrushTool tool);
/// BOX, CIRCLE, LINE: a press for the first point, a click for the second, the shape in stripes between.
void run_two_click_tool(BrushTool tool);
/// POLY: a press for each corner, until a right press closes the polygon.
void run_poly_tool(BrushTool tool);
/// FSHAPE: the way of the hand while the button is held.
void run_freehand_shape_tool(BrushTool tool);
/// OVAL: two clicks for the length, then the mouse for the width and the direction.
void run_oval_tool(BrushTool tool);
/// SPLINE: a click for each node, or on a node to move it, until a right press paints the curve.
void run_spline_tool(BrushTool tool);

// ---- Commits: the cases of `draw_to_frame`, which has saved undo and cleared the coverage map before ---------------

// Between `click_points` 0 and 1.
void commit_box(const StrokeStart& start);
void commit_circle(const StrokeStart& start);
void commit_line(const StrokeStart& start);

// Freehand: from the first point until `mouse_left` is up.
void commit_draw(const StrokeStart& start);
void commit_driz(const StrokeStart& start);
void commit_spray(const StrokeStart& start);

/// POLY, R.POLY, FSHAPE, SSHAPE, SPIRAL and SPLINE: the points of `point_list`, hollow with the tip, or filled with
/// single pixels.
void commit_shape(const StrokeStart& start);

// By colour: the pixels that are like the one at the start. EDGE outlines them on their inner rim, SEP. paints them all
// over the Frame, FILL those that are connected.
void commit_edge(const StrokeStart& start);
void commit_sep(const StrokeStart& start);
void commit_fill(const StrokeStart& start);

// ---- Previews: on `overlay`, from the values of `shown` ------------------------------------------------------------

void draw_box_preview();
void draw_circle_preview();
void draw_line_preview();
void draw_poly_preview();
void draw_freehand_shape_preview();
void draw_oval_preview();
void draw_spline_preview();

// ---- The table -----------------------------------------------------------------------------------------------------

/// Runs a tool from the press to its commit or its leaving; `tool` tells those apart that share a runner.
using ToolRunner = void (*)(BrushTool tool);
/// A case of `draw_to_frame`.
using ToolCommit = void (*)(const StrokeStart& start);
/// Draws on `overlay`, in Frame pixels less the view's corner, both of `shown`.
using PreviewDrawer = void (*)();

/// Null where a tool has nothing of the kind. What EDGE and SEP. look for they find all over the Frame; MOVE and TEXT
/// put down what is one piece.
struct ToolRow {
    BrushTool number;
    ToolRunner run;
    ToolCommit commit;
    PreviewDrawer preview;
    Imaging imaging = IMAGES_ONCE;
};

/// The runner of a tool that a room above names at start.
inline constexpr ToolRunner run_above = nullptr;

/// Held in order by paint/tools.cpp.
inline constexpr std::array<ToolRow, TOOL_COUNT> tool_rows{{
    {TOOL_NONE, nullptr, nullptr, nullptr},
    {TOOL_BOX, run_two_click_tool, commit_box, draw_box_preview, IMAGES_MIRRORED},
    {TOOL_CIRCLE, run_two_click_tool, commit_circle, draw_circle_preview, IMAGES_MIRRORED},
    {TOOL_DRAW, run_press_tool, commit_draw, nullptr, IMAGES_MIRRORED},
    {TOOL_DRIZ, run_press_tool, commit_driz, nullptr, IMAGES_MIRRORED},
    {TOOL_EDGE, run_press_tool, commit_edge, nullptr},
    {TOOL_FILL, run_press_tool, commit_fill, nullptr, IMAGES_RERUN},
    {TOOL_LINE, run_two_click_tool, commit_line, draw_line_preview, IMAGES_MIRRORED},
    {TOOL_MOVE, run_above, nullptr, nullptr},  // MOVE, OVAL and TEXT save undo and paint by themselves
    {TOOL_OVAL, run_oval_tool, nullptr, draw_oval_preview, IMAGES_MIRRORED},
    {TOOL_POLY, run_poly_tool, commit_shape, draw_poly_preview, IMAGES_MIRRORED},
    {TOOL_RPOLY, run_above, commit_shape, nullptr, IMAGES_MIRRORED},
    {TOOL_SEP, run_press_tool, commit_sep, nullptr},
    {TOOL_FSHAPE, run_freehand_shape_tool, commit_shape, draw_freehand_shape_preview, IMAGES_MIRRORED},
    {TOOL_SSHAPE, run_above, commit_shape, nullptr, IMAGES_MIRRORED},
    {TOOL_SPIRAL, run_above, commit_shape, nullptr, IMAGES_MIRRORED},
    {TOOL_SPLINE, run_spline_tool, commit_shape, draw_spline_preview, IMAGES_MIRRORED},
    {TOOL_SPRAY, run_press_tool, commit_spray, nullptr, IMAGES_MIRRORED},
    {TOOL_TEXT, run_above, nullptr, nullptr},
}};

// ---- Shapes of many points -----------------------------------------------------------------------------------------

/// Makes the mask that the outline of a list tool needs, before the undo step; other tools need none. False, with a
/// line in the log and a status message, when the memory can't be had: the stroke is refused then. `end_shape_commit`
/// frees it after the stroke.
bool begin_shape_commit(int tool);
void end_shape_commit();

/// OVAL, hollow and filled. They save undo and clear the coverage map themselves.
void commit_outline(Color color);
void fill_outline(Color color);

/// Takes the memory of masks from `make`, which gives 0 words or null; null goes back to the program's own. For tests
/// that tell beforehand what memory can be had.
using MaskWords = std::unique_ptr<std::uint64_t[]>;
void set_shape_mask_source(MaskWords (*make)(std::size_t words));

}  // namespace nubo
