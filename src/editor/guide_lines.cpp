#include "editor/guide_lines.h"

#include "base/bitmap.h"
#include "base/color.h"
#include "codecs/blend_rows.h"
#include "paint/image_maps.h"
#include "state/frames.h"
#include "state/guides.h"
#include "state/run.h"
#include "state/shown.h"
#include "state/view.h"
#include <algorithm>

namespace nubo {
namespace {

/// Every `period`-th pixel of a line is left out from the `length`-th on.
struct Dots {
    int length = 1, period = 1;
    bool has(int along) const { return ((along % period) + period) % period < length; }
};

int shown_scale() { return zoom_scale[static_cast<std::size_t>(shown.zoom)]; }

/// Toward white on what is dark, toward black on what is light: seen on every picture.
void mark_pixel(int x, int y, int strength) {
    constexpr int middle = 3 * 128;
    Color& pixel = *pixels_at(screen_buffer, x, y);
    const bool is_dark = red_of(pixel) + green_of(pixel) + blue_of(pixel) < middle;
    pixel = blend_fill_pixel(pixel, is_dark ? fixed_white : fixed_black, strength);
}

/// The screen's stretch that shows the Frame along one axis: from `first` up to `end`.
struct Stretch {
    int first, end;
};
Stretch stretch_of(int pan, int size, int view_size) {
    return {std::max(-pan * shown_scale(), 0), std::min((size - pan) * shown_scale(), view_size)};
}

/// One axis of a grid: lines at `offset` and each `step` of the Frame's pixels before and after it.
struct GridAxis {
    int pan, size, view_size;
    int offset, step;
};

/// Calls `visit(place)` for the screen's place of each line.
template <typename Visit> void for_each_line(const GridAxis& axis, Visit visit) {
    const auto [first, end] = stretch_of(axis.pan, axis.size, axis.view_size);
    for (int place = first; place < end; place += shown_scale()) {
        const int pixel = axis.pan + place / shown_scale() - axis.offset;
        if (pixel % axis.step == 0) visit(place);
    }
}

void draw_grid(const GridAxis& across, const GridAxis& down, Dots dots, int strength) {
    const auto [left, right] = stretch_of(across.pan, across.size, across.view_size);
    const auto [top, bottom] = stretch_of(down.pan, down.size, down.view_size);
    for_each_line(across, [=, top = top, bottom = bottom](int x) {
        for (int y = top; y < bottom; ++y)
            if (dots.has(x + y)) mark_pixel(x, y, strength);
    });
    for_each_line(down, [=, left = left, right = right](int y) {
        for (int x = left; x < right; ++x)
            if (dots.has(x + y)) mark_pixel(x, y, strength);
    });
}

GridAxis grid_across(int offset, int step) { return {shown.pan_x, current_frame->w, view_w, offset, step}; }
GridAxis grid_down(int offset, int step) { return {shown.pan_y, current_frame->h, view_h, offset, step}; }

void draw_pixel_grid() {
    constexpr int scale_min = 8, strength = 64;
    if (shown_scale() >= scale_min) draw_grid(grid_across(0, 1), grid_down(0, 1), {}, strength);
}

/// Lines that stand closer would be all that is seen.
void draw_cell_grid() {
    constexpr int distance_min = 3, strength = 176;
    constexpr Dots dots{1, 2};
    if (std::min(guides.cell_w, guides.cell_h) * shown_scale() < distance_min) return;
    draw_grid(grid_across(guides.cell_x, guides.cell_w), grid_down(guides.cell_y, guides.cell_h), dots, strength);
}

/// The axes lie at s / 2 from the middle of pixel 0, which is half a pixel from the Frame's rim.
void draw_axes() {
    constexpr Dots dots{4, 6};
    constexpr int strength = 200;
    const bool turns = guides.symmetry == SYMMETRY_TURN_2 || guides.symmetry == SYMMETRY_TURN_4;
    const auto place_of = [](int axis, int pan) { return (axis + 1 - 2 * pan) * shown_scale() / 2; };
    const int x = place_of(axis_of(guides.axis_x, frame_w), shown.pan_x),
              y = place_of(axis_of(guides.axis_y, frame_h), shown.pan_y);
    const bool has_upright = turns || guides.symmetry == SYMMETRY_ACROSS || guides.symmetry == SYMMETRY_BOTH;
    const bool has_level = turns || guides.symmetry == SYMMETRY_DOWN || guides.symmetry == SYMMETRY_BOTH;
    for (int at = 0; has_upright && x >= 0 && x < view_w && at < view_h; ++at)
        if (dots.has(at)) mark_pixel(x, at, strength);
    for (int at = 0; has_level && y >= 0 && y < view_h && at < view_w; ++at)
        if (dots.has(at)) mark_pixel(at, y, strength);
}

}  // namespace

void draw_guide_lines() {
    if (guides.symmetry != SYMMETRY_OFF) draw_axes();
    if (guides.pixel_grid != 0) draw_pixel_grid();
    if (guides.cell_grid != 0) draw_cell_grid();
}

}  // namespace nubo
