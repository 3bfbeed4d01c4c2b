#include "gui/tick.h"

#include "gui/actions.h"
#include "gui/elements.h"
#include "gui/hit_test.h"
#include "gui/mouse.h"
#include "gui/slider_input.h"
#include "gui/text_field.h"
#include "state/mouse.h"
#include "state/run.h"
#include "view/view.h"
#include <algorithm>
#include <allegro.h>
#include <cstdlib>

namespace nubo {
namespace {

// ---- Counters ------------------------------------------------------------------------------------------------------

void count_frames() {
    constexpr int ticks = 70;
    if ((fps_ticks += 1) < ticks) return;
    fps = int{frames_shown};
    frames_shown = fps_ticks = 0;
}

/// A tooltip comes when the mouse has rested on one element for a while.
void time_tooltip() {
    constexpr int ticks_to_show = 50;
    const int candidate = hover;
    if (candidate == -1 || gui::tooltip[at(candidate)] == MESSAGE_NONE) {
        tooltip_element = tooltip_candidate = -1;
        tooltip_ticks = 0;
        return;
    }
    if (tooltip_candidate != candidate) {
        tooltip_element = -1;
        tooltip_candidate = candidate;
        tooltip_ticks = 0;
        return;
    }
    if ((tooltip_ticks += 1) <= ticks_to_show) return;
    tooltip_element = candidate;
    tooltip_ticks = ticks_to_show;
}

void step_pulse() {
    constexpr int start_delay = 30, step = 2, high = 98, low = 2;
    if (pulse_wait < start_delay) {
        pulse_wait += 1;
        return;
    }
    if (pulse_rising != 0) {
        if ((pulse += step) > high) pulse_rising = 0;
    } else if ((pulse -= step) < low) {
        pulse_rising = 1;
    }
}

// ---- Presses -------------------------------------------------------------------------------------------------------

/// A press waits until all buttons have risen, then does what its element says.
void finish_press(MouseState buttons) {
    if (editor_running == 0 || press_state == PRESS_IDLE || buttons != MOUSE_IDLE) return;
    const int action = pending_action, slot = pending_element;
    press_state = PRESS_IDLE;
    pending_action = pending_element = pending_item = 0;
    run_action(action, slot);
}

/// A title that is dragged takes its window along at once, until the button rises.
void lift_dragged_window(MouseState buttons) {
    constexpr int drag_distance = 3;  // logical pixels; a hand that means a click may tremble
    if (press_state != PRESS_WAITING || pending_action != ACTION_DRAG || buttons == MOUSE_IDLE) return;
    if (std::max(std::abs(mouse_x - press_x), std::abs(mouse_y - press_y)) < drag_distance) return;
    pick_up_window(pending_element, HELD_BY_BUTTON);
    pending_action = ACTION_NONE;
}

void begin_press(int slot, int action) {
    press_state = PRESS_WAITING;
    pending_action = action;
    pending_element = slot;
}

/// The action that the buttons down ask of the element, 0 none.
int action_of(int slot, MouseState buttons) {
    if (buttons == MOUSE_PRIMARY) return gui::left_action[at(slot)];
    return buttons == MOUSE_SECONDARY ? int{gui::right_action[at(slot)]} : int{ACTION_NONE};
}

void press_element(int slot, MouseState buttons) {
    if (press_state != PRESS_IDLE || gui_enabled == 0 || !press_began_in_element(slot)) return;
    if (const int action = action_of(slot, buttons); action != ACTION_NONE) begin_press(slot, action);
}

/// The window's loop reads the row; the press only keeps others from beginning until the button is up.
void press_row(int slot, MouseState buttons) {
    if (press_state != PRESS_IDLE || buttons == MOUSE_IDLE || gui::rows[at(slot)] == 0) return;
    if (gui::hover_row[at(slot)] == -1 || press_slot != slot) return;
    if (drag_slider != 0) return;  // a knob in the hand may leave its track
    begin_press(slot, ACTION_ROW);
    pending_item = int{gui::hover_row[at(slot)]};
}

// ---- Slots ---------------------------------------------------------------------------------------------------------

void serve_slider(int slot, MouseState buttons, int wheel) {
    if (wheel != 0 && press_state == PRESS_IDLE && slot_under_wheel() == slot) turn_slider(slot, wheel);
    if (press_state == PRESS_IDLE && buttons == MOUSE_PRIMARY && gui_enabled != 0) press_slider(slot);
}

void serve_slot(int slot, MouseState buttons, int wheel) {
    press_element(slot, buttons);
    if (press_state != PRESS_IDLE || buttons == MOUSE_IDLE) drag_slider = 0;
    if (gui::has_slider[at(slot)] != 0) serve_slider(slot, buttons, wheel);
    press_row(slot, buttons);
}

/// From the top, so that of elements over one another the one on top takes the press.
void serve_slots(MouseState buttons, int wheel) {
    const int focus = key_focus;
    for (int slot = gui_slots - 1; slot >= first_live_slot; --slot) {
        if (gui::active[at(slot)] == 0 || gui::hidden[at(slot)] != 0) continue;
        if (slot == focus) run_text_input(slot);
        if (gui::field_blink[at(slot)] > 0) gui::field_blink[at(slot)] -= 1;
        serve_slot(slot, buttons, wheel);
    }
}

}  // namespace

void GUI_tick() {
    // Without power saving the GUI steps once a picture, however fast the pictures come.
    if (frame_pacing != 0 && power_saving == POWER_OFF && frame_presented.take() == 0) return;
    const int look = look_number();
    if (editor_running != 0) view_tick();
    count_frames();
    time_tooltip();
    step_pulse();
    const MouseState buttons = GUI_mouse_state();
    finish_press(buttons);
    lift_dragged_window(buttons);
    repeat_arrow(buttons != MOUSE_IDLE);
    const int wheel_now = ::mouse_z;
    serve_slots(buttons, wheel_now - last_wheel);
    last_wheel = wheel_now;
    look_is_ticked(look);
}

void cursor_tick() {
    constexpr int phases = 7;
    cursor_phase = (cursor_phase + 1) % phases;
}

}  // namespace nubo
