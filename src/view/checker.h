#pragma once
// The pattern where the Frame is of the mask colour: gray, so that it is told from the three backdrops behind the
// Frame.
#include "state/colors.h"

namespace nubo {

inline constexpr Color checker_light = 0x8c8c8c, checker_dark = 0x707070;

/// At the Frame's pixel (x, y), neither below 0. The squares are of eight screen pixels at a `scale` of screen pixels a
/// Frame pixel, and never smaller than a Frame pixel.
constexpr Color checker_color(int x, int y, int scale) {
    constexpr int square = 8;
    const int side = scale < square ? square / scale : 1;
    return (x / side + y / side) % 2 == 0 ? checker_light : checker_dark;
}

}  // namespace nubo
