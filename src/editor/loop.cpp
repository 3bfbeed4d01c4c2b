#include "editor/loop.h"

#include "editor/handlers.h"
#include "gui/presses.h"
#include "gui/window.h"
#include "paint/tools.h"
#include "state/flow.h"
#include "state/gui.h"
#include "state/mouse.h"
#include "state/options.h"
#include "state/run.h"
#include "state/stroke.h"
#include "state/windows.h"
#include "view/view.h"
#include "windows/files/opened_files.h"
#include "windows/frame_roll.h"
#include "windows/history_window.h"
#include "windows/kit/drawing_menu.h"
#include "windows/kit/quick_pan.h"
#include "windows/kit/waiting_boxes.h"

namespace nubo {
namespace {

/// A left press on the frame is a stroke; one that ends with the button still down doesn't start a second.
void serve_left_press() {
    if (!pressed_outside(mouse_left)) return;
    view_update_pixel();
    run_tool();
    wait_while_down(mouse_left);
}

/// A right press on the frame hides the drawing menu, and shows it again.
void serve_right_press() {
    if (right_press_outside()) toggle_window();
}

/// On UNDO it opens the history, elsewhere it pans.
void serve_middle_press() {
    if (mouse_middle == 0) return;
    if (hover != DRAWING_UNDO) return quick_pan();
    wait_while_down(mouse_middle);
    history_window();
}

void run_pass() {
    view_to_frame();
    update_screen(UPDATE_NORMAL);
    keep_GUI_tick_rate();
    check_hotkeys(HOTKEYS_MAIN);
    check_hotkeys(HOTKEYS_MODAL);
    serve_roll_keys();
    serve_middle_press();
    serve_left_press();
    serve_right_press();
    serve_drawing_menu();
    open_handed_files();
    show_waiting_boxes();
    previous_point = no_point;
}

}  // namespace

void program_loop() {
    build_drawing_menu();
    show_waiting_boxes();
    menu_id = WINDOW_DRAWING_MENU;
    while (exit_requested == 0) run_pass();
}

}  // namespace nubo
