// The brush tips in the drawing menu and in the window that chooses one.
#include "framework/text.h"
#include "gui/shapes.h"
#include "state/gui.h"
#include "state/run.h"
#include "state/stroke.h"
#include "windows/kit/draw_elements.h"

namespace nubo {
namespace {

/// Copies a part of a sheet that may not be loaded.
void copy_part(BITMAP* sheet, int source_x, int source_y, int x, int y, int w, int h) {
    if (sheet != nullptr) masked_blit(sheet, screen_buffer, source_x, source_y, x, y, w, h);
}

/// Where the pixels of a tip stand in `tip_sheet`, from its centre.
int tip_part_x(int tip, int dx) {
    return tip == tip_custom ? custom_tip_w / 2 + dx : tip % tip_columns * tip_w + tip_center_x + dx;
}
int tip_part_y(int tip, int dy) {
    return tip == tip_custom ? custom_tip_y + custom_tip_h / 2 + dy : tip / tip_columns * tip_h + tip_center_y + dy;
}

}  // namespace

/// (`source_x`, `source_y`) is its cell.
void draw_tip_cell(int slot) {
    constexpr int inset = 2;
    const std::size_t s = at(slot);
    GUI_box(slot, color_of(slot), gui::tip[at(slot)] == brush_tip ? ui_highlight_fore : ui_border);
    copy_part(tip_sheet, gui::source_x[s], gui::source_y[s], gui::x[s] + inset, gui::y[s] + inset, tip_w, tip_h);
}

void draw_custom_tip(int slot) {
    constexpr int scale = 2, picture_dx = 10, picture_dy = 6, caption_dx = 8, caption_dy = 40;
    GUI_box(slot, color_of(slot), ui_border);
    const int x = gui::x[at(slot)], y = gui::y[at(slot)];
    if (tip_sheet != nullptr)
        masked_stretch_blit(tip_sheet, screen_buffer, 0, custom_tip_y, custom_tip_w, custom_tip_h, x + picture_dx,
                            y + picture_dy, custom_tip_w * scale, custom_tip_h * scale);
    set_font(FONT_WIDE, TEXT_LIGHT);
    UA_text(screen_buffer, x + caption_dx, y + caption_dy, "CUSTOM");
}

/// The middle of the tip in use.
void draw_tip_button(int slot) {
    constexpr int part_w = 9, part_h = 7, dx = 6, dy = 1;
    GUI_box(slot, color_of(slot), ui_border);
    if (brush_tip >= 0 && brush_tip <= tip_custom)
        copy_part(tip_sheet, tip_part_x(brush_tip, -part_w / 2), tip_part_y(brush_tip, -part_h / 2),
                  gui::x[at(slot)] + dx, gui::y[at(slot)] + dy, part_w, part_h);
    GUI_corner_dots(slot, ui_border);
}

}  // namespace nubo
