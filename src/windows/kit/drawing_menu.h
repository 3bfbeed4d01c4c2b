#pragma once
// The drawing menu: the bar with tools, inks, colours and the buttons of the activity menus. Main flow only.
#include "gui/elements.h"

namespace nubo {

enum DrawingMenuSlot : int {
    DRAWING_FRAME = slot_content,
    DRAWING_UNDO,
    DRAWING_TOOL_FIRST,  // six
    DRAWING_INK_FIRST = 10,
    DRAWING_PIC = 16,
    DRAWING_CEL,
    DRAWING_USER,
    DRAWING_MASK,
    DRAWING_BRUSH,
    DRAWING_TIP,
    DRAWING_SPECTRUM,
    DRAWING_COLOR_FIRST,  // ten
    DRAWING_SLOTS = 33
};

/// Fills the slots of the drawing menu, where it was left; `menu_id` becomes 0. It comes back behind all that
/// `run_window` runs.
void build_drawing_menu();

/// Reads and clears the clicks on the drawing menu, and runs what they ask for. By `program_loop` in each pass.
void serve_drawing_menu();

}  // namespace nubo
