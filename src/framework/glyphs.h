#pragma once
// Glyphs in the colours of a row, kept from one text to the next: the interface draws the same few hundred all the
// time.
#include "state/colors.h"
#include "state/fonts.h"
#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace nubo {

/// The pixels of one font in one colour row. Valid until the next `glyph_set`.
class GlyphSet {
public:
    /// The glyph's `cell_h` rows of `cell_w` pixels, 0xff00ff where nothing is.
    std::span<const Color> glyph(unsigned char character);

    bool is_of(int slot, int row) const { return slot_ == slot && row_ == row; }
    /// Drops the pixels unless they are what the slot's sheet, the row and the palette give now.
    void refresh(int slot, int row);

private:
    using Tones = std::array<int, text_tones>;

    int slot_ = -1, row_ = -1, generation_ = 0;
    Tones from_{}, to_{};  // colours of the palette's tones and what takes their place, `tone_kept` for none
    std::size_t glyph_size_ = 0;
    std::vector<Color> pixels_;
    std::array<bool, character_count> is_ready_{};
};

/// The set of a slot with a sheet and a colour row, any number; rows outside the table keep the sheet's colours.
GlyphSet& glyph_set(int slot, int row);

}  // namespace nubo
