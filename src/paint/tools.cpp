#include "paint/tools.h"

#include "gui/waiting.h"
#include "paint/stroke.h"
#include "paint/tool_cases.h"
#include "state/shape.h"
#include "state/shared.h"
#include "state/stroke.h"
#include "state/view.h"
#include <cassert>

namespace nubo {
namespace {

using ToolCommit = void (*)(const StrokeStart& start);

/// Null where a tool has nothing of the kind.
struct ToolRow {
    BrushTool tool;
    ToolRunner run;
    ToolCommit commit;
    PreviewDrawer preview;
};

/// The runner of a tool that a room above names at start.
constexpr ToolRunner run_above = nullptr;

constexpr std::array<ToolRow, TOOL_COUNT> tool_rows{{
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

/// One column of the table, in the first places of a table that the rooms above complete.
template <std::size_t N, typename Field> consteval std::array<Field, N> column(Field ToolRow::*field) {
    std::array<Field, N> values{};
    for (std::size_t i = 0; i < tool_rows.size(); ++i) values[i] = tool_rows[i].*field;
    return values;
}
constinit auto runners = column<TOOL_COUNT>(&ToolRow::run);
constinit auto preview_drawers = column<nodes_preview + INK_COUNT>(&ToolRow::preview);

}  // namespace

void set_tool_runner(BrushTool tool, ToolRunner run) {
    assert(tool_rows[at(tool)].run == nullptr);
    runners[at(tool)] = run;
}

void set_preview_drawer(int preview, PreviewDrawer draw) { preview_drawers[at(preview)] = draw; }

void run_tool() {
    click_points.fill({});
    const BrushTool tool = active_tool();
    if (runners[at(tool)] != nullptr) runners[at(tool)](tool);
}

void commit_tool(const StrokeStart& start) {
    if (start.brush >= TOOL_COUNT || tool_rows[at(start.brush)].commit == nullptr) return;
    tool_rows[at(start.brush)].commit(start);
}

void draw_tool_preview() {
    placing_text.fill('\0');
    if (preview_drawers[at(tool_preview)] != nullptr) preview_drawers[at(tool_preview)]();
}

void run_press_tool(BrushTool tool) { draw_to_frame(pixel_x, pixel_y, tool, active_ink(), brush_tip); }

bool wait_for_point(int slot) {
    Waiting wait;
    const bool clicked = wait.for_click();
    if (clicked) click_points[at(slot)] = wait.point();
    return clicked;
}

}  // namespace nubo
