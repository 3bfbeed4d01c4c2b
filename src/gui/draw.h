#pragma once
// Drawing the elements: one small function a type, chosen through one table.
#include "state/gui.h"
#include <span>

namespace nubo {

/// Draws every active element that isn't hidden into `screen_buffer`, in ascending order, so that later slots lie over
/// earlier ones, and its slider over it. Main flow only.
void GUI_draw_all();

using ElementDrawer = void (*)(int slot);
struct DrawerRow {
    ElementType type;
    ElementDrawer draw;
};

/// Hands over the drawers of all types that show something of the editor. Once, at start. A type without a drawer draws
/// nothing; one that the toolkit draws itself is a mistake here.
void set_element_drawers(std::span<const DrawerRow> rows);

}  // namespace nubo
