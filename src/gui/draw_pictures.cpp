// Boxes without text, swatches, and the elements that show pixels of the program's sheets.
#include "codecs/blend.h"
#include "framework/text.h"
#include "gui/draw_elements.h"
#include "gui/shapes.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "state/stroke.h"
#include <array>
#include <cstdio>

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

// ---- Boxes ---------------------------------------------------------------------------------------------------------

void draw_box(int slot) { GUI_box(slot, color_of(slot), ui_border); }

void draw_window(int slot) {
    if (opt_backless == 0) GUI_square_box(slot, color_of(slot), ui_border);
    if (gui::border_style[at(slot)] != border_ants) return;
    const int x = gui::x[at(slot)], y = gui::y[at(slot)];
    GUI_ants(x, y, x + gui::w[at(slot)], y + gui::h[at(slot)]);
}

void draw_failure_box(int slot) { GUI_box(slot, fixed_black, ui_red); }

/// `row_ids[0]` in percent.
void draw_progress(int slot) {
    constexpr int bar_h = 7;
    GUI_box(slot, color_of(slot), ui_border);
    const int x = gui::x[at(slot)] + 1, y = gui::y[at(slot)] + 1;
    const int width = static_cast<int>((gui::w[at(slot)] - 2) / 100.0 * gui::row_ids[at(slot)][0]);
    if (width > 0) rectfill(screen_buffer, x, y, x + width - 1, y + bar_h - 1, static_cast<int>(ui_highlight_fore));
    GUI_corner_dots(slot, ui_border);
}

// ---- Swatches ------------------------------------------------------------------------------------------------------

void draw_swatch(int slot) {
    GUI_box(slot, color_of(slot), color_of(slot) == brush_color ? ui_highlight_fore : ui_border);
}

void draw_swatch_wait(int slot) { GUI_box(slot, color_of(slot), border_waiting); }

void draw_swatch_brush(int slot) { GUI_box(slot, brush_color, ui_border); }

/// With a small mark, by which it is told from the swatch of the brush.
void draw_swatch_mask(int slot) {
    GUI_box(slot, mask_color, ui_border);
    constexpr int mark_w = 4, mark_h = 5, mark_dx = 15, mark_dy = 2;
    const int left = gui::x[at(slot)] + mark_dx, top = gui::y[at(slot)] + mark_dy;
    const int right = left + mark_w - 1, bottom = top + mark_h - 1;
    rect(screen_buffer, left, top, right, bottom, static_cast<int>(fixed_black));
    for (const int x : {left, right})
        for (const int y : {top, bottom}) putpixel(screen_buffer, x, y, static_cast<int>(fixed_light));
}

// ---- Pictures ------------------------------------------------------------------------------------------------------

void draw_preview(int slot) {
    GUI_box(slot, color_of(slot), ui_border);
    if (preview_bitmap != nullptr)
        blit(preview_bitmap, screen_buffer, 0, 0, gui::x[at(slot)] + 1, gui::y[at(slot)] + 1, preview_w, preview_h);
    GUI_corner_dots(slot, ui_border);
}

/// The frame whose number is `color`, -1 none.
void draw_thumbnail(int slot) {
    constexpr int current_slot = 17;  // of the frame jump view: the frame in the middle, the current one
    const int frame = gui::color[at(slot)];
    if (frame < 0 || frame >= frame_slots) {
        GUI_box(slot, fixed_black, ui_shadow);
        return;
    }
    const Color border = slot == current_slot ? ui_red : ui_border;
    const int x = gui::x[at(slot)], y = gui::y[at(slot)];
    GUI_box(slot, fixed_black, border);
    if (nail_sheet != nullptr)
        blit(nail_sheet, screen_buffer, frame % nail_columns * nail_tile, frame / nail_columns * nail_tile, x + 1,
             y + 1, nail_tile, nail_tile);
    if (slot == current_slot) trans_rectfill(screen_buffer, x + 1, y + 1, nail_tile, nail_tile, fixed_white, pulse / 2);
    constexpr int number_dx = 32, number_dy = 3, outlined = 1;
    std::array<char, 8> number{};
    std::snprintf(number.data(), number.size(), "%02d", frame);
    UA_set_font(FONT_NARROW, TEXT_YELLOW, 0, 0, 0, outlined, 0, 0);
    UA_text(screen_buffer, x + number_dx, y + number_dy, number.data());
    GUI_corner_dots(slot, border);
}

// ---- Tips ----------------------------------------------------------------------------------------------------------

/// `row_ids[0]` is the tip, (`source_x`, `source_y`) its cell.
void draw_tip_cell(int slot) {
    constexpr int inset = 2;
    const std::size_t s = at(slot);
    GUI_box(slot, color_of(slot), gui::row_ids[s][0] == brush_tip ? ui_highlight_fore : ui_border);
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
