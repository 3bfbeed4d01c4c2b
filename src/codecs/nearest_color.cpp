#include "codecs/nearest_color.h"

#include "base/color.h"
#include <algorithm>
#include <climits>

namespace nubo {
namespace {

constexpr int square(int distance) { return distance * distance; }

/// How near and how far the values from `first` to `first` + `side` - 1 are to one value, squared.
struct Reach {
    int nearest, farthest;
};
constexpr Reach reach_of(int value, int first, int side) {
    const int below = first - value, above = value - (first + side - 1);
    return {square(std::max({below, above, 0})), square(std::max(below + side - 1, above + side - 1))};
}

}  // namespace

NearestColor::NearestColor(std::span<const Color> palette, Color kept)
    : kept_(kept), cubes_(std::size_t{1} << (3 * cube_bits)), pool_(pool_size) {
    for (std::size_t slot = 0; slot < std::min(palette.size(), colors_max); ++slot) {
        if (palette[slot] == kept) continue;
        colors_[count_] = palette[slot];
        slots_[count_] = static_cast<std::uint8_t>(slot);
        red_[count_] = red_of(palette[slot]);
        green_[count_] = green_of(palette[slot]);
        blue_[count_] = blue_of(palette[slot]);
        ++count_;
    }
}

int NearestColor::index_of(Color color) {
    if (count_ == 0) return none;
    const int red = red_of(color), green = green_of(color), blue = blue_of(color);
    const int cube = (red >> side_bits << cube_bits | green >> side_bits) << cube_bits | blue >> side_bits;
    Cube& found = cubes_[static_cast<std::size_t>(cube)];
    if (found.count == 0) found = find_candidates(color);
    const std::uint8_t* const candidates = pool_.data() + found.first;
    if (found.count == 1) return candidates[0];
    int best = INT_MAX;  // the index stands below the distance in one word, so that the first of equals wins
    for (std::uint32_t i = 0; i < found.count; ++i) {
        const std::size_t at = candidates[i];
        const int distance = square(red_[at] - red) + square(green_[at] - green) + square(blue_[at] - blue);
        best = std::min(best, distance << 8 | static_cast<int>(at));
    }
    return best & 0xff;
}

/// A colour is out if another one is nearer even to the cube's farthest corner.
NearestColor::Cube NearestColor::find_candidates(Color color) {
    constexpr int side = 1 << side_bits;
    const auto first_of = [](int component) { return component >> side_bits << side_bits; };
    const int red = first_of(red_of(color)), green = first_of(green_of(color)), blue = first_of(blue_of(color));
    if (pool_end_ + count_ > pool_size) {  // all begins anew
        std::ranges::fill(cubes_, Cube{});
        pool_end_ = 0;
    }
    std::array<int, colors_max> nearest;
    int bound = INT_MAX;
    for (std::size_t i = 0; i < count_; ++i) {
        const Reach r = reach_of(red_[i], red, side), g = reach_of(green_[i], green, side),
                    b = reach_of(blue_[i], blue, side);
        nearest[i] = r.nearest + g.nearest + b.nearest;
        bound = std::min(bound, r.farthest + g.farthest + b.farthest);
    }
    const Cube cube{pool_end_, 0};
    for (std::size_t i = 0; i < count_; ++i)
        if (nearest[i] <= bound) pool_[pool_end_++] = static_cast<std::uint8_t>(i);
    return {cube.first, pool_end_ - cube.first};
}

}  // namespace nubo
