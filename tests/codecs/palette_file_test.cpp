// Palettes of other programs, as their formats are described, and bent ones.
#include "codecs/palette.h"
#include "harness/harness.h"

namespace nubo {
namespace {

std::span<const std::uint8_t> bytes_of(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

TEST(PaletteFile, TextsGiveTheColoursOfTheirLines) {
    const std::vector<Color> three{0x000000, 0xff8000, 0x0a141e};
    EXPECT_EQ(read_gpl(bytes_of("GIMP Palette\nName: Three 1 2 3\nColumns: 16\n# 9 9 9\n  0   0   0\tBlack\n"
                                "255 128   0\tOrange 7\n\n10 20 30")),
              three);
    EXPECT_EQ(read_pal(bytes_of("JASC-PAL\r\n0100\r\n3\r\n0 0 0\r\n255 128 0\r\n10 20 30\r\n")), three);
    EXPECT_EQ(read_gpl(bytes_of("GIMP Palette\n256 0 0\n0 -1 0\n1 2\n99999999999 1 1\nx 1 2\n4 5 6\n")),
              std::vector<Color>{0x040506})
        << "what is no colour is left out";
    EXPECT_TRUE(read_gpl(bytes_of("JASC-PAL\r\n0100\r\n1\r\n1 2 3\r\n")).empty());
    EXPECT_TRUE(read_pal(bytes_of("GIMP Palette\n1 2 3\n")).empty());
    EXPECT_TRUE(read_pal({}).empty());
}

TEST(PaletteFile, ARiffFileGivesAsManyColoursAsItHas) {
    // Head, size, kind, chunk, its size, version 0x0300, number of colours, then red, green, blue and a flag of each.
    const auto riff = [](char count, const std::string& colors) {
        return "RIFF" + std::string(4, '\x10') + "PAL data" + std::string(4, '\x08') + std::string("\0\3", 2) + count +
               '\0' + colors;
    };
    const std::string two("\x01\x02\x03\0\xff\x80\x40\x7f", 8);
    EXPECT_EQ(read_pal(bytes_of(riff(2, two))), (std::vector<Color>{0x010203, 0xff8040}));
    EXPECT_EQ(read_pal(bytes_of(riff(1, two))).size(), 1u);
    EXPECT_EQ(read_pal(bytes_of(riff(100, two))).size(), 2u) << "it promises more than there is";
    for (std::size_t size = 0; size < riff(2, two).size(); ++size)
        EXPECT_LE(read_pal(bytes_of(riff(2, two).substr(0, size))).size(), 1u) << size;
}

TEST(PaletteFile, EveryColourComesBackAndNoMoreThanFit) {
    std::vector<Color> colors(palette_colors_max + 44);
    for (std::size_t i = 0; i < colors.size(); ++i) colors[i] = static_cast<Color>(i * 0x010305 & 0xffffff);
    const std::vector<Color> first(colors.begin(), colors.begin() + palette_colors_max);
    Bytes gpl, pal;
    write_gpl(colors, gpl);
    write_pal(colors, pal);
    EXPECT_EQ(read_gpl(gpl), first);
    EXPECT_EQ(read_pal(pal), first);
    const std::string text(pal.begin(), pal.end());
    EXPECT_TRUE(text.starts_with("JASC-PAL\r\n0100\r\n300\r\n0 0 0\r\n1 3 5\r\n"));
}

}  // namespace
}  // namespace nubo
