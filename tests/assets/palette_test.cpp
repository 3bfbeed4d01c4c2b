#include "harness/harness.h"
#include "palette.h"

namespace nubo {
namespace {

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
