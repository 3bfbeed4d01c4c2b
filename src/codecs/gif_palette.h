#pragma once
// The palette of a GIF that is written, and which of its entries a colour becomes.
#include "codecs/reduce_colors.h"
#include "state/options.h"
#include <cstdint>
#include <span>

namespace nubo {

/// The last index: the clear one where there is one, and then no other pixel's.
inline constexpr std::uint8_t gif_clear_index = 255;

/// How far apart two colours are, by the weights of Allegro's own lookup.
int color_distance(Color a, Color b);

/// Finds a palette's entry that is nearest to a colour: the first of the nearest, so the colour itself where the
/// palette has it. A colour met before is found at once as a rule.
class NearestEntry {
public:
    /// The palette must live as long.
    explicit NearestEntry(std::span<const Color> palette) : palette_(palette) { colors_.fill(no_color); }

    std::uint8_t operator()(Color color) {
        const std::size_t at = color * 2654435761U >> (32 - hash_bits);  // Knuth's multiplicative hash
        if (colors_[at] != color) {
            colors_[at] = color;
            entries_[at] = search(color);
        }
        return entries_[at];
    }

private:
    static constexpr int hash_bits = 12;
    static constexpr Color no_color = ~Color{0};

    std::uint8_t search(Color color) const;

    std::span<const Color> palette_;
    std::array<Color, 1 << hash_bits> colors_{};
    std::array<std::uint8_t, 1 << hash_bits> entries_{};
};

/// Allegro's 6 bits of each channel spread over 8, so that white stays white.
ExactPalette widened_palette(const RGB* palette);

/// 256 colours for a picture of more.
ExactPalette reduced_palette(BITMAP* bitmap, GifReduction reduction);

/// Gives up one of the two entries that are nearest to each other, so that the last one is free.
void free_last_entry(ExactPalette& palette);

/// A palette as the file holds it.
using GifColorTable = std::array<std::uint8_t, 3 * 256>;
GifColorTable gif_color_table(const ExactPalette& palette);

}  // namespace nubo
