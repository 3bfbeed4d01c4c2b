// What the buttons of the drawing menu do.
#include "gui/window.h"
#include "state/flow.h"
#include "state/mouse.h"
#include "state/overlay.h"
#include "state/run.h"
#include "windows/colors/color_window.h"
#include "windows/colors/screen_pick.h"
#include "windows/favorites_window.h"
#include "windows/ink_window.h"
#include "windows/kit/activity_menus.h"
#include "windows/kit/choice_slots.h"
#include "windows/kit/drawing_menu.h"
#include "windows/pic_commands.h"
#include "windows/tip_window.h"
#include "windows/tool_window.h"
#include <allegro.h>

namespace nubo {
namespace {

// ---- What a click does, by the slot that took it -------------------------------------------------------------------

template <void (*menu)(int x, int y)> void open_menu(int slot) { menu(gui::x[at(slot)], gui::y[at(slot)]); }

void undo(int) { undo_by_user(); }
void redo(int) { redo_by_user(); }

void take_mask_color(int) { brush_color = mask_color; }
void keep_brush_color(int) {}
void take_slot_color(int slot) { brush_color = color_slots[at(slot - DRAWING_COLOR_FIRST)]; }

/// What the user sees there: the pixel of a picture without cursor and crosshairs.
void take_spectrum_color(int) {
    picking_color = 1;
    update_screen(UPDATE_NORMAL);
    picking_color = 0;
    constexpr int color_bits = 0xffffff;
    brush_color = static_cast<Color>(getpixel(screen_buffer, mouse_x, mouse_y) & color_bits);
}

void edit_mask_color(int) { color_window(EDIT_MASK_COLOR); }
void edit_brush_color(int) { color_window(EDIT_BRUSH_COLOR); }
void pick_spectrum_ends(int) { pick_spectrum(); }

void open_tips(int) { tip_window(); }
void open_favorites(int) { favorites_window(); }

void activate_tool(int slot) {
    active_tool_slot = slot - DRAWING_TOOL_FIRST;
    show_choice_slots(DRAWING_TOOL_FIRST, LABEL_TOOL_FIRST, tool_slots, active_tool_slot);
}
void edit_tool(int slot) { tool_window(slot - DRAWING_TOOL_FIRST); }

void activate_ink(int slot) {
    active_ink_slot = slot - DRAWING_INK_FIRST;
    show_choice_slots(DRAWING_INK_FIRST, LABEL_INK_FIRST, ink_slots, active_ink_slot);
}
void edit_ink(int slot) { ink_window(slot - DRAWING_INK_FIRST); }

// ---- The table, in the order in which clicks are served ------------------------------------------------------------

struct ClickRow {
    int first, count;
    void (*left)(int slot);
    void (*right)(int slot);  // null: the button takes no right press
};
constexpr ClickRow click_rows[] = {
    {DRAWING_FRAME, 1, open_menu<frame_menu>, nullptr},
    {DRAWING_UNDO, 1, undo, redo},
    {DRAWING_PIC, 1, open_menu<pic_menu>, nullptr},
    {DRAWING_CEL, 1, open_menu<cel_menu>, nullptr},
    {DRAWING_USER, 1, open_menu<user_menu>, nullptr},
    {DRAWING_MASK, 1, take_mask_color, edit_mask_color},
    {DRAWING_BRUSH, 1, keep_brush_color, edit_brush_color},
    {DRAWING_TIP, 1, open_tips, open_tips},
    {DRAWING_SPECTRUM, 1, take_spectrum_color, pick_spectrum_ends},
    {DRAWING_COLOR_FIRST, color_slot_count, take_slot_color, open_favorites},
    {DRAWING_TOOL_FIRST, choice_slots, activate_tool, edit_tool},
    {DRAWING_INK_FIRST, choice_slots, activate_ink, edit_ink},
};

void serve_slot(const ClickRow& row, int slot) {
    const int click = take_click(slot);
    if (click > 0) row.left(slot);
    if (click == click_right && row.right != nullptr) row.right(slot);
}

}  // namespace

void serve_drawing_menu() {
    for (const ClickRow& row : click_rows)
        for (int slot = row.first; slot < row.first + row.count; ++slot) serve_slot(row, slot);
}

}  // namespace nubo
