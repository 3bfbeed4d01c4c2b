#include "gui/waiting.h"

#include "base/keys.h"
#include "gui/presses.h"
#include "state/flow.h"
#include "state/hotkeys.h"
#include "state/mouse.h"
#include "state/run.h"
#include "state/view.h"
#include <algorithm>
#include <allegro.h>

namespace nubo {
namespace {

/// The key belongs to GET at the start, which no window and no tool hears.
bool escape_is_mapped() {
    const auto has_escape = [](const auto& keys) {
        return std::any_of(keys.begin(), keys.end(), [](const Shared<int>& key) { return key == KEY_ESC; });
    };
    for (int row = 0; row < hotkey_rows; ++row)
        if (row != HOTKEY_CEL_GET && has_escape(hotkeys[static_cast<std::size_t>(row)])) return true;
    return false;
}

bool escape_is_down() { return key_down[KEY_ESC] != 0; }

bool has_left = false;  // by ESC, lately
int left_at = 0;        // `UA_clock_ticks`

void wait_for_release() {
    wait_while_down(mouse_left);
    wait_while_down(mouse_right);
}

}  // namespace

bool Escape::asked() {
    if (exit_requested != 0) return true;
    if (!escape_is_down() || escape_is_mapped()) {
        armed_ = true;
        return false;
    }
    if (!armed_) return false;
    while (escape_is_down() && exit_requested == 0) update_screen(UPDATE_NORMAL);
    has_left = true;
    left_at = UA_clock_ticks;
    return true;
}

bool escape_rests() {
    constexpr int rest = clock_hz / 2;
    if (has_left && UA_clock_ticks - left_at >= rest && !escape_is_down()) has_left = false;
    return has_left;
}

Waiting::Waiting(const WaitRow& row) : row_(row), live_before_(first_live_slot), prompt_(row.prompt) {
    first_live_slot = row.first_live_slot;
}

Waiting::~Waiting() {
    wait_for_release();
    clear_clicks();
    first_live_slot = live_before_;
}

HandStep Waiting::pass() {
    if (press_slot == -1) wait_for_release();  // a press on a live element is that one's, which is followed meanwhile
    prompt_.keep(row_.prompt);
    update_screen(UPDATE_NORMAL);
    if (row_.hotkeys != no_hotkeys) check_hotkeys(row_.hotkeys);
    if (escape_.asked()) return HAND_ESCAPES;
    const bool left = pressed_outside(mouse_left), right = pressed_outside(mouse_right);
    if (left == right) return HAND_RESTS;
    if (right) return HAND_RIGHT;
    point_ = {pixel_x, pixel_y};
    shift_ = shift_is_down();
    return HAND_LEFT;
}

HandStep Waiting::held_pass() {
    prompt_.keep(row_.prompt);
    update_screen(UPDATE_NORMAL);
    if (escape_.asked()) return HAND_ESCAPES;
    return mouse_left != 0 ? HAND_LEFT : HAND_RESTS;
}

bool Waiting::for_click() {
    for (;;) {
        const HandStep hand = pass();
        if (hand == HAND_RESTS) continue;
        wait_for_release();
        return hand == HAND_LEFT && exit_requested == 0;
    }
}

}  // namespace nubo
