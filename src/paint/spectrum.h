#pragma once
// Colour arithmetic: the Spectrum and the four colourspaces. Pure computation on the scales given.
#include "state/colors.h"
#include <array>

namespace nubo {

/// The colour at position `t` of the band from `first` to `second`, folded `spectrum_fold` times; a `banding` above 1
/// breaks it into as many steps. `t` may lie outside 0 to 1, or be no number (read as 0).
Color spectrum_color(Color first, Color second, int banding, float t);

struct Hls {
    double hue, lightness, saturation;
};  // each 0 to 255
struct Hsv {
    double hue, saturation, value;
};  // each 0 to 255
struct Rgb {
    double r, g, b;
};  // each 0 to 1

/// From components of 0 to 255.
Hls rgb_to_hls(double r, double g, double b);
Hsv rgb_to_hsv(double r, double g, double b);
/// From values of 0 to 255.
Rgb hls_to_rgb(double hue, double lightness, double saturation);
/// From values of 0 to 1.
Rgb hsv_to_rgb(double hue, double saturation, double value);

/// Between a packed colour and the three sliders of a colourspace: 0 to 63 each in VGA, else 0 to 255.
std::array<int, 3> color_to_sliders(Colorspace space, Color color);
Color sliders_to_color(Colorspace space, int a, int b, int c);

}  // namespace nubo
