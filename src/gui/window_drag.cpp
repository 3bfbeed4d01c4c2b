#include "gui/window_drag.h"

#include "base/jobs.h"
#include "gui/actions.h"
#include "gui/elements.h"
#include "gui/shapes.h"
#include "state/flow.h"
#include "state/mouse.h"
#include "state/run.h"
#include "state/windows.h"
#include <algorithm>

namespace nubo {
namespace {

/// The place of each slot of the window, from the window's corner.
struct Offset {
    int x = 0, y = 0;
};
using Offsets = std::array<Offset, gui_slots>;

/// The slots of the window: its own and those after it.
struct SlotRange {
    int first = 0, end = 0;
};

SlotRange slots_of(int window) {
    return {window, std::clamp<int>(window + gui::child_count[at(window)], window + 1, gui_slots)};
}

Offsets offsets_of(const SlotRange& slots) {
    Offsets offsets{};
    for (int slot = slots.first; slot < slots.end; ++slot)
        offsets[at(slot)] = {gui::x[at(slot)] - gui::x[at(slots.first)], gui::y[at(slot)] - gui::y[at(slots.first)]};
    return offsets;
}

void place_slots(const SlotRange& slots, const Offsets& offsets, int x, int y) {
    for (int slot = slots.first; slot < slots.end; ++slot) {
        gui::x[at(slot)] = static_cast<std::int16_t>(x + offsets[at(slot)].x);
        gui::y[at(slot)] = static_cast<std::int16_t>(y + offsets[at(slot)].y);
    }
}

/// Where the window goes so that the mouse holds it at the grip and all of it stays on the screen; its border lies
/// one pixel right of and below its size.
Offset held_place(int window, const Offset& grip) {
    const int w = gui::w[at(window)], h = gui::h[at(window)];
    const int x = w < view_w ? std::clamp(mouse_x - grip.x, 0, view_w - 1 - w) : int{gui::x[at(window)]};
    return {x, std::clamp(mouse_y - grip.y, 0, std::max(view_h - 1 - h, 0))};
}

bool is_button_down() { return mouse_left != 0 || mouse_right != 0 || mouse_middle != 0; }

/// The mouse carries the window until the button that holds it rises or, with none held, the next click.
void carry_window(int window, const Offset& grip, WindowHold hold) {
    const SlotRange slots = slots_of(window);
    const Offsets offsets = offsets_of(slots);
    const auto is_held = [=] { return exit_requested == 0 && is_button_down() == (hold == HELD_BY_BUTTON); };
    const auto carry = [&] {
        const Offset place = held_place(window, grip);
        place_slots(slots, offsets, place.x, place.y);
    };
    for (; is_held(); update_screen(UPDATE_NORMAL)) carry();
    carry();  // to where the button rose or the click came
    while (is_button_down() && exit_requested == 0) update_screen(UPDATE_NORMAL);
}

void drag_window(int job_slot) {
    const auto& argument = job::arg[at(job_slot)];
    const int row = argument[0], window = argument[3];
    const Offset grip{argument[1], argument[2]};
    const auto hold = static_cast<WindowHold>(int{argument[4]});
    UA_clear_job(job_slot);
    if (!is_slot(window) || gui::active[at(window)] == 0) return;
    gui_enabled = 0;
    gui::border_style[at(window)] = border_ants;
    carry_window(window, grip, hold);
    if (row >= 0 && row < window_rows) window_pos[at(row)] = {gui::x[at(window)], gui::y[at(window)]};
    gui::border_style[at(window)] = 0;
    gui_enabled = 1;
}

}  // namespace

void install_window_drag() { set_job_handler(JOB_WINDOW_DRAG, drag_window); }

}  // namespace nubo
