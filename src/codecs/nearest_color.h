#pragma once
// The nearest of a palette's colours, exactly as a search through all of them finds it, but far quicker: the colours
// that can be nearest anywhere in a small cube of the colour space are found when a colour in it is first asked for.
#include "state/colors.h"
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace nubo {

inline constexpr Color nothing_kept = ~Color{0};  // no pixel has it

/// Of the least sum of squared differences of the three components; of equally near ones that in the lower slot.
class NearestColor {
public:
    static constexpr int none = -1;

    /// Of the first 256 colours. Those equal to `kept`, the mask colour, are left out: no other colour becomes it.
    /// Throws without memory; nothing else of it does.
    NearestColor(std::span<const Color> palette, Color kept);

    /// The slot in the palette; `none` if that has no other colour than `kept`.
    int slot_of(Color color) {
        const int index = index_of(color);
        return index == none ? none : slots_[static_cast<std::size_t>(index)];
    }

    /// `kept` itself, else the nearest colour; any colour itself where there is no other than `kept`.
    Color operator()(Color color) { return color == kept_ ? color : of_other(color); }

    /// The same of a colour which is another one than `kept`, even where it has that number.
    Color of_other(Color color) {
        const int index = index_of(color);
        return index == none ? color : colors_[static_cast<std::size_t>(index)];
    }

    Color kept() const { return kept_; }
    /// The colours of the palette but `kept`, by rising slot.
    std::span<const Color> colors() const { return std::span(colors_).first(count_); }

private:
    static constexpr int cube_bits = 5, side_bits = 8 - cube_bits;  // a side has 32 cubes, a cube 8 colours
    static constexpr std::size_t colors_max = 256, pool_size = std::size_t{1} << 18;
    struct Cube {
        std::uint32_t first = 0;
        std::uint32_t count = 0;  // 0: not looked at yet
    };

    /// Among `colors_`.
    int index_of(Color color);
    Cube find_candidates(Color color);

    Color kept_;
    std::array<Color, colors_max> colors_{};
    std::array<std::uint8_t, colors_max> slots_{};
    std::array<int, colors_max> red_{}, green_{}, blue_{};
    std::size_t count_ = 0;
    std::vector<Cube> cubes_;
    std::vector<std::uint8_t> pool_;  // candidates of the cubes, each by rising slot
    std::uint32_t pool_end_ = 0;
};

}  // namespace nubo
