#include "gui/hit_test.h"

#include "gui/sliders.h"
#include "state/mouse.h"

namespace nubo {
namespace {

bool is_inside(int x, int y, int left, int top, int w, int h) {
    return x >= left && x < left + w && y >= top && y < top + h;
}

bool is_shown(int slot) { return gui::active[at(slot)] != 0 && gui::hidden[at(slot)] == 0; }

/// In the slot's rectangle, less its last column and row.
bool takes_press_at(int slot, int x, int y) {
    const std::size_t s = at(slot);
    return is_inside(x, y, gui::x[s], gui::y[s], gui::w[s] - 1, gui::h[s] - 1);
}

/// Of the elements from `first` on that under the mouse which lies over all others: the highest slot. An arrow of a
/// slider ends the search.
int topmost_under_mouse(int first) {
    int found = -1;
    for (int slot = first; slot < gui_slots; ++slot) {
        if (!is_shown(slot)) continue;
        if (gui::has_slider[at(slot)] != 0 && arrow_at(slot, mouse_x, mouse_y) != 0) return slot;
        if (gui::hot[at(slot)] != 0 && mouse_in_element(slot)) found = slot;
    }
    return found;
}

bool mouse_in_row(std::size_t s, int row) {
    const int left = gui::x[s] + gui::row_left[s] + 2;
    int right = gui::x[s] + gui::row_left[s] + gui::w[s] - 3;
    if (gui::row_w[s] > 0) right -= gui::w[s] - gui::row_w[s];
    if (gui::row_w[s] < 0) right = gui::x[s] + gui::slider_ox[s] - 3;
    const int top = gui::y[s] + gui::row_top[s] + row * gui::row_h[s];
    return mouse_x >= left && mouse_x <= right && mouse_y >= top && mouse_y <= top + gui::row_h[s] + 1;
}

/// The last row whose rectangle holds the mouse, for those of neighbours overlap; -1 none, as in all that is no list.
int row_under_mouse(int list) {
    const std::size_t s = at(list);
    int found = -1;
    for (int row = 0; row < gui::rows[s]; ++row) {
        const int entry = row + gui::slider_value[s];
        const bool filled_row = entry >= 0 && entry < list_row_max && gui::row_ids[s][at(entry)] != 0;
        if (filled_row && mouse_in_row(s, row)) found = row;
    }
    return found;
}

}  // namespace

bool mouse_in_element(int slot) { return takes_press_at(slot, mouse_x, mouse_y); }

bool mouse_over_elements() { return topmost_under_mouse(0) != -1; }

bool press_began_in_element(int slot) { return takes_press_at(slot, press_start_x, press_start_y); }

int slot_under_wheel() {
    for (int slot = hover - 1; slot >= first_live_slot; --slot)
        if (is_shown(slot) && gui::rows[at(slot)] != 0 && gui::has_slider[at(slot)] != 0 && mouse_in_element(slot))
            return slot;
    return hover;
}

bool press_in_element(int slot) {
    const std::size_t s = at(slot);
    return is_inside(press_x, press_y, gui::x[s], gui::y[s], gui::w[s], gui::h[s]);
}

int arrow_at(int slot, int x, int y) {
    constexpr int area_w = 14, area_h = 12;
    const SliderPlaces places = slider_places(slot);
    if (is_inside(x, y, places.arrow1_x, places.arrow1_y, area_w, area_h)) return 1;
    return is_inside(x, y, places.arrow2_x, places.arrow2_y, area_w, area_h) ? 2 : 0;
}

void find_hover() {
    // Found first and written once: the other flow must not meet a -1 in between.
    const int found = topmost_under_mouse(first_live_slot);
    for (int slot = 0; slot < gui_slots; ++slot)
        if (slot != found) gui::hover_row[at(slot)] = -1;
    if (found != -1) gui::hover_row[at(found)] = static_cast<std::int16_t>(row_under_mouse(found));
    hover = found;
    hover_slot = found;
}

}  // namespace nubo
