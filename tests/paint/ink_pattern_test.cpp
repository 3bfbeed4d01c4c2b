// The inks that take their colour from the Spectrum or the Cel by position.
#include "ink_surfaces.h"

#include "base/color.h"
#include "state/cel.h"
#include "state/stroke.h"

namespace nubo {
namespace {

class InkGradientTest : public InkTest {
protected:
    InkGradientTest() {
        make_frame(30, 30, 0);
        spectrum_start = 0, spectrum_end = 0xffffff, spectrum_fold = 0;
    }
    static void set_nodes(Ink ink, bool repeats, std::initializer_list<int> nodes) {
        ink_option(ink, OPTION_REPEAT) = repeats ? 1 : 0;
        int slot = OPTION_NODE;
        for (const int node : nodes) ink_option(ink, static_cast<InkOption>(slot++)) = node;
    }
    /// One component of the gray at (x, y).
    static int level(Ink ink, int x, int y, int tip = 0) {
        clear_stroke_mask();
        apply_ink(x, y, ink, 0x123456, tip);
        return blue_of(frame(x, y));
    }
};

TEST_F(InkGradientTest, AxisBandRunsBetweenItsNodes) {
    for (const Ink ink : {INK_HGRAD, INK_VGRAD}) {
        const auto at = [=](int place) { return ink == INK_HGRAD ? level(ink, place, 2) : level(ink, 2, place); };
        set_nodes(ink, false, {10, 13});
        EXPECT_EQ(at(12), 127) << "2 / 4 of 255";
        EXPECT_EQ(at(9), 0) << "before the band";
        EXPECT_EQ(at(14), 252) << "t is held to 0.99";
        set_nodes(ink, true, {10, 13});
        const int from_5_up[] = {191, 0, 63, 127, 191, 0, 63, 127, 191, 0};  // t of 3/4, 0, 1/4, 2/4, 3/4, ...
        for (int i = 0; i < 10; ++i) EXPECT_EQ(at(5 + i), from_5_up[i]) << 5 + i;
        set_nodes(ink, true, {13, 10});
        EXPECT_EQ(at(9), 63) << "an end before the start turns the band: 255 - 0.75 * 255 = 63.75";
        set_nodes(ink, false, {10, 10});
        EXPECT_EQ(at(10), 255) << "equal nodes count as turned";
        EXPECT_EQ(at(11), 2) << "255 - 0.99 * 255 = 2.55";
    }
}

TEST_F(InkGradientTest, LinearBandFollowsItsAxis) {
    set_nodes(INK_LGRAD, false, {3, 5, 3, 15});
    EXPECT_EQ(level(INK_LGRAD, 20, 10), 127) << "half way down, wherever across";
    EXPECT_FLOAT_EQ(linear_axis.length, 10);
    set_nodes(INK_LGRAD, true, {3, 5, 3, 15});
    EXPECT_EQ(level(INK_LGRAD, 0, 8), 76) << "3: (10 - |3 - 10| mod 11) / 10 = 0.3";
    EXPECT_EQ(level(INK_LGRAD, 0, 2), 204) << "-3: (10 - |-3 - 10| mod 11) / 10 = 0.8";
    EXPECT_EQ(level(INK_LGRAD, 0, 17), 25) << "12: 12 mod 11 / 10 = 0.1";
    set_nodes(INK_LGRAD, false, {25, 0, 15, 0});
    EXPECT_EQ(level(INK_LGRAD, 22, 9), 76) << "3 leftward";
    set_nodes(INK_LGRAD, false, {0, 0, 6, 8});
    EXPECT_EQ(level(INK_LGRAD, 7, 1), 127) << "7 * 0.6 + 1 * 0.8 = 5";
    EXPECT_EQ(level(INK_LGRAD, 7, 2), 153) << "5.8, to the nearest 6 of 10";
    for (const bool repeats : {false, true}) {
        set_nodes(INK_LGRAD, repeats, {4, 4, 4, 4});
        EXPECT_EQ(level(INK_LGRAD, 4, 4), 0) << "no length: the start of the band";
        EXPECT_EQ(level(INK_LGRAD, 9, 29), 0);
    }
}

TEST_F(InkGradientTest, RadialBandGrowsFromItsCentre) {
    set_nodes(INK_RGRAD, false, {10, 10, 13, 13});
    EXPECT_EQ(level(INK_RGRAD, 12, 9), 102) << "2.2 truncated: 2 / 5";
    EXPECT_EQ(ink_option(INK_RGRAD, OPTION_RADIAL_RADIUS), 5) << "4.2 truncated, and 1";
    EXPECT_EQ(level(INK_RGRAD, 10, 17), 252) << "beyond the edge";
    set_nodes(INK_RGRAD, true, {10, 10, 14, 10});
    EXPECT_EQ(level(INK_RGRAD, 10, 16), 51) << "6 mod 5 / 5";
    for (const bool repeats : {false, true}) {
        set_nodes(INK_RGRAD, repeats, {10, 10, 10, 10});
        EXPECT_EQ(level(INK_RGRAD, 10, 10), 0);
        EXPECT_EQ(ink_option(INK_RGRAD, OPTION_RADIAL_RADIUS), 1);
    }
}

TEST_F(InkGradientTest, SoftPixelsBlendWithTheSnapshot) {
    set_nodes(INK_HGRAD, false, {10, 13});
    frame(12, 0) = 0xffffff;  // left there by the stroke: not the base
    EXPECT_EQ(level(INK_HGRAD, 12, 0, 100), 49) << "127 * 100 / 255 over the black of the snapshot";
    EXPECT_EQ(mask(12, 0), 100U);
    ink_option(INK_HGRAD, OPTION_BANDING) = 2;
    EXPECT_EQ(level(INK_HGRAD, 11, 0), 0) << "the first of two bands";
    EXPECT_EQ(level(INK_HGRAD, 12, 0), 170) << "255 / (2 - 0.5)";
}

class InkCelTest : public InkTest {
protected:
    InkCelTest() {
        make_frame(8, 8, 0x010101);
        replace_bitmap(cel_mask, make_bitmap(3, 2));
        for (int i = 0; i < 6; ++i) *pixels_at(cel_mask, i % 3, i / 3) = tile[i];
        cel_x = 5, cel_y = 5;
    }
    static constexpr Color tile[] = {0x0a0a0a, 0x141414, 0x1e1e1e, 0x282828, 0x323232, 0xff00ff};
};

TEST_F(InkCelTest, TileRepeatsWithoutSeamFromItsOrigin) {
    for (const int rounds : {-200, -1, 0, 1, 200})
        for (int i = 0; i < 6; ++i)
            EXPECT_EQ(tile_pixel(5 + 3 * rounds + i % 3, 5 + 2 * rounds + i / 3), tile[i]) << rounds << ": " << i;
    const std::uint8_t full = 0;
    for (int y = 0; y < 8; ++y) apply_ink_row({0, y, 8, &full, 0}, INK_TILE, 0);
    EXPECT_EQ(frame(5, 5), tile[0]);
    EXPECT_EQ(frame(7, 6), tile[5]) << "the bitmaps' transparent colour is a colour like any other here";
    EXPECT_EQ(frame(0, 0), tile[4]) << "5 left and 5 up: column 1, row 1";
    EXPECT_EQ(mask(0, 0), 0U);
}

TEST_F(InkCelTest, TileLeavesHolesAndSoftEdges) {
    mask_color = 0x0b0a0a;  // 1 from the tile's first pixel
    apply_ink(5, 5, INK_TILE, 0, 0);
    EXPECT_EQ(frame(5, 5), 0x010101U);
    mask_color = 0x0c0a0a;  // 2 from it
    apply_ink(5, 5, INK_TILE, 0, 0);
    EXPECT_EQ(frame(5, 5), tile[0]);
    apply_ink(6, 5, INK_TILE, 0, 100);
    EXPECT_EQ(frame(6, 5), gray(7)) << "1 * 155 >> 8 = 0, 20 * 101 >> 8 = 7";
    apply_ink(6, 5, INK_TILE, 0, 50);
    EXPECT_EQ(frame(6, 5), gray(13)) << "over the first: 7 * 105 >> 8 = 2, 20 * 151 >> 8 = 11";
    EXPECT_EQ(mask(6, 5), 150U);
}

TEST_F(InkCelTest, ScrapeBlendsTheTileOverTheSnapshot) {
    ink_option(INK_SCRAPE, OPTION_STRENGTH) = 128;
    for (int i = 0; i < 2; ++i) apply_ink(4, 4, INK_SCRAPE, 0, 0);
    EXPECT_EQ(frame(4, 4), 0x800080U) << "255 * 129 >> 8; 1 * 127 >> 8 = 0; twice is once";
    EXPECT_EQ(mask(4, 4), 128U);
}

}  // namespace
}  // namespace nubo
