#include "windows/leaving.h"

#include "gui/presses.h"

namespace nubo {

bool user_leaves_window(Hotkey key) {
    if (right_press_outside()) return true;
    if (!hotkey_held(key)) return false;
    wait_while_held(key);
    return true;
}

}  // namespace nubo
