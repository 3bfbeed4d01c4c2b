#include "gui/mouse.h"

#include "state/gui.h"
#include "state/options.h"
#include "state/view.h"
#include <allegro.h>
#include <utility>

namespace nubo {
namespace {

/// Notes which element the press began on. `mouse_down` is written once a call: the other flow must not see it cleared
/// in between and take a held press for a new one.
MouseState latch_press(MouseState state) {
    mouse_down = state == MOUSE_IDLE ? 0 : 1;
    if (state == MOUSE_IDLE)
        press_slot = -1;
    else if (press_slot == -1)
        press_slot = hover_slot;
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
    // Only presses on the GUI are reversed: the flags keep the physical buttons, which the tools use.
    if (mouse_reversed != 0) std::swap(primary, secondary);
    return latch_press(primary ? MOUSE_PRIMARY : secondary ? MOUSE_SECONDARY : MOUSE_IDLE);
}

}  // namespace nubo
