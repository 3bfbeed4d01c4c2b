#include "windows/cel/cel_commands.h"

#include "paint/tool_preview.h"
#include "paint/tools.h"
#include "state/flow.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "state/shown.h"
#include "windows/cel/corners.h"
#include "windows/kit/confirm_box.h"
#include "windows/kit/over_frame.h"
#include "windows/kit/placement.h"
#include "windows/kit/run_window.h"
#include "workspace/notices.h"
#include <optional>
#include <utility>

namespace nubo {
namespace {

bool take_told(const Area& area) {
    if (take_area(area)) return true;
    flash_message(MESSAGE_NO_MEMORY);
    return false;
}

constinit Area outlined{};

void draw_outline() {
    preview_rect(overlay, outlined.left - shown.pan_x, outlined.top - shown.pan_y, outlined.right - shown.pan_x,
                 outlined.bottom - shown.pan_y);
}

void outline_for_a_moment(const Area& area) {
    constexpr int shown_ticks = 300;  // 0.6 seconds
    outlined = area;
    const OverlayShown overlay_shown(draw_outline);
    const int start = UA_clock_ticks;
    while (UA_clock_ticks - start < shown_ticks && exit_requested == 0) update_screen(UPDATE_NORMAL);
}

}  // namespace

int grab_cel(int x, int y, bool hide_menu) {
    std::optional<ClearedScreen> cleared;
    if (hide_menu) cleared.emplace();
    const std::optional<Area> area = ask_corners({x, y}, grab_prompts);
    if (!area || !take_told(*area)) return -1;
    cel_x = area->left;
    cel_y = area->top;
    return 1;
}

void clip_cel(unsigned background) {
    constexpr int side_min = 2;
    const std::optional<Area> area = content_area(current_frame, background, opt_cel_tolerance);
    if (!area || area->width() < side_min || area->height() < side_min || !take_told(*area)) return;
    outline_for_a_moment(*area);
}

void ask_to_convert_cel() {
    if (confirm(LABEL_CONVERT_CEL, LABEL_CANNOT_BE_UNDONE)) one_color_cel(mask_color);
}

void get_by_menu() { grab_cel(no_corner.x, no_corner.y, true); }
void clip_by_menu() { clip_cel(mask_color); }
void paste_by_menu() { place_cel(true, true); }
void paste_by_key() { run_over_shadow(paste_by_menu); }
void below_by_key() { run_over_shadow(place_below); }

void register_cel_commands() { set_tool_runner(TOOL_MOVE, move_tool); }

}  // namespace nubo
