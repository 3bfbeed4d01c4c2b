#include "paint/ink_light.h"

#include <algorithm>
#include <cmath>

namespace nubo {
namespace {

struct ComponentLight {
    int step, rest;
};

/// The formula itself: component `c` and an amount, held to 0 to 255 and truncated.
int sum_of(int c, double amount, bool darkens) {
    return darkens ? 255 - clamp_component(255 - c - amount) : clamp_component(c + amount);
}

ComponentLight component_light(double amount, bool darkens) {
    constexpr double hair = 1e-9;  // far above what a double loses at 255, far below the 1/51,000 of a weighed amount
    const int step = sum_of(0, amount, darkens);
    const double whole = std::round(amount);
    if (amount == whole || std::abs(amount - whole) > hair) return {step, 0};
    for (int c = 0; c <= 255; ++c)
        if (sum_of(c, amount, darkens) > std::min(c + step, 255)) return {step, 256 - c};
    return {step, 0};
}

}  // namespace

Light light_of(const std::array<double, 3>& amounts, bool darkens) {
    const ComponentLight red = component_light(amounts[0], darkens), green = component_light(amounts[1], darkens),
                         blue = component_light(amounts[2], darkens);
    return {pack_color(red.step, green.step, blue.step), pack_color(red.rest, green.rest, blue.rest)};
}

}  // namespace nubo
