#pragma once
// Rows of translucent pixels: the loops under `trans_blit` and `trans_rectfill`. The 32-bit rows have a form for every
// processor and wider ones for those that can: all give the same pixels, bit for bit.
#include "state/colors.h"
#include <cstdint>
#include <span>

namespace nubo {

// ---- 32 bits -------------------------------------------------------------------------------------------------------

/// One pixel of the 32-bit fill at the strength `fact` 1 to 254: the formula that every form of `trans_rectfill`
/// follows. For the inks, which blend their pixels where they stand.
constexpr Color blend_fill_pixel(Color old, Color color, int fact) {
    constexpr Color red_blue = 0xff00ff, green = 0x00ff00;
    const Color s = static_cast<Color>(fact) + 1, rest = 256 - s;
    const Color a = ((color & red_blue) * s >> 8) & red_blue, b = ((color & green) * s >> 8) & green;
    return (((((old & green) * rest) >> 8) + b) & green) | (((((old & red_blue) * rest) >> 8) + a) & red_blue);
}

/// One form of the 32-bit rows. `length` may be 0; source and target don't overlap, or are one and the same row.
struct BlendRows {
    const char* name;
    /// Blends `color` into the row at the strength `fact`, 1 to 254.
    void (*fill)(Color* row, int length, Color color, int fact);
    /// Blends `source` into `target` at the strength `fact`, 1 to 254, but for pixels of `transparent_color`.
    void (*blit)(const Color* source, Color* target, int length, int fact);
    /// The same at exactly half, which stands for the strengths 127 and 128.
    void (*blit_half)(const Color* source, Color* target, int length);
};

/// The forms that this processor runs, from "plain", which every one runs, to the widest. For tests and benches.
std::span<const BlendRows> blend_row_forms();
/// The widest form of this processor.
const BlendRows& blend_rows();

// ---- 16 and 15 bits ------------------------------------------------------------------------------------------------

/// What tells the two narrow depths apart.
struct NarrowDepth {
    int bits;
    std::uint16_t color_key;
    /// The channels of two equal pixels in a word, every other one, so that each has room above and below it: red and
    /// blue of the lower pixel, green of the upper.
    std::uint32_t spread;
};
inline constexpr NarrowDepth depth_16{16, 0xf81f, 0x07e0f81f};
inline constexpr NarrowDepth depth_15{15, 0x7c1f, 0x03e07c1f};
inline constexpr int narrow_shift = 5, narrow_full = 1 << narrow_shift;  // the strength that replaces is 32

/// As the 32-bit rows, at the strength `s`, 1 to 31. Exactly half, 16, needs no form of its own here: of 32 it is a
/// true half.
void fill_narrow_row(const NarrowDepth& depth, std::uint16_t* row, int length, std::uint16_t color, int s);
void blit_narrow_row(const NarrowDepth& depth, const std::uint16_t* source, std::uint16_t* target, int length, int s);

}  // namespace nubo
