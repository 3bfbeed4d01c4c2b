#include "windows/zoom_preview.h"

#include "base/bitmap.h"
#include "gui/shapes.h"
#include "gui/window.h"
#include "paint/image_maps.h"
#include "state/frames.h"
#include "state/gui.h"
#include "state/guides.h"
#include "state/mouse.h"
#include "state/options.h"
#include "state/run.h"
#include "state/shown.h"
#include "state/view.h"
#include "state/windows.h"
#include "view/checker.h"
#include "windows/kit/draw_elements.h"
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

// ---- Out of the hand's way -----------------------------------------------------------------------------------------

struct Place {
    int x, y;
};

struct Box {
    int left, top, right, bottom;  // the last two are the first column and row beyond it
    bool overlaps(const Box& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
};

Box box_at(Place place) {
    return {place.x, place.y, place.x + gui::w[zoom_preview_slot], place.y + gui::h[zoom_preview_slot]};
}

bool hides_frame(const Box& box) {
    const int scale = zoom_scale[static_cast<std::size_t>(shown.zoom)], x = -shown.pan_x, y = -shown.pan_y;
    Box frame{x * scale, y * scale, (x + current_frame->w) * scale, (y + current_frame->h) * scale};
    if (tiles_across()) frame.left = 0, frame.right = view_w;
    if (tiles_down()) frame.top = 0, frame.bottom = view_h;
    return box.overlaps(frame);
}

bool hides_menu(const Box& box) {
    constexpr int slot = slot_window;
    return gui::active[slot] != 0 && gui::hidden[slot] == 0 &&
           box.overlaps({gui::x[slot], gui::y[slot], gui::x[slot] + gui::w[slot], gui::y[slot] + gui::h[slot]});
}

/// The hand is about to work on the Frame there. It may reach the title, to drag the preview, but not in a stroke and
/// not while a tool waits for a point.
bool is_in_the_way(Box box) {
    constexpr int near = 12;  // logical pixels
    if (!hides_frame(box)) return false;
    const bool works = (mouse_left != 0 && press_slot == -1) || first_live_slot > zoom_preview_slot;
    box = {box.left - near, box.top + (works ? -near : title_room), box.right + near, box.bottom + near};
    return box.overlaps({shown.mouse_x, shown.mouse_y, shown.mouse_x + 1, shown.mouse_y + 1});
}

/// Where the user has put it.
Place home_place() {
    const WindowPos& left_at = window_pos[POS_ZOOM_PREVIEW];
    const int x = left_at.x < 0 ? default_x : left_at.x, y = left_at.y < 0 ? default_y : left_at.y;
    return {std::min(x, view_w - 1 - gui::w[zoom_preview_slot]), std::min(y, view_h - 1 - gui::h[zoom_preview_slot])};
}

void move_preview(Place to) {
    const int dx = to.x - gui::x[zoom_preview_slot], dy = to.y - gui::y[zoom_preview_slot];
    for (int slot = zoom_preview_slot; slot < zoom_preview_slot + preview_slots; ++slot) {
        gui::x[at(slot)] = static_cast<std::int16_t>(gui::x[at(slot)] + dx);
        gui::y[at(slot)] = static_cast<std::int16_t>(gui::y[at(slot)] + dy);
    }
}

/// When the mouse comes near it goes home or to the opposite side of the screen, best to where it hides no Frame.
void make_way() {
    const bool is_held = gui_enabled == 0 || (press_slot >= zoom_preview_slot && press_slot <= picture_slot);
    if (is_held || !is_in_the_way(box_at({gui::x[zoom_preview_slot], gui::y[zoom_preview_slot]}))) return;
    const Place home = home_place();
    const int far_x = view_w - 1 - gui::w[zoom_preview_slot] - home.x;
    const int far_y = view_h - 1 - gui::h[zoom_preview_slot] - home.y;
    for (const bool may_hide : {false, true})
        for (const Place place : {home, Place{far_x, home.y}, Place{home.x, far_y}, Place{far_x, far_y}}) {
            const Box box = box_at(place);
            if (!is_in_the_way(box) && !hides_menu(box) && (may_hide || !hides_frame(box))) return move_preview(place);
        }
}

// ---- The picture ---------------------------------------------------------------------------------------------------

/// Where the part shown begins: around the pixel, inside the frame; before it where the frame is smaller than the part.
/// Tiles go on beyond it.
int part_start(int pixel, int frame_size, int part, bool tiled) {
    if (tiled) return pixel - part / 2;
    if (frame_size <= part) return (frame_size - part) / 2;
    return std::clamp(pixel - part / 2, 0, frame_size - part);
}

/// Over the part of the Frame from (from_x, from_y) on that the screen shows at `corner`.
void draw_preview_checker(Place corner, int from_x, int from_y, int part) {
    constexpr int scale = 1;
    const int left = std::max(from_x, 0), end = std::min(from_x + part, current_frame->w);
    for (int y = std::max(from_y, 0); y < std::min(from_y + part, current_frame->h); ++y) {
        const Color* const pixels = pixels_at(current_frame, 0, y);
        Color* const to = pixels_at(screen_buffer, corner.x, corner.y + y - from_y);
        for (int x = left; x < end; ++x)
            if (pixels[x] == mask_color) to[x - from_x] = checker_color(x, y, scale);
    }
}

}  // namespace

void draw_zoom_preview(int slot) {
    GUI_box(slot, ui_black, ui_border);
    const int part = gui::w[at(slot)] - 2 * picture_border;
    const int left = gui::x[at(slot)] + picture_border, top = gui::y[at(slot)] + picture_border;
    const int from_x = part_start(shown.pixel_x, current_frame->w, part, tiles_across());
    const int from_y = part_start(shown.pixel_y, current_frame->h, part, tiles_down());
    for_each_tile({from_x, from_y, from_x + part - 1, from_y + part - 1}, [=](int dx, int dy) {
        blit(current_frame, screen_buffer, from_x + dx, from_y + dy, left, top, part, part);
        if (guides.checker != 0) draw_preview_checker({left, top}, from_x + dx, from_y + dy, part);
    });
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
    if (is_wanted()) make_way();
}

}  // namespace nubo
