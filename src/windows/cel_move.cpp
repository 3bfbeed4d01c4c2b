// The MOVE tool: an area is cut out of the Frame and floats until it is anchored. Meanwhile it is nowhere but in the
// Cel, so each way out either anchors it or puts it back.
#include "paint/cel_pixels.h"
#include "paint/undo.h"
#include "state/frames.h"
#include "state/run.h"
#include "state/stroke.h"
#include "windows/cel_commands.h"
#include "windows/corners.h"
#include "windows/placement.h"
#include "windows/run_window.h"
#include "workspace/folders.h"
#include "workspace/frame_store.h"
#include "workspace/notices.h"
#include "workspace/rescue.h"
#include <utility>

namespace nubo {
namespace {

struct Cut {
    Area area;
    int slot;  // of the Frame that it was cut out of
};

void leave_hole(const Area& area) {
    const bool takes_brush = tool_option(TOOL_MOVE, OPTION_USE_BRUSH_COLOR) != 0;
    rectfill(current_frame, area.left, area.top, area.right, area.bottom,
             static_cast<int>(takes_brush ? brush_color : mask_color));
}

/// Into the hole it came from, also if the user has gone on to another Frame. False if that one can't be left.
bool put_back(const Cut& cut) {
    const bool was_left = frame_index != cut.slot;
    if (was_left && !fetch_frame(frame_index, cut.slot)) return false;
    blit(cel_mask, current_frame, 0, 0, cut.area.left, cut.area.top, cel_mask->w, cel_mask->h);
    if (!was_left) drop_undo();
    return true;
}

void float_until_it_lands(const Cut& cut) {
    area_floats = 1;
    leave_hole(cut.area);
    while (place_cel(false, false) == PLACEMENT_LEFT && !put_back(cut))
        if (exit_requested != 0) break;
    area_floats = 0;
    rescue_landed_area(workspace_folder(), cut.slot);
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
    const BorrowedCel borrowed(copy_of_area(*area), area->left, area->top);
    if (!borrowed) return flash_message(MESSAGE_NO_MEMORY);
    if (save_undo(false)) float_until_it_lands({*area, frame_index});
}

}  // namespace nubo
