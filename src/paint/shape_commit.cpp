// What the shape tools paint: the list of points as an outline with the tip, or as a filled polygon of single pixels.
#include "base/bitmap.h"
#include "base/log.h"
#include "paint/images.h"
#include "paint/shape_fill.h"
#include "paint/shape_lines.h"
#include "paint/stroke.h"
#include "paint/surfaces.h"
#include "paint/tool_table.h"
#include "paint/undo.h"
#include "state/messages.h"
#include "state/run.h"
#include "state/shape.h"
#include "state/status.h"
#include "state/tools.h"
#include <algorithm>
#include <memory>
#include <new>

namespace nubo {
namespace {

// ---- The mask of an outline ----------------------------------------------------------------------------------------

constexpr unsigned word_bits = 64;
/// A bit for each pixel of the Frame, set where the tip has been: it lands once on each, also where lines cross.
MaskWords shape_mask;

MaskWords make_mask(std::size_t words) { return MaskWords(new (std::nothrow) std::uint64_t[words]()); }
MaskWords (*mask_source)(std::size_t words) = make_mask;

bool is_list_tool(int tool) {
    return tool == TOOL_POLY || tool == TOOL_RPOLY || tool == TOOL_FSHAPE || tool == TOOL_SSHAPE ||
           tool == TOOL_SPIRAL || tool == TOOL_SPLINE;
}

bool is_outlined(int tool) {
    return tool == TOOL_SPIRAL || tool_option(static_cast<BrushTool>(tool), OPTION_FILLED) == 0;
}

void stamp_once(int x, int y, Color color) {
    const Point real = real_pixel({x, y});
    if (!frame_contains(current_frame, real.x, real.y)) return;
    const std::size_t bit = static_cast<std::size_t>(real.y) * static_cast<std::size_t>(current_frame->w) +
                            static_cast<std::size_t>(real.x);
    std::uint64_t& word = shape_mask[bit / word_bits];
    const std::uint64_t mark = std::uint64_t{1} << bit % word_bits;
    if ((word & mark) != 0) return;
    stamp_tip(x, y, active_tool(), active_ink(), brush_tip, color);
    word |= mark;
}

void paint_outline(Color color) {
    const Area window = paint_window();
    for (std::size_t i = 1; i < point_list.size(); ++i) {
        walk_line(point_list[i], point_list[i - 1], window, [color](int x, int y) { stamp_once(x, y, color); });
        refresh_stroke();
    }
}

void paint_run(int x1, int x2, int y, int ink, Color color) {
    stamp_row(x1, x2, y, ink, color);
    refresh_stroke();
}

// ---- OVAL ----------------------------------------------------------------------------------------------------------

/// The outermost columns of the outline on a row.
struct RowEnds {
    int left = no_coordinate, right = no_coordinate;
};

/// The ends of each row of the window, by the points of the list. Null when there is no memory.
std::unique_ptr<RowEnds[]> outline_rows(const Area& window) {
    std::unique_ptr<RowEnds[]> rows(new (std::nothrow) RowEnds[static_cast<std::size_t>(window.height())]);
    for (const Point& point : point_list) {
        if (!rows || point.y < window.top || point.y > window.bottom) continue;
        RowEnds& ends = rows[static_cast<std::size_t>(point.y - window.top)];
        if (ends.left == no_coordinate || ends.left > point.x) ends.left = point.x;
        ends.right = std::max(ends.right, point.x);
    }
    return rows;
}

}  // namespace

bool begin_shape_commit(int tool) {
    if (!is_list_tool(tool) || !is_outlined(tool)) return true;
    const std::size_t pixels = static_cast<std::size_t>(current_frame->w) * static_cast<std::size_t>(current_frame->h);
    shape_mask = mask_source(pixels / word_bits + 1);
    if (shape_mask) return true;
    UA_log("[ ERROR ] : No memory for the outline of a shape on a frame of %d x %d pixels.", current_frame->w,
           current_frame->h);
    status_message = MESSAGE_NO_MEMORY;
    status_timer = flash_ticks;
    return false;
}

void end_shape_commit() { shape_mask.reset(); }

void commit_shape(const StrokeStart& start) {
    if (is_outlined(start.brush))
        paint_outline(start.color);
    else
        fill_polygon(point_list, paint_window(),
                     [&start](int x1, int x2, int y) { paint_run(x1, x2, y, start.ink, start.color); });
}

void commit_outline(Color color) {
    if (!save_undo(false)) return;
    clear_stroke_mask();
    const StrokeImaging imaging(tool_rows[TOOL_OVAL].imaging);
    for (const Point& point : point_list)
        if (lies_in_frame(point)) stamp_callback(current_frame, point.x, point.y, static_cast<int>(color));
}

void fill_outline(Color color) {
    const StrokeImaging imaging(tool_rows[TOOL_OVAL].imaging);
    const Area window = paint_window();
    const std::unique_ptr<RowEnds[]> rows = outline_rows(window);
    if (!rows || !save_undo(false)) return;
    clear_stroke_mask();
    for (int y = window.top; y <= window.bottom; ++y) {
        const RowEnds ends = rows[static_cast<std::size_t>(y - window.top)];
        if (ends.right != no_coordinate) paint_run(ends.left, ends.right, y, active_ink(), color);
    }
}

void set_shape_mask_source(MaskWords (*make)(std::size_t words)) { mask_source = make != nullptr ? make : make_mask; }

}  // namespace nubo
