#include "windows/zoom_preview.h"

#include "base/bitmap.h"
#include "gui/shapes.h"
#include "gui/window.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "state/view.h"
#include "windows/draw_elements.h"
#include <algorithm>
#include <array>

namespace nubo {
namespace {

constexpr int preview_slots = 3, picture_slot = zoom_preview_slot + 2;
constexpr int default_x = 10, default_y = 20, title_room = 12, picture_border = 2;

bool is_wanted() { return zoom >= 2 && opt_zoom_preview != 0 && menu_id == WINDOW_DRAWING_MENU; }

int size_step() {
    constexpr int unit = 20;
    return std::clamp<int>(opt_zoom_preview_size, 1, 3) * unit;
}

int picture_side() { return size_step() + 45; }

void build_preview() {
    const int step = size_step();
    const std::array<ElementRow, 1> picture{
        {{2, ELEMENT_ZOOM_PREVIEW, picture_border, title_room, picture_side(), picture_side()}}};
    build_window({.id = WINDOW_KEPT,
                  .place = POS_ZOOM_PREVIEW,
                  .x = default_x,
                  .y = default_y,
                  .w = step + 48,
                  .h = step + 58,
                  .child_count = preview_slots,
                  .title = LABEL_PREVIEW,
                  .title_w = step + 45,
                  .elements = picture,
                  .base = zoom_preview_slot});
}

/// Where the part shown begins: around the pixel, inside the frame; before it where the frame is smaller than the part.
int part_start(int pixel, int frame_size, int part) {
    if (frame_size <= part) return (frame_size - part) / 2;
    return std::clamp(pixel - part / 2, 0, frame_size - part);
}

}  // namespace

void draw_zoom_preview(int slot) {
    GUI_box(slot, ui_black, ui_border);
    const int part = gui::w[at(slot)] - 2 * picture_border;
    const int left = gui::x[at(slot)] + picture_border, top = gui::y[at(slot)] + picture_border;
    const int from_x = part_start(shown.pixel_x, current_frame->w, part);
    const int from_y = part_start(shown.pixel_y, current_frame->h, part);
    blit(current_frame, screen_buffer, from_x, from_y, left, top, part, part);
    const int dot_x = shown.pixel_x - from_x, dot_y = shown.pixel_y - from_y;
    if (dot_x >= 0 && dot_y >= 0 && dot_x < part && dot_y < part)
        putpixel(screen_buffer, left + dot_x, top + dot_y, static_cast<int>(ui_highlight_fore));
}

void keep_zoom_preview() {
    const bool stands = gui::active[zoom_preview_slot] != 0;
    const bool fits = stands && gui::w[picture_slot] == picture_side();
    if (stands && (!is_wanted() || !fits))
        for (int slot = zoom_preview_slot; slot < zoom_preview_slot + preview_slots; ++slot) GUI_clear_element(slot);
    if (is_wanted() && !fits) build_preview();
}

}  // namespace nubo
