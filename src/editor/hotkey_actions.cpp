#include "editor/hotkey_actions.h"

#include "gui/presses.h"
#include "state/colors.h"
#include "state/frames.h"
#include "state/run.h"
#include "state/tools.h"
#include "state/view.h"
#include "view/view.h"
#include "windows/colors/color_window.h"
#include "windows/colors/screen_pick.h"
#include "windows/frame_menu.h"
#include "windows/ink_window.h"
#include "windows/resize_window.h"
#include "windows/tool_window.h"
#include "windows/user_menu.h"
#include "workspace/frame_store.h"

namespace nubo {
namespace {

void pan_view(Shared<int>& pan, int direction) {
    pan += direction * pan_step[static_cast<std::size_t>(static_cast<int>(zoom))];
    pan_moved = 1;
}

void pick_color_into(Color& color) {
    const int picked = pick_screen_color(true);
    if (picked != pick_cancelled) color = static_cast<Color>(picked);
}

void go_to_frame(int slot) {
    if (slot != frame_index) fetch_frame(frame_index, slot);
}

/// One Frame alone: nothing happens, and nothing waits for the key.
void go_to_end(int slot, Hotkey key) {
    if (frame_count < 2) return;
    go_to_frame(slot);
    wait_while_held(key);
}

}  // namespace

// ---- View ----------------------------------------------------------------------------------------------------------

void pan_up_by_key() { pan_view(pan_y, -1); }
void pan_down_by_key() { pan_view(pan_y, 1); }
void pan_left_by_key() { pan_view(pan_x, -1); }
void pan_right_by_key() { pan_view(pan_x, 1); }
void zoom_in_by_key() { view_zoom(ZOOM_IN); }
void zoom_out_by_key() { view_zoom(ZOOM_OUT); }

void measure_by_key() {
    if (measure_x != -1 || measure_state != 0) return;
    const int x = pixel_x, y = pixel_y;
    if (x < 0 || y < 0 || x >= frame_w || y >= frame_h) return;
    measure_x = x;
    measure_y = y;
    measure_state = 1;
}

// ---- Frames --------------------------------------------------------------------------------------------------------

void next_frame() { go_to_frame((frame_index + 1) % frame_count); }
void previous_frame() { go_to_frame((frame_index + frame_count - 1) % frame_count); }
void first_frame() { go_to_end(0, HOTKEY_FRAME_FIRST); }
void last_frame() { go_to_end(frame_count - 1, HOTKEY_FRAME_LAST); }

void resize_by_key() {
    wait_while_held(HOTKEY_FRAME_RESIZE);
    resize_window();
}

void delete_frame_by_key() {
    wait_while_held(HOTKEY_FRAME_DELETE);
    ask_to_delete_frame();
}

// ---- Windows and colours -------------------------------------------------------------------------------------------

void pick_brush_color() { pick_color_into(brush_color); }
void pick_mask_color() { pick_color_into(mask_color); }

void color_window_by_key() { color_window(EDIT_BRUSH_COLOR); }
void tool_window_by_key() { tool_window(active_tool_slot); }
void ink_window_by_key() { ink_window(active_ink_slot); }

void exit_by_key() {
    wait_while_held(HOTKEY_EXIT);
    ask_to_quit();
}

void rapid_exit_by_key() {
    wait_while_held(HOTKEY_RAPID_EXIT);
    exit_requested = EXIT_BY_HAND;
}

}  // namespace nubo
