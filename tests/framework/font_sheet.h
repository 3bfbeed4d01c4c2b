#pragma once
// A font sheet drawn in memory, for tests of text: cells of 5 by 7 pixels in a palette of 256 distinct colours.
#include "base/bitmap.h"
#include "framework/effects.h"
#include "framework/resources.h"
#include "framework/text.h"
#include <array>
#include <string_view>

namespace nubo {

inline constexpr int test_cell_w = 5, test_cell_h = 7;

/// Makes a palette current whose 256 colours differ, with black at 0 and without 0xff00ff.
inline void set_test_palette() {
    PALETTE palette{};
    for (int i = 0; i < PAL_SIZE; ++i) {
        palette[i].r = static_cast<unsigned char>((i & 7) * 9);
        palette[i].g = static_cast<unsigned char>((i >> 3 & 7) * 9);
        palette[i].b = static_cast<unsigned char>((i >> 6) * 20);
    }
    set_palette(palette);
}

inline Color tone_color(int tone) { return UA_palette_color(first_tone + tone); }

/// The sheet under work: values are palette indices, as an artist would paint them.
class FontSheet {
public:
    FontSheet() : bitmap_(make_bitmap(320, 200)) {
        for (int i = 0; i < 4; ++i) put(i, 0, std::array{test_cell_w, test_cell_h, 2, 1}[static_cast<std::size_t>(i)]);
        for (int tone = 0; tone < text_tones; ++tone) put(tone, 199, first_tone + tone);
    }
    /// Adds a character whose glyph has the digits of `rows` as tones, '.' as nothing.
    void add(int code, int dy, int advance, std::initializer_list<std::string_view> rows) {
        const int columns = 320 / (test_cell_w + 1), x = ++cell_ % columns * (test_cell_w + 1);
        const int y = cell_ / columns * (test_cell_h + 1);
        for (int i = 0; i < 3; ++i) put(x + i, y, std::array{code, dy, advance}[static_cast<std::size_t>(i)]);
        int line = y + 1;
        for (const std::string_view row : rows) {
            for (std::size_t i = 0; i < row.size(); ++i)
                if (row[i] != '.') put(x + 1 + static_cast<int>(i), line, first_tone + row[i] - '0');
            ++line;
        }
    }
    /// The sheet with black as nothing, ready for `build_font`.
    BITMAP* bitmap() {
        UA_black_to_mask(bitmap_.get());
        return bitmap_.get();
    }

private:
    void put(int x, int y, int value) { *pixels_at(bitmap_.get(), x, y) = UA_palette_color(value); }

    OwnedBitmap bitmap_;
    int cell_ = 0;
};

}  // namespace nubo
