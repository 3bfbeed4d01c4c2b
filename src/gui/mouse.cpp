#include "gui/mouse.h"

#include "state/gui.h"
#include "state/options.h"
#include "state/view.h"
#include <allegro.h>
#include <utility>

namespace nubo {
namespace {

/// Which slot the press began on: the first one counts until all buttons are up.
MouseState latch_press(MouseState state) {
    if (press_slot == -1) press_slot = int{hover_slot};
    return state;
}

}  // namespace

MouseState GUI_mouse_state() {
    const int buttons = ::mouse_b;
    bool primary = (buttons & 1) != 0, secondary = (buttons & 2) != 0;
    mouse_left = primary ? 1 : 0;
    mouse_right = secondary ? 1 : 0;
    mouse_middle = (buttons & 4) != 0 ? 1 : 0;
    if (secondary || (primary && mouse_down == 0)) {
        press_x = mouse_x;
        press_y = mouse_y;
    }
    mouse_down = primary || secondary ? 1 : 0;  // written once: the other flow must not take the press for a new one
    // Only presses on the GUI are reversed: the flags keep the physical buttons, which the tools use.
    if (mouse_reversed != 0) std::swap(primary, secondary);
    if (primary) return latch_press(MOUSE_PRIMARY);
    if (secondary) return latch_press(MOUSE_SECONDARY);
    press_slot = -1;
    return MOUSE_IDLE;
}

}  // namespace nubo
