#include "editor/frame_picture.h"

#include "base/bitmap.h"
#include "codecs/blend_rows.h"
#include "state/cel.h"
#include "state/frames.h"
#include "state/guides.h"
#include "state/overlay.h"
#include "state/run.h"
#include "state/shown.h"
#include "state/view.h"
#include "view/checker.h"
#include "view/frame_tiles.h"
#include "workspace/ghosts.h"
#include <algorithm>
#include <allegro.h>
#include <array>
#include <cmath>
#include <span>

namespace nubo {
namespace {

constexpr Color no_cell = 0xff000000;  // no colour has a top byte: the backdrop shows here
using CellRow = std::array<Color, view_w>;

std::size_t shown_level() { return static_cast<std::size_t>(shown.zoom); }

// ---- What shows in the Frame's pixels -------------------------------------------------------------------------------

/// The guides of one picture.
struct PixelGuides {
    bool checker = false;
    std::vector<GhostPicture> ghosts{};
    bool any() const { return checker || !ghosts.empty(); }
};

PixelGuides pixel_guides(FrameGuides guided) {
    if (guided == FRAME_BARE) return {};
    return {guides.checker != 0, shown_ghosts()};
}

/// A run of the Frame's pixels from (x, y) on, and the cells that show them.
struct FrameRun {
    const Color* pixels;
    Color* cells;
    int x, y, length;
};

void draw_checker(const FrameRun& run) {
    const int scale = zoom_scale[shown_level()];
    for (int i = 0; i < run.length; ++i)
        if (run.pixels[i] == mask_color) run.cells[i] = checker_color(run.x + i, run.y, scale);
}

/// Behind the Frame they show in their own colours where it is empty, over it in a tint where they differ from it. The
/// further away the weaker.
void draw_ghost(const FrameRun& run, const GhostPicture& ghost) {
    constexpr Color before_tint = 0xff0000, after_tint = 0x0000ff;
    constexpr int tint_strength = 128;
    const int strength = std::min(guides.ghost_strength / ghost.distance, ghost_strength_max - 1);
    if (run.y >= ghost.picture->h || run.x >= ghost.picture->w || strength < 1) return;
    const Color* const through = pixels_at(ghost.picture, run.x, run.y);
    const int length = std::min(run.length, ghost.picture->w - run.x);
    const Color tint = ghost.is_before ? before_tint : after_tint;
    for (int i = 0; i < length; ++i) {
        const Color own = run.pixels[i], other = through[i];
        if (other == mask_color) continue;
        if (guides.ghost == GHOST_BEHIND && own == mask_color)
            run.cells[i] = blend_fill_pixel(run.cells[i], other, strength);
        if (guides.ghost == GHOST_OVER && own != other)
            run.cells[i] = blend_fill_pixel(run.cells[i], blend_fill_pixel(other, tint, tint_strength), strength);
    }
}

// ---- Rows of cells --------------------------------------------------------------------------------------------------

void draw_run(const FrameRun& run, const PixelGuides& through) {
    std::copy_n(run.pixels, run.length, run.cells);
    if (through.checker) draw_checker(run);
    for (const GhostPicture& ghost : through.ghosts) draw_ghost(run, ghost);
}

/// The cells of a row of the view: the Frame's pixels with the guides, on each tile; `no_cell` beyond the Frame.
void gather_frame(int row, std::span<Color> cells, const PixelGuides& through) {
    std::ranges::fill(cells, no_cell);
    const int y = real_pixel({0, shown.pan_y + row}).y, count = static_cast<int>(cells.size());
    if (y < 0 || y >= current_frame->h) return;
    for (int column = tiles_across() ? 0 : std::max(-shown.pan_x, 0); column < count;) {
        const int x = real_pixel({shown.pan_x + column, 0}).x;
        const int length = std::min(count - column, current_frame->w - x);
        if (length < 1) return;
        draw_run({pixels_at(current_frame, x, y), cells.data() + column, x, y, length}, through);
        column += length;
    }
}

/// In the cells of a zoomed picture the mask colour means nothing either, but for a Cel that floats: what of it is in
/// that colour will be painted.
bool is_shown(Color over) {
    return over != transparent_color && (over != mask_color || shown.zoom == zoom_min || shown.cel_place.mode != -1);
}

void lay_overlay(int row, std::span<Color> cells) {
    const Color* const over = pixels_at(overlay, 0, row);
    for (std::size_t column = 0; column < cells.size(); ++column)
        if (is_shown(over[column])) cells[column] = over[column];
}

void put_cells(int row, int scale, std::span<const Color> cells) {
    const int rows = std::min(scale, view_h - row * scale);
    for (int y = row * scale; y < row * scale + rows; ++y) {
        Color* to = pixels_at(screen_buffer, 0, y);
        for (const Color cell : cells) {
            if (cell != no_cell) std::fill_n(to, scale, cell);
            to += scale;
        }
    }
}

void draw_frame_in_cells(bool with_overlay, const PixelGuides& through) {
    const int scale = zoom_scale[shown_level()], rows = static_cast<int>(std::ceil(zoom_view_h[shown_level()]));
    CellRow buffer;
    const std::span<Color> cells(buffer.data(), static_cast<std::size_t>(view_w / scale));
    for (int row = 0; row < rows; ++row) {
        gather_frame(row, cells, through);
        if (with_overlay) lay_overlay(row, cells);
        put_cells(row, scale, cells);
    }
}

void draw_frame_plain(bool with_overlay) {
    blit(current_frame, screen_buffer, shown.pan_x, shown.pan_y, 0, 0, view_w, view_h);
    if (with_overlay) masked_blit(overlay, screen_buffer, 0, 0, 0, 0, view_w, view_h);
}

}  // namespace

void draw_frame(bool with_overlay, FrameGuides guided) {
    const PixelGuides through = pixel_guides(guided);
    if (shown.zoom == zoom_min && !through.any() && guides.tiles == TILES_OFF)
        draw_frame_plain(with_overlay);
    else
        draw_frame_in_cells(with_overlay, through);
}

}  // namespace nubo
