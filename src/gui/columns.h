#pragma once
// Columns of the element table that mean something of their own for a type of element, by what they mean there. Who
// writes and reads which column is told in docs/elements.md.
#include "gui/elements.h"

namespace nubo {

// ---- `color` -------------------------------------------------------------------------------------------------------

/// ELEMENT_TEXT, ELEMENT_CAPTION: a TextColor.
inline Word& text_color_of(int slot) { return gui::color[at(slot)]; }
/// ELEMENT_THUMBNAIL: the number of the Frame, -1 none.
inline Word& thumbnail_frame_of(int slot) { return gui::color[at(slot)]; }

// ---- `label` -------------------------------------------------------------------------------------------------------

/// ELEMENT_HOTKEY: the key value that it names.
inline Word& key_value_of(int slot) { return gui::label[at(slot)]; }
/// ELEMENT_DESCRIPTION: the number of the description that it shows.
inline Word& description_of(int slot) { return gui::label[at(slot)]; }
/// ELEMENT_HELP_TEXT: the index in `help_text`.
inline Word& help_topic_of(int slot) { return gui::label[at(slot)]; }
/// ELEMENT_VARIANT_...: the steps from the colour in the middle, -7 to 7.
inline Word& variant_steps_of(int slot) { return gui::label[at(slot)]; }

// ---- `row_values` --------------------------------------------------------------------------------------------------

/// ACTION_RADIO: the slots of the group's other buttons, 0 none.
inline constexpr int radio_others = 3;
inline Word& radio_other_of(int slot, int index) { return gui::row_values[at(slot)][at(index)]; }
/// ELEMENT_SPECTRUM: the colour of its border.
inline Word& border_color_of(int slot) { return gui::row_values[at(slot)][0]; }
/// ELEMENT_VARIANT_...: the colour in the middle.
inline Word& variant_middle_of(int slot) { return gui::row_values[at(slot)][0]; }

// ---- `aux` ---------------------------------------------------------------------------------------------------------

inline Short& parameter_of(int slot, int index) { return gui::aux[at(slot * gui::aux_parameters + index)]; }
/// ELEMENT_LIST: the entry that stands out from the others, -1 none.
inline Short& marked_entry_of(int slot) { return parameter_of(slot, 0); }
/// ELEMENT_MAP_...: the slots of the three sliders.
inline Short& map_slider_of(int slot, int index) { return parameter_of(slot, index); }

}  // namespace nubo
