#include "codecs/color_use.h"

#include "base/bitmap.h"
#include "base/color.h"
#include "codecs/color_groups.h"
#include <algorithm>

namespace nubo {
namespace {

constexpr std::size_t counted_max = 256;
constexpr int bin_bits = 6, word_bits = 64;
constexpr Color color_bits = 0xffffff;

std::size_t bin_of(Color color) {
    constexpr int dropped = 8 - bin_bits;
    const int red = red_of(color) >> dropped, green = green_of(color) >> dropped, blue = blue_of(color) >> dropped;
    return static_cast<std::size_t>((red << bin_bits | green) << bin_bits | blue);
}

}  // namespace

ColorUse::ColorUse(Color kept)
    : kept_(kept), seen_((color_bits + 1) / word_bits), bins_(std::size_t{1} << (3 * bin_bits)) {
    uses_.reserve(counted_max + 1);
}

void ColorUse::add(BITMAP* picture) {
    for (int y = 0; y < picture->h; ++y) {
        const Color* const row = pixels_at(picture, 0, y);
        for (int first = 0, end = 0; first < picture->w; first = end) {
            while (end < picture->w && row[end] == row[first]) ++end;
            add(row[first] & color_bits, static_cast<std::uint64_t>(end - first));
        }
    }
}

void ColorUse::add(Color color, std::uint64_t times) {
    if (color == kept_) {
        has_kept_ = true;
        return;
    }
    std::uint64_t& seen = seen_[color / word_bits];
    const std::uint64_t bit = std::uint64_t{1} << (color % word_bits);
    if ((seen & bit) == 0) ++others_;
    seen |= bit;
    if (others_ <= counted_max) uses_[color] += times;
    Bin& bin = bins_[bin_of(color)];
    bin.count += times;
    bin.red += times * static_cast<std::uint64_t>(red_of(color));
    bin.green += times * static_cast<std::uint64_t>(green_of(color));
    bin.blue += times * static_cast<std::uint64_t>(blue_of(color));
}

/// Of equally frequent ones the lower number first.
std::vector<Color> ColorUse::by_use() const {
    std::vector<std::pair<std::uint64_t, Color>> uses;
    for (const auto& [color, times] : uses_) uses.emplace_back(times, color);
    std::ranges::sort(uses, [](const auto& a, const auto& b) {
        return a.first != b.first ? a.first > b.first : a.second < b.second;
    });
    std::vector<Color> colors(uses.size());
    std::ranges::transform(uses, colors.begin(), [](const auto& use) { return use.second; });
    return colors;
}

std::vector<Color> ColorUse::best_colors(std::size_t most) const {
    if (others_ <= std::min(most, counted_max)) return by_use();
    std::vector<WeighedColor> means;
    for (const Bin& bin : bins_) {
        if (bin.count == 0) continue;
        const auto weight = static_cast<double>(bin.count);
        means.push_back({{static_cast<double>(bin.red) / weight, static_cast<double>(bin.green) / weight,
                          static_cast<double>(bin.blue) / weight},
                         weight});
    }
    return means_of_groups(std::move(means), most, kept_);
}

}  // namespace nubo
