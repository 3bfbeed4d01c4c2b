#include "paint/tools.h"

#include "gui/waiting.h"
#include "paint/stroke.h"
#include "paint/tool_preview.h"
#include "paint/tool_table.h"
#include "state/flow.h"
#include "state/overlay.h"
#include "state/shape.h"
#include "state/shared.h"
#include "state/stroke.h"
#include "state/tools.h"
#include "state/view.h"
#include <cassert>
#include <optional>

namespace nubo {
namespace {

static_assert(choices_are_sound<tools>() && rows_are_in_place<tool_rows>());

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

void draw_tool_preview() {
    placing_text.fill('\0');
    std::optional<PaintPreview> paint;  // not of a gradient's nodes
    if (tool_preview > TOOL_NONE && tool_preview < TOOL_COUNT) paint.emplace(tool_rows[at(tool_preview)].imaging);
    if (preview_drawers[at(tool_preview)] != nullptr) preview_drawers[at(tool_preview)]();
}

void run_press_tool(BrushTool tool) { draw_to_frame(pixel_x, pixel_y, tool, active_ink(), brush_tip, brush_color); }

bool wait_for_point(int slot, bool& shift) {
    Waiting wait({.hotkeys = HOTKEYS_TOOL});
    const bool clicked = wait.for_click();
    if (clicked) click_points[at(slot)] = wait.point();
    shift = wait.shift();
    return clicked;
}

}  // namespace nubo
