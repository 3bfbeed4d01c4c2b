#include "windows/screen_pick.h"

#include "gui/presses.h"
#include "gui/prompt.h"
#include "state/colors.h"
#include "state/gui.h"
#include "state/messages.h"
#include "state/run.h"
#include "state/view.h"
#include <allegro.h>

namespace nubo {
namespace {

/// As long as it lives the GUI accepts no press, and none is left over when it goes.
class PressesIgnored {
public:
    PressesIgnored() { gui_enabled = 0; }
    ~PressesIgnored() {
        clear_clicks();
        gui_enabled = 1;
    }
    PressesIgnored(const PressesIgnored&) = delete;
    PressesIgnored& operator=(const PressesIgnored&) = delete;
};

int read_screen() {
    constexpr int color_bits = 0xffffff;
    picking_color = 1;
    update_screen(UPDATE_NORMAL);
    picking_color = 0;
    return getpixel(screen_buffer, shown.mouse_x, shown.mouse_y) & color_bits;
}

/// The prompt stays on the screen until the colour is picked.
int pick_with_prompt(Message prompt) {
    const Prompt shown_meanwhile(prompt);
    return pick_screen_color(false);
}

}  // namespace

int pick_screen_color(bool at_once) {
    if (at_once) return read_screen();
    const PressesIgnored ignored;
    int color = pick_cancelled;
    while (exit_requested == 0) {
        update_screen(UPDATE_NORMAL);
        check_hotkeys(HOTKEYS_MODAL);
        if (mouse_left != 0) color = read_screen();
        if (mouse_left != 0 || mouse_right != 0) break;
    }
    wait_while_down(mouse_left);
    wait_while_down(mouse_right);
    return color;
}

void pick_spectrum() {
    const int first = pick_with_prompt(MESSAGE_SPECTRUM_START);
    if (first == pick_cancelled) return;
    const int second = pick_with_prompt(MESSAGE_SPECTRUM_END);
    if (second == pick_cancelled) return;
    spectrum_start = static_cast<Color>(first);
    spectrum_end = static_cast<Color>(second);
}

}  // namespace nubo
