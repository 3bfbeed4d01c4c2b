#include "editor/loop.h"

#include "paint/tools.h"
#include "state/flow.h"
#include "state/gui.h"
#include "state/run.h"
#include "state/stroke.h"
#include "state/view.h"

namespace nubo {
namespace {

void update_while(const Shared<int>& flag) {
    while (flag != 0) update_screen(UPDATE_NORMAL);
}

/// A left press on the frame is a stroke; one that ends with the button still down doesn't start a second.
void serve_left_press() {
    if (mouse_left == 0 || hover != -1) return;
    view_update_pixel();
    run_tool();
    update_while(mouse_left);
}

void run_pass() {
    update_screen(UPDATE_NORMAL);
    check_hotkeys(HOTKEYS_MAIN);
    check_hotkeys(HOTKEYS_MODAL);
    serve_left_press();
    previous_point = {-1, -1};
}

}  // namespace

void program_loop() {
    menu_id = 0;
    while (exit_requested == 0) run_pass();
}

}  // namespace nubo
