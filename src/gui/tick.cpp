#include "gui/tick.h"

#include "gui/mouse.h"
#include "state/flow.h"
#include "state/gui.h"
#include "state/run.h"
#include "state/view.h"
#include <allegro.h>

namespace nubo {

void GUI_tick() {
    // Without power saving the GUI steps once a picture, however fast the pictures come.
    if (frame_pacing != 0 && power_saving == POWER_OFF && frame_presented.take() == 0) return;
    if (editor_running != 0) view_tick();
    GUI_mouse_state();
    last_wheel = ::mouse_z;
}

void mouse_tick() {
    mouse_x = ::mouse_x / pixel_scale;
    mouse_y = ::mouse_y / pixel_scale;
}

void cursor_tick() {
    constexpr int phases = 7;
    cursor_phase = (cursor_phase + 1) % phases;
}

}  // namespace nubo
