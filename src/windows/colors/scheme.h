#pragma once
// The ColorScheme at work: the interface's colours, text colours and sprites, all painted from ten colours. Main flow
// only.
#include "gui/elements.h"

namespace nubo {

/// The slots of the scheme window in which the ten swatches stand, in the order of `SchemeColor`.
inline constexpr int scheme_swatch_first = slot_content + SCHEME_COUNT;

/// The text colour of folders in a list: the dark form of TEXT LIGHT ALT, or on a dark ground, which bears no dark
/// text, that colour itself.
Color scheme_folder_color(const Scheme& scheme);

/// Between which of its three homes the scheme is carried.
enum SchemeCarry : int {
    SCHEME_FROM_SWATCHES,  // the window's swatches to `color_scheme` and the text colours of the preview
    SCHEME_TO_INTERFACE,   // `color_scheme` to the interface's colours and text colours
    SCHEME_TO_SWATCHES     // `color_scheme` to the window's swatches
};
/// Any other mode does nothing. The sprites follow by `recolor_gui_sheet`.
void apply_scheme(int mode);

/// The whole interface takes the colours of `color_scheme`: colours, text colours, sprites. What stands on the screen
/// keeps the old ones till it is built again.
void wear_scheme();

/// Paints the sprites of `gui_sheet` that follow the scheme, and the text colour of the values beside slider knobs.
/// `background2` is the ground of what is lit. A sheet that is missing or too small is left alone.
void recolor_gui_sheet(Color background, Color border, Color shadow, Color background2);

}  // namespace nubo
