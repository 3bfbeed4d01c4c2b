#pragma once
// The ink engine: what a pixel of a stroke becomes. Its inner unit is a row of pixels; one pixel is a row of length 1.
#include "paint/ink_canvas.h"
#include "state/colors.h"
#include "state/tools.h"
#include <allegro.h>
#include <array>
#include <cstdint>

namespace nubo {

/// A run of pixels of the Frame, with a tip value for each or one for all.
struct InkRow {
    int x, y, length;                   // frame pixels; all on the canvas, length 1 or more
    const std::uint8_t* tip;            // 0 full, 1 to 199 partial, `tip_outside` (200) and above outside the tip
    int tip_step;                       // 1: a tip value for each pixel; 0: *tip for all
    const Color* colors = nullptr;      // of a paste: a colour for each pixel in the place of the one for all
    const InkCanvas* canvas = nullptr;  // set by `apply_ink_row` and `apply_ink_on`
};

/// What an ink does with a row: each ink defines its own, in its file in paint/. One that is missing doesn't link.
template <Ink ink> void paint_row_with(const InkRow& row, Color color);

/// Applies `ink` with `color` to a row of the Frame, in order from the left. Reads the snapshot of `save_undo`, writes
/// the Frame and `stroke_mask`. The row is clipped; what paints calls `paint_row` (paint/images.h), which does that.
void apply_ink_row(const InkRow& row, Ink ink, Color color);

/// The same on another canvas. Nothing is noted as touched, and GLOW, which lights pixels far around, isn't for it.
void apply_ink_on(const InkCanvas& canvas, InkRow row, Ink ink, Color color);

/// The surfaces of the stroke themselves.
InkCanvas frame_canvas();

/// One pixel; a pixel outside the Frame and an ink above the last are dropped.
void apply_ink(int x, int y, int ink, Color color, int tip_value);

/// True if the components of a and b differ, each, by less than `tolerance`: 1 asks for equality, 0 matches nothing.
bool colors_match(Color a, Color b, int tolerance);

/// The colour between a and b at alpha / 255, each component truncated and held to 0 to 255.
Color blend_color(Color a, Color b, int alpha);

/// Blends one pixel of the Frame toward `color`; alpha below 1 does nothing, 255 replaces.
void blend_pixel(int x, int y, Color color, int alpha);

/// The pixel of the Cel's endless tile at a Frame position.
Color tile_pixel(int x, int y);

/// The mean of the neighbours in the painted picture, by integer division; the pixel itself if it has none.
Color mean_neighbor(const InkCanvas& canvas, int x, int y);

/// Distances from a pixel by |dx| and |dy|, truncated, up to GLOW's greatest radius.
inline constexpr auto glow_distance = [] {
    std::array<std::array<int, 32>, 32> distance{};
    for (int i = 0; i < 32; ++i)
        for (int j = 0; j < 32; ++j) {
            int& d = distance[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)];
            while ((d + 1) * (d + 1) <= i * i + j * j) ++d;
        }
    return distance;
}();

}  // namespace nubo
