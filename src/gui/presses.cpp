#include "gui/presses.h"

#include "base/keys.h"
#include "gui/elements.h"
#include "gui/slider_input.h"
#include "state/flow.h"
#include "state/mouse.h"
#include "state/run.h"

namespace nubo {

void wait_while_down(const Shared<int>& button) {
    while (button != 0 && exit_requested == 0) update_screen(UPDATE_NORMAL);
}

void wait_while_held(Hotkey action) {
    while (hotkey_held(action) && exit_requested == 0) update_screen(UPDATE_NORMAL);
}

bool pressed_outside(const Shared<int>& button) { return button != 0 && press_slot == -1; }

bool hand_has_moved() {
    constexpr int trembling = 3;
    const int dx = mouse_x - press_start_x, dy = mouse_y - press_start_y;
    return dx * dx + dy * dy > trembling * trembling;
}

bool right_press_outside() {
    if (!pressed_outside(mouse_right)) return false;
    wait_while_down(mouse_right);
    return true;
}

int pressed_row(int list) {
    const bool pressed = mouse_left != 0 && press_slot == list && hover == list && !slider_takes_press(list);
    return pressed ? int{gui::hover_row[at(list)]} : -1;
}

void clear_clicks() {
    for (auto& click : gui::click) click = 0;
}

}  // namespace nubo
