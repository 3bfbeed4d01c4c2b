#pragma once
// `colors_match` for loops over many pixels.
#include "base/color.h"
#include <algorithm>
#include <cstdlib>

namespace nubo {

/// Tells the colours whose components differ from one colour's, each, by less than a tolerance: 1 asks for equality, 0
/// matches nothing. Without a branch, so that a loop tests four pixels in one step.
class NearColor {
public:
    NearColor(Color color, int tolerance)
        : red_(red_of(color)), green_(green_of(color)), blue_(blue_of(color)), tolerance_(tolerance) {}

    bool operator()(Color pixel) const {
        const int red = std::abs(red_ - red_of(pixel)), green = std::abs(green_ - green_of(pixel)),
                  blue = std::abs(blue_ - blue_of(pixel));
        return std::max(std::max(red, green), blue) < tolerance_;
    }

private:
    int red_, green_, blue_, tolerance_;
};

}  // namespace nubo
