#pragma once
// The colour window: colourspaces, sliders, swatches, Spectrum, variations and map for choosing one colour.
#include "gui/elements.h"

namespace nubo {

/// Which colour the window edits.
enum ColorTarget : int { EDIT_BRUSH_COLOR = 0, EDIT_MASK_COLOR = 1, EDIT_GIVEN_COLOR = 2 };

enum ColorWindowSlot : int {
    COLOR_SPACE_FIRST = slot_content,  // four, by Colorspace
    COLOR_BRUSH = COLOR_SPACE_FIRST + SPACE_COUNT,
    COLOR_MASK,
    COLOR_SLOT_FIRST,  // ten
    COLOR_FOLD = COLOR_SLOT_FIRST + color_slot_count,
    COLOR_INVERT,
    COLOR_NAME_FIRST,                           // three
    COLOR_SLIDER_FIRST = COLOR_NAME_FIRST + 3,  // three
    COLOR_SPECTRUM = COLOR_SLIDER_FIRST + 3,
    COLOR_CAPTION_HUE,
    COLOR_CAPTION_LIGHT,
    COLOR_CAPTION_SATURATION,
    COLOR_HUE_FIRST,                                  // fourteen, from -7 to 7 without 0
    COLOR_LIGHT_FIRST = COLOR_HUE_FIRST + 14,         // fourteen, from 7 to -7
    COLOR_SATURATION_FIRST = COLOR_LIGHT_FIRST + 14,  // fourteen, from 7 to -7
    COLOR_MAP = COLOR_SATURATION_FIRST + 14,
    COLOR_HEX,  // text field: the colour as six hex digits
    COLOR_SLOTS
};

/// Runs the window until the user leaves it, and returns the colour chosen. `mode` is a ColorTarget: the brush and the
/// mask colour follow while the window is open, `color` is read for EDIT_GIVEN_COLOR only.
Color color_window(int mode, Color color = 0);

}  // namespace nubo
