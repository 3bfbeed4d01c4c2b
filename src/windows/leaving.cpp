#include "windows/leaving.h"

#include "state/flow.h"
#include "state/gui.h"
#include "state/view.h"

namespace nubo {

void wait_for_hotkey_up(Hotkey key) {
    while (hotkey_held(key)) update_screen(UPDATE_NORMAL);
}

void wait_for_left_up() {
    while (mouse_left != 0) update_screen(UPDATE_NORMAL);
}

bool user_leaves_window(Hotkey key) {
    if (mouse_right != 0 && hover == -1) {
        while (mouse_right != 0) update_screen(UPDATE_NORMAL);
        return true;
    }
    if (!hotkey_held(key)) return false;
    wait_for_hotkey_up(key);
    return true;
}

}  // namespace nubo
