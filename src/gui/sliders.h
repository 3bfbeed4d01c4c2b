#pragma once
// The arithmetic of sliders, for drawing them and for the mouse on them alike.
#include "gui/elements.h"

namespace nubo {

// ---- Sliders -------------------------------------------------------------------------------------------------------

/// The places that follow from a slider's element, for the picture and the hand alike: its arrows, and the stops of its
/// knob along the track.
struct SliderPlaces {
    int arrow1_x = 0, arrow1_y = 0, arrow2_x = 0, arrow2_y = 0;
    int first_stop = 0;    // screen position of stop 0
    double stop_step = 0;  // from stop to stop, not yet truncated
    int origin = 0;        // across the track
    int stop_at(int stop) const { return first_stop + static_cast<int>(stop_step * stop); }
};
SliderPlaces slider_places(int slot);

/// The number of the last stop.
int slider_last_stop(int slot);

/// The stop at which the knob sits.
int slider_stop(int slot);

/// The value of a stop; the last one gives the largest value.
int slider_value_of_stop(int slot, int stop);

/// Copies the value of each slider into the word that it sets. By `update_screen`: on the main flow, which also links
/// and clears sliders, so that none that is being closed, and no value that was just put back, is written over.
void write_sliders();

}  // namespace nubo
