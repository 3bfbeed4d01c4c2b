#include "codecs/gif_palette.h"

#include "base/color.h"
#include "codecs/rgb_rows.h"

#include <climits>

namespace nubo {
namespace {

/// Allegro's palette has 4 bits a channel, with 60 the brightest of 63: spread, so that white stays white.
ExactPalette fast_palette(BITMAP* bitmap) {
    constexpr std::array<signed char, PAL_SIZE> none_reserved{};
    constexpr int kept_bits = 4;
    PALETTE palette;
    generate_optimized_palette(bitmap, palette, none_reserved.data());
    for (RGB& entry : palette)
        for (unsigned char* const channel : {&entry.r, &entry.g, &entry.b})
            *channel = static_cast<unsigned char>(*channel | *channel >> kept_bits);
    return widened_palette(palette);
}

}  // namespace

int color_distance(Color a, Color b) {
    const int red = 30 * (red_of(a) - red_of(b)), green = 59 * (green_of(a) - green_of(b)),
              blue = 11 * (blue_of(a) - blue_of(b));
    return red * red + green * green + blue * blue;
}

std::uint8_t NearestEntry::search(Color color) const {
    std::size_t nearest = 0;
    int least = INT_MAX;
    for (std::size_t i = 0; i < palette_.size() && least > 0; ++i)
        if (const int away = color_distance(palette_[i], color); away < least) {
            least = away;
            nearest = i;
        }
    return static_cast<std::uint8_t>(nearest);
}

ExactPalette widened_palette(const RGB* palette) {
    const auto eight_bits = [](int component) { return component << 2 | component >> 4; };
    ExactPalette colors{};
    for (std::size_t i = 0; i < colors.size(); ++i)
        colors[i] = pack_color(eight_bits(palette[i].r), eight_bits(palette[i].g), eight_bits(palette[i].b));
    return colors;
}

ExactPalette reduced_palette(BITMAP* bitmap, GifReduction reduction) {
    constexpr int good_sample = 10, best_sample = 1;
    ExactPalette palette{};
    switch (reduction) {
    case REDUCTION_GOOD: reduce_colors_neural(bitmap, good_sample, palette); break;
    case REDUCTION_BEST: reduce_colors_neural(bitmap, best_sample, palette); break;
    case REDUCTION_FAST:
    case REDUCTION_COUNT: return fast_palette(bitmap);
    }
    return palette;
}

void free_last_entry(ExactPalette& palette) {
    std::size_t given_up = gif_clear_index;
    int least = INT_MAX;
    for (std::size_t i = 0; i < palette.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (const int away = color_distance(palette[i], palette[j]); away < least) {
                least = away;
                given_up = i;
            }
    palette[given_up] = palette[gif_clear_index];
}

GifColorTable gif_color_table(const ExactPalette& palette) {
    GifColorTable bytes{};
    pack_row(palette.data(), bytes.data(), static_cast<int>(palette.size()), BYTES_RGB);
    return bytes;
}

}  // namespace nubo
