#include "gui/slider_input.h"

#include "gui/hit_test.h"
#include "gui/sliders.h"
#include "state/mouse.h"
#include <algorithm>

namespace nubo {
namespace {

constexpr int first_delay = 21, next_delay = 7;  // ticks to the first step of a held arrow, and from step to step

void set_value(std::size_t s, int value) {
    const int least = gui::slider_min[s];
    gui::slider_value[s] = std::clamp(value, least, std::max(gui::slider_max[s] - 1, least));
}

void step_value(std::size_t s, int state) { set_value(s, gui::slider_value[s] + (state == PRESS_ARROW_1 ? -1 : 1)); }

void press_arrow(int slot, PressState state) {
    press_state = state;
    repeat_ticks = 0;
    repeat_delay = first_delay;
    repeat_slot = slot;
    step_value(at(slot), state);
}

/// From the first stop to the end of the knob on the last one.
bool press_began_on_track(int slot) {
    const std::size_t s = at(slot);
    const SliderPlaces places = slider_places(slot);
    const bool level = gui::slider_horizontal[s] != 0;
    const int along = level ? press_start_x : press_start_y, across = level ? press_start_y : press_start_x;
    const int length = level ? gui::knob_rect[s].w : gui::knob_rect[s].h;
    const int breadth = level ? gui::knob_rect[s].h : gui::knob_rect[s].w;
    return along >= places.first_stop && along < places.stop_at(slider_last_stop(slot)) + length &&
           across >= places.origin && across < places.origin + breadth;
}

/// The last stop before the mouse, which holds the knob near its middle.
void drag_knob(int slot) {
    constexpr int grip = 2;
    const std::size_t s = at(slot);
    const int along = (gui::slider_horizontal[s] != 0 ? mouse_x : mouse_y) - grip;
    const SliderPlaces places = slider_places(slot);
    int stop = slider_last_stop(slot);
    while (stop > 0 && places.stop_at(stop) >= along) --stop;
    gui::slider_value[s] = slider_value_of_stop(slot, stop);
}

}  // namespace

void repeat_arrow(bool button_down) {
    const int state = press_state;
    if (state != PRESS_ARROW_1 && state != PRESS_ARROW_2) return;
    if (!button_down) {
        press_state = PRESS_IDLE;
        return;
    }
    if ((repeat_ticks += 1) <= repeat_delay) return;
    repeat_ticks = 0;
    repeat_delay = next_delay;
    step_value(at(repeat_slot), state);
}

void turn_slider(int slot, int wheel) {
    const std::size_t s = at(slot);
    const int direction = wheel > 0 ? 1 : -1;
    const int step = gui::wheel_step[s] * (gui::slider_horizontal[s] != 0 ? 1 : -1);
    set_value(s, gui::slider_value[s] + direction * step);
}

bool slider_takes_press(int slot) {
    if (gui::has_slider[at(slot)] == 0) return false;
    return press_began_on_track(at(slot)) || arrow_at(slot, press_start_x, press_start_y) != 0;
}

void press_slider(int slot) {
    if (drag_slider == 0) {
        if (press_began_on_track(slot)) {
            drag_slider = slot;
        } else if (const int arrow = arrow_at(slot, press_start_x, press_start_y); arrow != 0) {
            press_arrow(slot, arrow == 1 ? PRESS_ARROW_1 : PRESS_ARROW_2);
        }
    }
    if (drag_slider == slot) drag_knob(slot);
}

}  // namespace nubo
