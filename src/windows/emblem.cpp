#include "windows/emblem.h"

#include <algorithm>
#include <array>

namespace nubo {
namespace {

constexpr Color opaque = 0xff000000;
constexpr int alpha_shift = 24;

bool is_cut_off(int x, int y) {
    constexpr std::array<int, 3> cut_off{3, 1, 1};  // pixels at both ends of the first and the last rows
    const int row = std::min(y, icon_side - 1 - y), column = std::min(x, icon_side - 1 - x);
    return row < static_cast<int>(cut_off.size()) && column < cut_off[static_cast<std::size_t>(row)];
}

/// What pixel `at` of `side` covers of a row of the icon. A pixel of the icon is `side` long, one of the target
/// `icon_side`.
struct Stretch {
    int begin, end, side;
    Stretch(int at, int of_side) : begin(at * icon_side), end(begin + icon_side), side(of_side) {}
    int first() const { return begin / side; }
    int last() const { return (end - 1) / side; }
    int covered(int pixel) const { return std::min(end, (pixel + 1) * side) - std::max(begin, pixel * side); }
};

/// The mean of the icon's pixels, by the area and the alpha that each has in it.
Color mean_pixel(BITMAP* icon, const Stretch& across, const Stretch& down) {
    std::array<int, 3> sums{};  // blue, green, red
    int seen = 0;
    for (int y = down.first(); y <= down.last(); ++y)
        for (int x = across.first(); x <= across.last(); ++x) {
            const Color color = *pixels_at(icon, x, y);
            const int weight = down.covered(y) * across.covered(x) * static_cast<int>(color >> alpha_shift);
            for (std::size_t i = 0; i < sums.size(); ++i) sums[i] += weight * static_cast<int>(color >> 8 * i & 0xff);
            seen += weight;
        }
    constexpr int area = icon_side * icon_side;
    Color mean = static_cast<Color>(seen / area) << alpha_shift;
    for (std::size_t i = 0; i < sums.size() && seen > 0; ++i) mean |= static_cast<Color>(sums[i] / seen) << 8 * i;
    return mean;
}

}  // namespace

OwnedBitmap draw_icon(BITMAP* logo) {
    if (logo->w < emblem_x + icon_side || logo->h < icon_side) return nullptr;
    OwnedBitmap icon = make_bitmap(icon_side, icon_side);
    for (int y = 0; icon && y < icon_side; ++y)
        for (int x = 0; x < icon_side; ++x)
            if (!is_cut_off(x, y)) *pixels_at(icon.get(), x, y) = *pixels_at(logo, emblem_x + x, y) | opaque;
    return icon;
}

OwnedBitmap scaled_icon(BITMAP* icon, int side) {
    OwnedBitmap scaled = make_bitmap(side, side);
    for (int y = 0; scaled && y < side; ++y)
        for (int x = 0; x < side; ++x)
            *pixels_at(scaled.get(), x, y) = mean_pixel(icon, Stretch(x, side), Stretch(y, side));
    return scaled;
}

}  // namespace nubo
