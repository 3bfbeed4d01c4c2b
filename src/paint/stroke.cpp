#include "paint/stroke.h"

#include "base/log.h"
#include "paint/images.h"
#include "paint/inks.h"
#include "paint/surfaces.h"
#include "paint/tips.h"
#include "paint/tool_table.h"
#include "paint/undo.h"
#include "state/flow.h"
#include "state/shown.h"
#include "state/stroke.h"
#include "state/tools.h"
#include <algorithm>

namespace nubo {
namespace {

constexpr int number_max = 99;  // of a brush, an ink and a tip, as far as calls are told apart from mistakes

/// The range tests that stand before a stroke and before each stamp.
bool stroke_is_valid(int x, int y, int brush, int ink, int style) {
    if (brush < 0 || brush > number_max) {
        UA_log("[ ERROR ] : Brush type is OOB in call to draw_to_frame! brush = %d", brush);
        return false;
    }
    if (style < tip_single || style > number_max) {
        UA_log("[ ERROR ] : Brush style is OOB in call to draw_to_frame! style = %d", style);
        return false;
    }
    if (ink < 0 || ink > number_max) {
        UA_log("[ ERROR ] : Ink type is OOB in call to draw_to_frame! Ink = %d", ink);
        return false;
    }
    return lies_in_frame({x, y});
}

/// All pixels of the tip's cell around (x, y), those outside the tip too: some inks ignore the tip value.
void stamp_cell(int x, int y, Ink ink, int style, Color color) {
    TipValues values;
    read_tip(style, values);
    for (int row = 0; row < tip_h; ++row)
        paint_row({x - tip_center_x, y - tip_center_y + row, tip_w, &values[static_cast<unsigned>(row * tip_w)], 1},
                  ink, color);
}

/// A number without a case paints nothing.
void commit_tool(const StrokeStart& start) {
    if (start.brush >= TOOL_COUNT || tool_rows[at(start.brush)].commit == nullptr) return;
    const ToolRow& tool = tool_rows[at(start.brush)];
    const StrokeImaging imaging(tool.imaging);
    tool.commit(start);
}

}  // namespace

void draw_to_frame(int x, int y, int brush, int ink, int style, Color color) {
    if (!stroke_is_valid(x, y, brush, ink, style)) return;
    if (!begin_shape_commit(brush)) return;
    if (save_undo(false)) {
        clear_stroke_mask();
        commit_tool({x, y, brush, ink, style, color});
        release_stroke_mask();
    }
    end_shape_commit();
}

void stamp_tip(int x, int y, int brush, int ink, int style, Color color) {
    if (!stroke_is_valid(x, y, brush, ink, style)) return;
    if (style == tip_single) {
        stamp_row(x, x, y, ink, color);
    } else if (ink < INK_COUNT && style <= tip_custom) {
        stamp_cell(x, y, static_cast<Ink>(ink), style, color);
    }
}

void stamp_row(int x1, int x2, int y, int ink, Color color) {
    static constexpr std::uint8_t full_strength = 0;
    if (ink < 0 || ink >= INK_COUNT) return;
    const Area window = paint_window();
    const int first = std::max(x1, window.left), last = std::min(x2, window.right);
    if (first <= last) paint_row({first, y, last - first + 1, &full_strength, 0}, static_cast<Ink>(ink), color);
}

void stamp_callback(BITMAP*, int x, int y, int d) {
    stamp_tip(x, y, active_tool(), active_ink(), brush_tip, static_cast<Color>(d));
    refresh_stroke();
}

void refresh_stroke() {
    if (refresh_ticks > 0) update_screen(UPDATE_STROKE);
}

}  // namespace nubo
