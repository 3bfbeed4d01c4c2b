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

enum PixelEffect : int { EFFECT_OUTLINE = 10 };
/// One pixel of an effect, read at (sx, sy), written round (tx, ty). EFFECT_OUTLINE: round a pixel that isn't 0xff00ff,
/// each of the four neighbours that is outside the source or 0xff00ff there becomes the palette colour `a` in the
/// target, if it lies inside. `b` and `mask` have no effect on an outline.
void UA_pixel_effect(BITMAP* source, BITMAP* target, int sx, int sy, int tx, int ty, int mode, int a, int b, int mask);

}  // namespace nubo
