#pragma once
// The elements that show colours by rule: the Spectrum's strip, the variations of a colour, the map of a colourspace.
// What they show is what a press on them takes.
#include "state/colors.h"
#include "state/gui.h"

namespace nubo {

/// The colour of the Spectrum, with the BANDING of the active ink, at a column of a strip `width` pixels wide.
Color spectrum_strip_color(int column, int width);

/// The colour that a press on the Spectrum's strip in `slot` (ELEMENT_SPECTRUM) points at.
Color pressed_spectrum_color(int slot);

/// `color` moved by `steps`, -7 to 7: its hue by 4 a step (ELEMENT_VARIANT_HUE), or its lightness or saturation by 10
/// (ELEMENT_VARIANT_LIGHT, ELEMENT_VARIANT_SAT), each held to 0 to 255.
Color variant_color(ElementType variant, Color color, int steps);

/// The colour that a variant's slot shows: the one in the middle, moved by its steps.
Color variant_color_of(int slot);

/// Sets the two sliders that the plane of the colour map in `map_slot` spans from the place of the press on it.
void map_to_sliders(Colorspace space, int map_slot);

}  // namespace nubo
