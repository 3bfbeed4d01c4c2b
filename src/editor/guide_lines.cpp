#include "editor/guide_lines.h"

#include "base/bitmap.h"
#include "base/color.h"
#include "codecs/blend_rows.h"
#include "state/frames.h"
#include "state/guides.h"
#include "state/run.h"
#include "state/shown.h"
#include "state/view.h"
#include "view/frame_tiles.h"
#include "windows/axis_handle.h"
#include <algorithm>
#include <utility>

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

/// One axis of the view, and the Frame along it.
struct ViewAxis {
    int pan, size, view_size;
    bool tiled;
    /// The screen's stretch that shows the Frame, or its tiles: from the first to before the second.
    std::pair<int, int> stretch() const {
        if (tiled) return {0, view_size};
        return {std::max(-pan * shown_scale(), 0), std::min((size - pan) * shown_scale(), view_size)};
    }
};
ViewAxis axis_across() { return {shown.pan_x, current_frame->w, view_w, tiles_across()}; }
ViewAxis axis_down() { return {shown.pan_y, current_frame->h, view_h, tiles_down()}; }

/// One axis of a grid: lines at `offset` and each `step` of the Frame's pixels before and after it.
struct GridAxis {
    ViewAxis view;
    int offset, step;
};

/// Calls `visit(place)` for the screen's place of each line.
template <typename Visit> void for_each_line(const GridAxis& axis, Visit visit) {
    const auto [first, end] = axis.view.stretch();
    for (int place = first; place < end; place += shown_scale()) {
        const int seen = axis.view.pan + place / shown_scale();
        const int pixel = axis.view.tiled ? wrapped(seen, axis.view.size) : seen;
        if ((pixel - axis.offset) % axis.step == 0) visit(place);
    }
}

void draw_grid(const GridAxis& across, const GridAxis& down, Dots dots, int strength) {
    const auto [left, right] = across.view.stretch();
    const auto [top, bottom] = down.view.stretch();
    for_each_line(across, [=, top = top, bottom = bottom](int x) {
        for (int y = top; y < bottom; ++y)
            if (dots.has(x + y)) mark_pixel(x, y, strength);
    });
    for_each_line(down, [=, left = left, right = right](int y) {
        for (int x = left; x < right; ++x)
            if (dots.has(x + y)) mark_pixel(x, y, strength);
    });
}

void draw_pixel_grid() {
    constexpr int scale_min = 8, strength = 64;
    if (shown_scale() >= scale_min) draw_grid({axis_across(), 0, 1}, {axis_down(), 0, 1}, {}, strength);
}

/// Lines that stand closer would be all that is seen.
void draw_cell_grid() {
    constexpr int distance_min = 3, strength = 176;
    constexpr Dots dots{1, 2};
    if (std::min(guides.cell_w, guides.cell_h) * shown_scale() < distance_min) return;
    draw_grid({axis_across(), guides.cell_x, guides.cell_w}, {axis_down(), guides.cell_y, guides.cell_h}, dots,
              strength);
}

/// A line across the view, `upright` or level.
void draw_dotted(int place, bool upright, Dots dots, int strength) {
    const int end = upright ? view_h : view_w;
    if (place < 0 || place >= (upright ? view_w : view_h)) return;
    for (int along = 0; along < end; ++along)
        if (dots.has(along)) mark_pixel(upright ? place : along, upright ? along : place, strength);
}

/// Calls `visit(place)` for each place of the screen at which the tiles show what the Frame shows at `place`. Lines
/// that stood closer would be all that is seen.
template <typename Visit> void for_each_tile_of_view(const ViewAxis& axis, int place, Visit visit) {
    constexpr int distance_min = 8;
    const int tile = axis.size * shown_scale();
    if (!axis.tiled || tile < distance_min) return visit(place);
    for (place = wrapped(place, tile); place < axis.view_size; place += tile) visit(place);
}

void draw_axes() {
    constexpr Dots dots{4, 6};
    constexpr int strength = 200;
    for (const bool upright : {true, false}) {
        if (!shows_axis(upright)) continue;
        for_each_tile_of_view(upright ? axis_across() : axis_down(), axis_place(upright),
                              [=](int place) { draw_dotted(place, upright, dots, strength); });
    }
}

/// Just beyond the Frame's pixels, so that it hides none of them.
void draw_rim() {
    constexpr Dots dots{2, 4};
    constexpr int strength = 200;
    const auto outside = [](const ViewAxis& axis) {
        return std::pair{-axis.pan * shown_scale() - 1, (axis.size - axis.pan) * shown_scale()};
    };
    const auto [left, right] = outside(axis_across());
    const auto [top, bottom] = outside(axis_down());
    const auto mark = [=](int x, int y) {
        if (x >= 0 && x < view_w && y >= 0 && y < view_h && dots.has(x + y)) mark_pixel(x, y, strength);
    };
    for (int x = left; x <= right; ++x) mark(x, top), mark(x, bottom);
    for (int y = top; y <= bottom; ++y) mark(left, y), mark(right, y);
}

}  // namespace

void draw_guide_lines() {
    if (guides.tiles != TILES_OFF && guides.hides_rim == 0) draw_rim();
    draw_axes();
    if (guides.pixel_grid != 0) draw_pixel_grid();
    if (guides.cell_grid != 0) draw_cell_grid();
    draw_axis_handles();
}

}  // namespace nubo
