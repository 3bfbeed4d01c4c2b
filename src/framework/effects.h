#pragma once
// Effects on bitmaps of 32 bits. Colours of the palette are those of Allegro's current one.
#include "state/colors.h"
#include <allegro.h>

namespace nubo {

/// The part of a bitmap that may be drawn on: its clip rectangle, or all of it when clipping is off. Right and bottom
/// are outside.
struct DrawArea {
    int left, top, right, bottom;
};
inline DrawArea draw_area(const BITMAP* bitmap) {
    if (bitmap->clip == 0) return {0, 0, bitmap->w, bitmap->h};
    return {bitmap->cl, bitmap->ct, bitmap->cr, bitmap->cb};
}

/// The colour of a palette entry; black for an index outside 0 to 255.
Color UA_palette_color(int index);

/// The lowest palette index of that colour, 0 if none.
int UA_palette_index(Color color);

/// Each pixel of the rectangle (sx, sy, w, h) of `source` that isn't 0xff00ff, drawn at (tx, ty) of `target` as source
/// * mix / 256 plus color * (256 - mix) / 256 on each channel; clipped to both. `mix` 0 to 256: 0 paints the shape in
/// `color`.
void UA_mix_blit(BITMAP* source, BITMAP* target, int sx, int sy, int tx, int ty, int w, int h, Color color, int mix);

/// In all of the bitmap, the colours of the palette entries a to d become the four new ones; -1 skips one.
void UA_replace_tones(BITMAP* bitmap, int a, int b, int c, int d, int new_a, int new_b, int new_c, int new_d);

/// The same with the new colours as palette indices, -1 skips one.
void UA_replace_indices(BITMAP* bitmap, int a, int b, int c, int d, int new_a, int new_b, int new_c, int new_d);

// ---- Pixel effects -------------------------------------------------------------------------------------------------

/// What `UA_pixel_effect` does round one pixel. An outline sets each of the four neighbours that is outside the source
/// or 0xff00ff there, if it lies inside the target: up, down, left, right.
enum PixelEffect : int {
    EFFECT_NONE = 0,
    EFFECT_OUTLINE_BLACK = 1,
    EFFECT_SPECKLE_WHITE = 3,  // the pixel toward white, at a random strength below 25
    EFFECT_SPECKLE_BLACK = 4,
    EFFECT_SPECKLE_STRONG = 6,  // toward white, at a random strength from `a` / 2 to `a`
    EFFECT_YELLOW = 8,          // the pixel becomes yellow
    EFFECT_OUTLINE = 10,        // in the palette colour `a`
    EFFECT_OUTLINE_MASKED = 11,
    EFFECT_OUTLINE_FLICKERS = 12,  // at a random strength
    EFFECT_OUTLINE_WHITE = 13,
    EFFECT_OUTLINE_YELLOW = 14,
    EFFECT_FADED = 16,        // the pixel itself at the strength `b`
    EFFECT_FADED_ALONE = 17,  // the same; a translucent actor isn't drawn under it
    EFFECT_OUTLINE_WHITE_FLICKERS = 18,
    EFFECT_OUTLINE_BLACK_MASKED = 31,  // these take `mask` in the place of 0xff00ff, as does OUTLINE_MASKED
    EFFECT_OUTLINE_WHITE_MASKED = 32,
    EFFECT_OUTLINE_YELLOW_MASKED = 38
};

/// One pixel of an effect, a PixelEffect or another number that does nothing, read at (sx, sy), written at or round
/// (tx, ty). Nothing happens where (sx, sy) lies outside the source or is 0xff00ff there.
void UA_pixel_effect(BITMAP* source, BITMAP* target, int sx, int sy, int tx, int ty, int mode, int a, int b, int mask);

}  // namespace nubo
