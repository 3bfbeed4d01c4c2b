#pragma once
// What EDGE, SEP. and FILL call "of that colour".
#include "base/color.h"

namespace nubo {

/// The colours within a tolerance of one colour, each component looked at by itself.
class ColorRange {
public:
    ColorRange(Color color, int tolerance) : color_(color), tolerance_(tolerance) {}

    /// Each component differs by less than the tolerance: a tolerance of 0 holds nothing, 1 the colour alone.
    bool holds(Color other) const { return within(other, tolerance_ - 1); }
    /// Each component differs by the tolerance at most.
    bool reaches(Color other) const { return within(other, tolerance_); }

private:
    bool within(Color other, int most) const {
        if (other == color_) return most >= 0;  // the common case, without taking the colour apart
        const auto near = [most](int a, int b) { return (a < b ? b - a : a - b) <= most; };
        return near(red_of(other), red_of(color_)) && near(green_of(other), green_of(color_)) &&
               near(blue_of(other), blue_of(color_));
    }

    Color color_;
    int tolerance_;
};

}  // namespace nubo
