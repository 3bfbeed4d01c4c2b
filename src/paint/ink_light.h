#pragma once
// A fixed amount added to components or taken from them, in whole numbers that give exactly what the sum in floating
// point gives. ADD, SUB and GLOW put it on pixel after pixel.
#include "base/color.h"
#include <array>

namespace nubo {

/// What is added to each component c of a pixel: its `step`, and 1 more if c + `rest` is above 255.
struct Light {
    Color step = 0, rest = 0;
};

/// The light of three amounts for red, green and blue, 0 to 255 each. The truncated sum c + amount is c +
/// trunc(amount), but for amounts a hair off a whole number: they are rounded to it once the sum is too large to hold
/// the hair. If `darkens`, the light is that of c - amount on inverted components: 255 less c, and the result so, too.
Light light_of(const std::array<double, 3>& amounts, bool darkens = false);

/// The light of every component at one share: that of a colour is put together from it, where each pixel of a row has
/// its own. Red, green and blue stand in tables of their own, each at its place in the word.
struct LightTable {
    double share = -1;
    bool darkens = false, has_rest = false;  // has_rest false: all rests are 0
    std::array<std::array<Color, 256>, 3> step{}, rest{};

    Color step_of(Color color) const { return of(step, color); }
    Color rest_of(Color color) const { return of(rest, color); }

private:
    static Color of(const std::array<std::array<Color, 256>, 3>& table, Color color) {
        return table[0][color >> 16 & 0xff] | table[1][color >> 8 & 0xff] | table[2][color & 0xff];
    }
};

/// The table of a share, 0 to 1. It is kept from call to call, since a paste asks for the same with each row; the
/// reference holds until the next call.
const LightTable& light_table(double share, bool darkens);

/// The pixel with the light added, each component held to 255.
constexpr Color lit(Color pixel, const Light& light) {
    constexpr Color red_blue = 0xff00ff, green = 0x00ff00, red_blue_over = 0x01000100, green_over = 0x010000;
    const Color rb = pixel & red_blue, g = pixel & green;
    // Sums of 8 bits leave their carry in the 9th, where a component of the other word lies.
    const Color rb_more = (rb + (light.rest & red_blue)) >> 8 & 0x010001;
    const Color g_more = (g + (light.rest & green)) >> 8 & 0x000100;
    const Color rb_sum = rb + (light.step & red_blue) + rb_more, g_sum = g + (light.step & green) + g_more;
    const Color rb_carry = rb_sum & red_blue_over, g_carry = g_sum & green_over;
    return ((rb_sum | (rb_carry - (rb_carry >> 8))) & red_blue) | ((g_sum | (g_carry - (g_carry >> 8))) & green);
}

}  // namespace nubo
