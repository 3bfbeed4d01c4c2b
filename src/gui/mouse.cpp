#include "gui/mouse.h"

#include "gui/hit_test.h"
#include "platform/input_queue.h"
#include "state/flow.h"
#include "state/gui.h"
#include "state/hotkeys.h"
#include "state/mouse.h"
#include "state/options.h"
#include "state/run.h"
#include "view/view.h"
#include <utility>

namespace nubo {
namespace {

Shared<int> looks = 0, looks_ticked = 0;
Place place_seen;

std::array<Shared<int>*, input_buttons> buttons{&mouse_left, &mouse_right, &mouse_middle};

bool is_button_held() { return mouse_left != 0 || mouse_right != 0 || mouse_middle != 0; }

/// A stroke goes to where the button rose before the button rises.
bool is_release_elsewhere(const InputChange& change) {
    return change.is_button() && !change.down && change.place != place_seen;
}

/// The other flow may not have seen what changed last.
bool is_due(const InputChange& change) { return looks_ticked.acquire() == looks && !is_release_elsewhere(change); }

void put_mouse(Place place) {
    place_seen = place;
    mouse_x = place.x / pixel_scale;
    mouse_y = place.y / pixel_scale;
    view_update_pixel();
    find_hover();
}

/// The first press counts until all buttons that the GUI knows are up: it belongs to what it began on.
void begin_press() {
    press_slot = int{hover_slot};
    press_x = press_start_x = int{mouse_x};
    press_y = press_start_y = int{mouse_y};
    mouse_down = 1;
}

void end_press() {
    press_slot = -1;
    mouse_down = 0;
}

void change_button(const InputChange& change) {
    const bool was_pressed = mouse_left != 0 || mouse_right != 0;
    const bool is_press = !was_pressed && change.down && change.button() < 2;
    if (is_press) begin_press();  // before the button: who sees it down finds where it went down
    buttons[static_cast<std::size_t>(change.button())]->publish(change.down ? 1 : 0);
    if (was_pressed && mouse_left == 0 && mouse_right == 0) end_press();
}

/// The character first: who sees the key down types it.
void change_key(const InputChange& change) {
    const auto code = static_cast<std::size_t>(change.code);
    if (change.down) key_character[code] = change.character;
    key_down[code].publish(change.down ? 1 : 0);
}

/// What came before it has been served, or is being.
void request_exit() {
    if (exit_requested == EXIT_NONE) exit_requested = EXIT_BY_HAND;
}

void take_change(const InputChange& change) {
    if (change.code == input_close)
        request_exit();
    else if (change.is_button())
        change_button(change);
    else
        change_key(change);
    drop_first_change();
    looks.publish(looks + 1);
}

/// A right press has no fixed place: that of its release decides.
void move_right_press() {
    if (mouse_right == 0) return;
    press_x = int{mouse_x};
    press_y = int{mouse_y};
}

}  // namespace

void renew_input() {
    const Place newest = newest_place();
    const InputChange* const change = first_change();
    const bool due = change != nullptr && is_due(*change);
    put_mouse(change != nullptr ? change->place : newest);
    if (due) take_change(*change);
    move_right_press();
}

bool input_waits() {
    const Place newest = newest_place();
    const InputChange* const change = first_change();
    if (change != nullptr) return is_due(*change) || is_release_elsewhere(*change);
    return is_button_held() && newest != place_seen;
}

MouseState GUI_mouse_state() {
    bool primary = mouse_left.acquire() != 0, secondary = mouse_right.acquire() != 0;
    // Only presses on the GUI are reversed: the flags keep the physical buttons, which the tools use.
    if (mouse_reversed != 0) std::swap(primary, secondary);
    if (primary) return MOUSE_PRIMARY;
    return secondary ? MOUSE_SECONDARY : MOUSE_IDLE;
}

int look_number() { return looks.acquire(); }

void look_is_ticked(int number) { looks_ticked.publish(number); }

}  // namespace nubo
