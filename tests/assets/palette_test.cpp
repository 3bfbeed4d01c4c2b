#include "harness/harness.h"
#include "palette.h"

#include "base/color.h"
#include <gtest/gtest.h>

namespace nubo {
namespace {

/// 256 greys and blues in 32 rows of 8, which are a palette.
ArtSource plain_palette() {
    ArtSource source{"palette", {{{"colors", "0"}, {}, 1}}};
    for (int i = 0; i < 256; ++i) {
        if (i % 8 == 0) source.blocks[0].rows.emplace_back();
        char word[7];
        std::snprintf(word, sizeof word, "%02x00%02x", i / 64 * 4, i % 64 * 4);
        source.blocks[0].rows.back().push_back(word);
    }
    return source;
}

TEST(Palette, RefusesWhatSheetsCouldNotBeReadWith) {
    ASSERT_TRUE(read_palette(plain_palette()));
    const struct {
        std::size_t row, column;
        const char* color;
    } faults[] = {{0, 0, "040404"},   // black is not first
                  {9, 3, "000004"},   // the color of entry 1 again
                  {31, 7, "fc00fc"},  // what marks transparent pixels
                  {5, 5, "000102"}};  // more than 6 bits a channel
    for (const auto& fault : faults) {
        ArtSource source = plain_palette();
        source.blocks[0].rows[fault.row][fault.column] = fault.color;
        EXPECT_FALSE(read_palette(source)) << fault.color;
    }
    ArtSource one_less = plain_palette();
    one_less.blocks[0].rows.back().pop_back();
    EXPECT_FALSE(read_palette(one_less));
}

TEST(Palette, HasAnOutlineColourAndFallingTones) {
    const auto palette = read_palette(read_art(NUBO_ART "/palette.txt").value());
    ASSERT_TRUE(palette);
    const auto light = [&](std::size_t entry) {
        const Color color = (*palette)[entry];
        return red_of(color) + green_of(color) + blue_of(color);
    };
    EXPECT_LT(light(1), 48);
    for (std::size_t tone = 129; tone <= 135; ++tone) EXPECT_LT(light(tone), light(tone - 1)) << tone;
    EXPECT_EQ(nearest_entry(*palette, (*palette)[200]), 200);
}

}  // namespace
}  // namespace nubo
