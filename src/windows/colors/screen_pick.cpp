#include "windows/colors/screen_pick.h"

#include "gui/waiting.h"
#include "state/colors.h"
#include "state/flow.h"
#include "state/messages.h"
#include "state/overlay.h"
#include "state/run.h"
#include "state/shown.h"
#include <allegro.h>

namespace nubo {
namespace {

int read_screen() {
    constexpr int color_bits = 0xffffff;
    picking_color = 1;
    update_screen(UPDATE_NORMAL);
    picking_color = 0;
    return getpixel(screen_buffer, shown.mouse_x, shown.mouse_y) & color_bits;
}

/// Reads when the button goes down: what the user points at may change under it.
int pick(int prompt) {
    Waiting wait({.prompt = prompt, .hotkeys = HOTKEYS_MODAL});
    HandStep hand = HAND_RESTS;
    while (hand == HAND_RESTS) hand = wait.pass();
    return hand == HAND_LEFT ? read_screen() : pick_cancelled;
}

}  // namespace

int pick_screen_color(bool at_once) { return at_once ? read_screen() : pick(MESSAGE_NONE); }

void pick_spectrum() {
    const int first = pick(MESSAGE_SPECTRUM_START);
    if (first == pick_cancelled) return;
    const int second = pick(MESSAGE_SPECTRUM_END);
    if (second == pick_cancelled) return;
    spectrum_start = static_cast<Color>(first);
    spectrum_end = static_cast<Color>(second);
}

}  // namespace nubo
