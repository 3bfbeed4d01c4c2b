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

const LightTable& light_table(double share, bool darkens) {
    static LightTable table;
    if (table.share == share && table.darkens == darkens) return table;
    table.share = share;
    table.darkens = darkens;
    table.has_rest = false;
    for (std::size_t c = 0; c < 256; ++c) {
        const auto [step, rest] = component_light(share * static_cast<double>(c), darkens);
        for (std::size_t place = 0; place < 3; ++place) {
            table.step[place][c] = static_cast<Color>(step) << (16 - 8 * place);
            table.rest[place][c] = static_cast<Color>(rest) << (16 - 8 * place);
        }
        table.has_rest = table.has_rest || rest != 0;
    }
    return table;
}

}  // namespace nubo
