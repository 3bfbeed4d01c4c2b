#pragma once
// The table of the tools: how each runs, what its stroke paints, what it previews.
#include "paint/tool_cases.h"

namespace nubo {

/// Runs a tool from the press to its commit or its leaving; `tool` tells those apart that share a runner.
using ToolRunner = void (*)(BrushTool tool);
/// A case of `draw_to_frame`.
using ToolCommit = void (*)(const StrokeStart& start);
/// Draws on `overlay`, in Frame pixels less the view's corner, both of `shown`.
using PreviewDrawer = void (*)();

/// Null where a tool has nothing of the kind.
struct ToolRow {
    BrushTool tool;
    ToolRunner run;
    ToolCommit commit;
    PreviewDrawer preview;
};

/// The runner of a tool that a room above names at start.
inline constexpr ToolRunner run_above = nullptr;

inline constexpr std::array<ToolRow, TOOL_COUNT> tool_rows{{
    {TOOL_NONE, nullptr, nullptr, nullptr},
    {TOOL_BOX, run_two_click_tool, commit_box, draw_box_preview},
    {TOOL_CIRCLE, run_two_click_tool, commit_circle, draw_circle_preview},
    {TOOL_DRAW, run_press_tool, commit_draw, nullptr},
    {TOOL_DRIZ, run_press_tool, commit_driz, nullptr},
    {TOOL_EDGE, run_press_tool, commit_edge, nullptr},
    {TOOL_FILL, run_press_tool, commit_fill, nullptr},
    {TOOL_LINE, run_two_click_tool, commit_line, draw_line_preview},
    {TOOL_MOVE, run_above, nullptr, nullptr},  // MOVE, OVAL and TEXT save undo and paint by themselves
    {TOOL_OVAL, run_oval_tool, nullptr, draw_oval_preview},
    {TOOL_POLY, run_poly_tool, commit_shape, draw_poly_preview},
    {TOOL_RPOLY, run_above, commit_shape, nullptr},
    {TOOL_SEP, run_press_tool, commit_sep, nullptr},
    {TOOL_FSHAPE, run_freehand_shape_tool, commit_shape, draw_freehand_shape_preview},
    {TOOL_SSHAPE, run_above, commit_shape, nullptr},
    {TOOL_SPIRAL, run_above, commit_shape, nullptr},
    {TOOL_SPLINE, run_spline_tool, commit_shape, draw_spline_preview},
    {TOOL_SPRAY, run_press_tool, commit_spray, nullptr},
    {TOOL_TEXT, run_above, nullptr, nullptr},
}};
static_assert(rows_in_order(tool_rows, &ToolRow::tool));

}  // namespace nubo
