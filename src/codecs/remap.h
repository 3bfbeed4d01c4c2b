#pragma once
// A picture in the colours of a palette.
#include "codecs/nearest_color.h"
#include <allegro.h>

namespace nubo {

/// How what the palette doesn't have is made up for: not at all; by a pattern of 4 x 4 pixels; by handing each pixel's
/// error on to those that come after it.
enum Dithering : int { DITHERING_OFF, DITHERING_BAYER, DITHERING_DIFFUSE, DITHERING_COUNT };

/// Gives each pixel of the area of `picture` from (x, y) on its nearest colour. Those of the kept colour stay as they
/// are, and take no part in what is handed on. The area lies in the picture. Throws without memory for two rows.
void remap_pixels(BITMAP* picture, int x, int y, int width, int height, NearestColor& nearest, Dithering dithering);
void remap_pixels(BITMAP* picture, NearestColor& nearest, Dithering dithering);

}  // namespace nubo
