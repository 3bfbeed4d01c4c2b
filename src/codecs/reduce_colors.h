#pragma once
// From a picture of any colours to the 256 of a GIF.
#include "state/colors.h"
#include <allegro.h>
#include <array>

namespace nubo {

using ExactPalette = std::array<Color, 256>;

/// The number of a picture's colours when they are at most 256: `palette` gets them in the order of their first pixels
/// from the top left, then black. -1 when they are more; `palette` is untouched then.
int reduce_colors_exact(BITMAP* bitmap, ExactPalette& palette);

/// 256 colours that a neural net has learned from every `sample`-th pixel, 1 to 30, of the 32-bit `bitmap`. The net is
/// that of A. Dekker, "Kohonen neural networks for optimal colour quantization", Network 5 (1994), 351-367.
void reduce_colors_neural(BITMAP* bitmap, int sample, ExactPalette& palette);

}  // namespace nubo
