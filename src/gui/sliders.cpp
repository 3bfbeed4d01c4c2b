#include "gui/sliders.h"

#include <algorithm>

namespace nubo {
namespace {

SliderPlaces level_places(std::size_t s) {
    const int left = gui::x[s] + gui::slider_ox[s], top = gui::y[s] + gui::slider_oy[s];
    const int track_end =
        gui::slider_len[s] != 0 ? left + gui::slider_len[s] : gui::x[s] + gui::w[s] - 3 - gui::arrow_w[s];
    SliderPlaces places{.arrow1_x = left + 2, .arrow1_y = top + 1, .arrow2_x = track_end + 1, .arrow2_y = top + 1};
    places.first_stop = gui::arrow_w[s] + 3 + left;
    places.stop_step = places.arrow2_x - 2 - gui::knob_rect[s].w - places.arrow1_x - gui::arrow_w[s];
    places.origin = top;
    return places;
}

SliderPlaces upright_places(std::size_t s) {
    const int left = gui::x[s] + gui::slider_ox[s], top = gui::y[s] + gui::slider_oy[s];
    const int track_end =
        gui::slider_len[s] != 0 ? top + gui::slider_len[s] : gui::y[s] + gui::h[s] - 3 - gui::arrow_h[s];
    SliderPlaces places{.arrow1_x = left + 1, .arrow1_y = top + 2, .arrow2_x = left + 1, .arrow2_y = track_end + 1};
    places.first_stop = gui::arrow_h[s] + 2 + top;
    places.stop_step = places.arrow2_y + 1 - gui::knob_rect[s].h - places.arrow1_y - gui::arrow_h[s];
    places.origin = left - 2;
    return places;
}

/// Values to a stop.
double stop_width(std::size_t s) {
    return static_cast<double>(gui::slider_max[s] - gui::slider_min[s]) / std::max<int>(gui::slider_stops[s], 1);
}

}  // namespace

SliderPlaces slider_places(int slot) {
    const std::size_t s = at(slot);
    SliderPlaces places = gui::slider_horizontal[s] != 0 ? level_places(s) : upright_places(s);
    places.stop_step /= std::max(gui::slider_stops[s] - 1, 1);
    return places;
}

int slider_last_stop(int slot) { return std::clamp<int>(gui::slider_stops[at(slot)], 1, slider_stop_max) - 1; }

int slider_stop(int slot) {
    const std::size_t s = at(slot);
    const double width = stop_width(s);
    const int stop = width > 0 ? static_cast<int>((gui::slider_value[s] - gui::slider_min[s]) / width) : 0;
    return std::clamp(stop, 0, slider_last_stop(slot));
}

int slider_value_of_stop(int slot, int stop) {
    const std::size_t s = at(slot);
    if (stop >= gui::slider_stops[s] - 1) return gui::slider_max[s] - 1;
    return gui::slider_min[s] + static_cast<int>(stop_width(s) * stop);
}

void write_sliders() {
    for (std::size_t s = 0; s < gui_slots; ++s) {
        Word* const value = gui::value_write[s];
        if (gui::active[s] != 0 && gui::value_write_on[s] != 0 && value != nullptr) *value = gui::slider_value[s];
    }
}

}  // namespace nubo
