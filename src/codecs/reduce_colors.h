#pragma once
// From a picture of any colours to the 256 of a GIF.
#include "state/colors.h"
#include <allegro.h>
#include <array>
#include <cstdint>

namespace nubo {

using ExactPalette = std::array<Color, 256>;

/// The distinct colours met so far, up to 256 in the order of their first pixels, found again by a hash.
class ColorList {
public:
    /// Adds a colour that isn't there yet. False when it would be the 257th.
    bool add(Color color);

    std::size_t count() const { return count_; }
    /// The colours, then black.
    const ExactPalette& palette() const { return colors_; }

private:
    static constexpr int hash_bits = 10;
    static constexpr std::uint16_t free_place = 0;
    static constexpr Color no_color = ~Color{0};
    std::array<std::uint16_t, 1 << hash_bits> places_{};  // one more than the index of a colour
    ExactPalette colors_{};
    std::size_t count_ = 0;
    Color last_ = no_color;
};

/// The number of a picture's colours when they are at most 256: `palette` gets them in the order of their first pixels
/// from the top left, then black. -1 when they are more; `palette` is untouched then.
int reduce_colors_exact(BITMAP* bitmap, ExactPalette& palette);

/// 256 colours that a neural net has learned from every `sample`-th pixel, 1 to 30, of the 32-bit `bitmap`. The net is
/// that of A. Dekker, "Kohonen neural networks for optimal colour quantization", Network 5 (1994), 351-367.
void reduce_colors_neural(BITMAP* bitmap, int sample, ExactPalette& palette);

}  // namespace nubo
