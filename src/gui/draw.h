#pragma once
// Drawing the elements: one small function a type, chosen through one table.
#include "state/gui.h"

namespace nubo {

/// Draws every active element that isn't hidden into `screen_buffer`, in ascending order, so that later slots lie over
/// earlier ones, and its slider over it. Main flow only.
void GUI_draw_all();

using ElementDrawer = void (*)(int slot);

/// Names the drawing of a type whose picture needs a room above: the about panel, the file list, the minimap, the
/// anchor preview, the Spectrum, the custom tip, the colour variants and maps, the help text, the zoom preview. Called
/// at start by those rooms; a type without a drawer draws nothing, one that has its own here is a mistake.
void set_element_drawer(ElementType type, ElementDrawer draw);

}  // namespace nubo
