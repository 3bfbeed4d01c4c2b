#include "gui/presses.h"

#include "state/gui.h"
#include "state/view.h"

namespace nubo {

void wait_while_down(const Shared<int>& button) {
    while (button != 0) update_screen(UPDATE_NORMAL);
}

void wait_while_held(Hotkey action) {
    while (hotkey_held(action)) update_screen(UPDATE_NORMAL);
}

bool pressed_outside(const Shared<int>& button) { return button != 0 && hover == -1 && press_slot == -1; }

bool right_press_outside() {
    if (!pressed_outside(mouse_right)) return false;
    wait_while_down(mouse_right);
    return true;
}

void clear_clicks() {
    for (auto& click : gui::click) click = 0;
}

}  // namespace nubo
