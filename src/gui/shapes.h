#pragma once
// What the elements are drawn of. All draw into `screen_buffer`, at the place of a slot, by the words of the table. For
// the drawers here and those of the rooms above. Main flow only.
#include "gui/elements.h"
#include "state/labels.h"
#include <string_view>

namespace nubo {

// ---- Boxes ---------------------------------------------------------------------------------------------------------

/// As a border: a gray that changes with each update, which shows that the element waits for a pick.
inline constexpr Color border_waiting = 0xffffffff;
/// As a `border_style`.
inline constexpr int border_ants = 2;

/// The rounded box: the fill, and a border with clipped corners or, with `border_ants`, of marching ants.
void GUI_box(int slot, Color fill, Color border);
/// The square box of a window, which reaches one pixel further right and down than a rounded one.
void GUI_square_box(int slot, Color fill, Color border);
/// The dots at the four inner corners of a rounded box, for a picture that would cover them.
void GUI_corner_dots(int slot, Color color);
/// A rectangle of marching ants, both corners included.
void GUI_ants(int x1, int y1, int x2, int y2);

// ---- Text ----------------------------------------------------------------------------------------------------------

/// Characters that a text shows: its colour codes count for nothing.
int shown_length(std::string_view text);
/// One line centred in the element, in the wide font.
void GUI_center_text(int slot, std::string_view text, TextColor color);
void GUI_center_text_of(int slot, TextColor color);
/// What the element says: its own text, or else its label's.
std::string_view text_of(int slot);
/// The text of a label; empty for LABEL_NONE and numbers outside the table.
std::string_view text_of_label(int label);

// ---- Sprites and state ---------------------------------------------------------------------------------------------

/// A sprite of the GUI sheet; nothing without a sheet.
void GUI_sprite(int source_x, int source_y, int w, int h, int x, int y);
/// The mouse is over the element: it is `hover` or, where it is not `hot`, it lies under the mouse.
bool is_lit(int slot);
/// The slot's colour, fill or parameter.
inline Color color_of(int slot) { return static_cast<Color>(static_cast<int>(gui::color[at(slot)])); }

}  // namespace nubo
