#include "paint/spectrum.h"

#include "base/color.h"
#include "state/colors.h"
#include <algorithm>
#include <cmath>

namespace nubo {
namespace {

constexpr double full = 255.0;               // of every component, and of every scale but that of VGA
constexpr double hue_sextant = 42.5;         // the HLS hue's sixth of a circle
constexpr double degrees_per_hue = 1.40625;  // of the HSV hue: 360 / 256
constexpr double third_of_hue = 0.33333334, two_thirds = 0.6666667;
constexpr double least_saturation = 0.001;  // at most this is gray
constexpr int vga_shift = 2;                // 6 bits of 8
constexpr float last_of_band = 0.99F;       // below 1, so that a band's last step is not left

/// A position folded and held inside the band.
float folded(float t) {
    for (int i = 0; i < spectrum_fold; ++i) t = t < 0.5F ? t * 2 : (1 - t) * 2;
    return t >= 1 ? last_of_band : t < 0 ? 0 : t;
}

/// A channel of the HLS colour that lies between `p` and `q`; `x` is its place on the circle of 0 to 1.
double hls_channel(double p, double q, double x) {
    if (x < 0) x += 1;
    if (x > 1) x -= 1;
    if (6 * x < 1) return p + (q - p) * 6 * x;
    if (2 * x < 1) return q;
    if (3 * x < 2) return p + (two_thirds - x) * (q - p) * 6;
    return p;
}

Color pack_unit(const Rgb& color) {
    return pack_color(clamp_component(color.r * full), clamp_component(color.g * full),
                      clamp_component(color.b * full));
}

}  // namespace

// ---- Spectrum ------------------------------------------------------------------------------------------------------

Color spectrum_color(Color first, Color second, int banding, float t) {
    const float at = std::isnan(t) ? 0 : folded(t);
    const float steps = static_cast<float>(banding);
    // Truncation is the floor here, since `at` is never negative.
    const float share = banding > 1 ? static_cast<float>(static_cast<int>(steps * at + 0.01)) : 0;
    const auto component = [&](int from, int to) {
        const float difference = static_cast<float>(to - from);
        const float way = banding > 1 ? share * difference / (steps - at) : difference * at;
        // In the last hundredth of a step the division goes beyond the band.
        return std::clamp(static_cast<int>(static_cast<float>(from) + way), std::min(from, to), std::max(from, to));
    };
    return pack_color(component(red_of(first), red_of(second)), component(green_of(first), green_of(second)),
                      component(blue_of(first), blue_of(second)));
}

// ---- Colourspaces --------------------------------------------------------------------------------------------------

Hls rgb_to_hls(double r, double g, double b) {
    r /= full, g /= full, b /= full;
    const double high = std::max({r, g, b}), low = std::min({r, g, b}), delta = high - low;
    const double lightness = (high + low) * 0.5;
    if (delta == 0) return {0, lightness * full, 0};
    const double saturation = lightness < 0.5 ? delta / (high + low) : delta / (2 - high - low);
    double sextant = (g - b) / delta;
    if (high == g) sextant = (b - r) / delta + 2;
    if (high == b) sextant = (r - g) / delta + 4;  // in a tie the later channel decides
    const double hue = sextant * hue_sextant;
    return {hue < 0 ? hue + full : hue, lightness * full, saturation * full};
}

Rgb hls_to_rgb(double hue, double lightness, double saturation) {
    const double l = lightness / full, s = saturation / full, h = hue / full;
    // White has no hue either; through the sum for `q` it would miss 1 by a rounding, and truncation make it 254.
    if (s <= least_saturation || l == 1) return {l, l, l};
    const double q = l < 0.5 ? (s + 1) * l : l + s - s * l, p = 2 * l - q;
    return {hls_channel(p, q, h + third_of_hue), hls_channel(p, q, h), hls_channel(p, q, h - third_of_hue)};
}

Hsv rgb_to_hsv(double r, double g, double b) {
    r /= full, g /= full, b /= full;
    const double high = std::max({r, g, b}), delta = high - std::min({r, g, b});
    if (delta == 0) return {0, 0, high * full};
    const auto turned = [&](double channel) { return (high - channel) * 60 / delta + 180; };
    double degrees = r == high   ? turned(b) - turned(g)
                     : g == high ? turned(r) + 120 - turned(b)
                                 : turned(g) + 240 - turned(r);
    if (degrees < 0) degrees += 360;
    if (degrees >= 360) degrees -= 360;
    return {degrees / degrees_per_hue, delta / high * full, high * full};
}

Rgb hsv_to_rgb(double hue, double saturation, double value) {
    const double s = saturation, v = value;
    if (s == 0) return {v, v, v};
    const double sextant = std::floor(hue * 6), f = hue * 6 - sextant;
    const double p = (1 - s) * v, q = (1 - s * f) * v, w = (1 - (1 - f) * s) * v;
    switch (static_cast<int>(sextant)) {
    case 0: return {v, w, p};
    case 1: return {q, v, p};
    case 2: return {p, v, w};
    case 3: return {p, q, v};
    case 4: return {w, p, v};
    }
    return {v, p, q};
}

// ---- Sliders -------------------------------------------------------------------------------------------------------

std::array<int, 3> color_to_sliders(Colorspace space, Color color) {
    const int r = red_of(color), g = green_of(color), b = blue_of(color);
    const auto whole = [](double value) { return static_cast<int>(value); };
    switch (space) {
    case SPACE_VGA: return {r >> vga_shift, g >> vga_shift, b >> vga_shift};
    case SPACE_HLS: {
        const Hls hls = rgb_to_hls(r, g, b);
        return {whole(hls.hue), whole(hls.lightness), whole(hls.saturation)};
    }
    case SPACE_HSV: {
        const Hsv hsv = rgb_to_hsv(r, g, b);
        return {whole(hsv.hue), whole(hsv.saturation), whole(hsv.value)};
    }
    case SPACE_RGB:
    case SPACE_COUNT: break;
    }
    return {r, g, b};
}

Color sliders_to_color(Colorspace space, int a, int b, int c) {
    switch (space) {
    case SPACE_VGA: a *= 1 << vga_shift, b *= 1 << vga_shift, c *= 1 << vga_shift; break;
    case SPACE_HLS: return pack_unit(hls_to_rgb(a, b, c));
    case SPACE_HSV: return pack_unit(hsv_to_rgb(a * degrees_per_hue / 360, b / full, c / full));
    case SPACE_RGB:
    case SPACE_COUNT: break;
    }
    return pack_color(clamp_component(a), clamp_component(b), clamp_component(c));
}

}  // namespace nubo
