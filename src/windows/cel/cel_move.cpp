// The MOVE tool: an area is cut out of the Frame and floats until it is anchored, on this Frame or on another.
// Meanwhile it is nowhere but in the Cel, so each way out either anchors it or puts it back. The step before the cut
// counts once the area has landed; till then undo and redo are as they were.
#include "paint/cel_pixels.h"
#include "paint/image_maps.h"
#include "paint/selection.h"
#include "paint/surfaces.h"
#include "paint/undo.h"
#include "state/frames.h"
#include "state/run.h"
#include "state/stroke.h"
#include "state/view.h"
#include "windows/cel/cel_commands.h"
#include "windows/cel/corners.h"
#include "windows/kit/placement.h"
#include "windows/kit/run_window.h"
#include "workspace/folders.h"
#include "workspace/notices.h"
#include "workspace/rescue.h"

namespace nubo {
namespace {

/// What is cut out of the Frame: an area, or of it only a shape.
struct Cut {
    Area area;
    const PixelSet* shape = nullptr;
};

void fill_hole(const Area& area) {
    const bool takes_brush = tool_option(TOOL_MOVE, OPTION_USE_BRUSH_COLOR) != 0;
    const int color = static_cast<int>(takes_brush ? brush_color : mask_color);
    for_each_tile(area, [=](int dx, int dy) {
        const Area hole{area.left + dx, area.top + dy, area.right + dx, area.bottom + dy};
        rectfill(current_frame, hole.left, hole.top, hole.right, hole.bottom, color);
        note_touched(hole);
    });
}

void leave_hole(const Cut& cut) {
    if (cut.shape == nullptr) return fill_hole(cut.area);
    cut.shape->for_each_run([](int x1, int x2, int y) { fill_hole({x1, y, x2, y}); });
}

/// True if it was anchored. Over a Frame that can't be left it goes on floating, but not at the program's end.
bool anchor_or_put_back() {
    for (;;) {
        if (place_cel(false, false) == PLACEMENT_ANCHORED) return true;
        const bool ends = exit_requested != 0;
        if (put_back_what_floats(ends ? BACK_AT_END : BACK_IN_VIEW) || ends) return false;
    }
}

/// On another Frame, undo takes the area off as a whole: then it is the Cel. The hole is a step of its own Frame.
void land(BorrowedCel& area) {
    if (open_step().frame != nullptr) give_step_cel(area.give_back());
    count_step();
    area_floats = 0;
}

/// The disk doesn't let it back: the rescue of its Frame holds it, and undo there while the program runs.
void leave_to_rescue() {
    count_step();
    area_floats = 0;
}

void float_until_it_lands(const Cut& cut, BorrowedCel& area) {
    const int home = frame_index;
    area_floats = 1;
    leave_hole(cut);
    if (anchor_or_put_back()) land(area);
    if (area_floats != 0) return leave_to_rescue();
    rescue_landed_area(slot_of_row(home));
}

}  // namespace

void move_tool(BrushTool) {
    click_points[0] = {pixel_x, pixel_y};
    move_area();
}

void move_area() {
    const ClearedScreen cleared;
    const std::optional<Area> area = ask_corners(click_points[0], grab_prompts);
    if (!area) return;
    BorrowedCel borrowed(copy_of_area(*area), area->left, area->top);
    if (!borrowed) return flash_message(MESSAGE_NO_MEMORY);
    if (take_step()) float_until_it_lands({*area}, borrowed);
}

void move_shape(const PixelSet& shape) {
    const ClearedScreen cleared;
    const Area area = area_in_view(shape);
    BorrowedCel borrowed(cut_out(area, &shape), area.left, area.top, CEL_IS_CUT_OUT);
    if (!borrowed) return flash_message(MESSAGE_NO_MEMORY);
    if (take_step()) float_until_it_lands({area, &shape}, borrowed);
}

}  // namespace nubo
