// The inks of one pixel and a colour. A blend of alpha a weighs the colour by a + 1 of 256 and the base by the rest;
// each product is shifted down by 8 before they are added.
#include "ink_surfaces.h"
#include "paint/ink_light.h"

namespace nubo {
namespace {

using InkColorTest = InkTest;

TEST_F(InkColorTest, ComputesOnePixelAsWorkedOutByHand) {
    struct {
        Ink ink;
        int strength, tip;
        Color base, color, expected, covered;
        const char* why;
    } const cases[] = {
        {INK_GLASS, 128, 0, 0, gray(255), gray(128), 128, "255 * 129 >> 8 = 128"},
        {INK_GLASS, 255, 0, 0x123456, 0xfedcba, 0xfedcba, 255, "256 of 256"},
        {INK_GLASS, 0, 0, 0x123456, 0xfedcba, 0x123456, 0, "0 is not above the mask"},
        {INK_BRIGHT, 100, 100, 0, 0, gray(39), 39, "coverage 100 / 255 * 100 = 39.2; 255 * 40 >> 8 = 39"},
        {INK_DARK, 100, 0, gray(200), gray(255), gray(121), 100, "200 * 155 >> 8 = 121"},
        {INK_ADD, 255, 0, 0x0ac800, 0x146405, 0x1eff05, 200, "10 + 20, 200 + 100 held to 255, 0 + 5"},
        {INK_ADD, 128, 100, gray(10), gray(100), gray(35), 100, "10 + 128 / 255 * 0.5 * 100 = 35.1"},
        {INK_ADD, 0, 0, gray(10), gray(100), gray(10), 200, "no strength covers all the same"},
        {INK_SUB, 128, 0, 0x640a00, 0x646464, 0x310000, 200, "100 - 50.2 = 49.8; below 0 is 0"},
        {INK_XOR, 0, 0, 0x123456, 0xffffff, 0xedcba9, 200, "the negative"},
        {INK_XOR, 0, 100, 0, gray(100), gray(60), 100, "blended by 255 - 100: 155 / 255 * 100 = 60.8"},
        {INK_GRAY, 255, 0, 0x0a143c, 0, gray(30), 255, "(10 + 20 + 60) / 3"},
        {INK_SPARK, 128, 0, gray(100), 0, 0x963131, 128, "hue 0; 100 * (1 +- 128 / 255) = 150.2 and 49.8"},
        {INK_SPARK, 128, 100, gray(100), 0, 0x695c5c, 64,
         "saturation 64: 125, 74; (100 * 191 >> 8) + (125 * 65 >> 8) = 105, + (74 * 65 >> 8) = 92"},
    };
    for (const auto& c : cases) {
        make_frame(1, 1, c.base);
        ink_option(c.ink, OPTION_STRENGTH) = c.strength;
        for (const auto& [x, y] : {std::pair{-1, 0}, {1, 0}, {0, -1}, {0, 1}}) apply_ink(x, y, c.ink, c.color, 0);
        apply_ink(0, 0, INK_COUNT + c.ink, c.color, 0);
        EXPECT_EQ(frame(0, 0), c.base) << "outside the frame, and no ink";
        apply_ink(0, 0, c.ink, c.color, c.tip);
        EXPECT_EQ(frame(0, 0), c.expected) << c.ink << ": " << c.why;
        EXPECT_EQ(mask(0, 0), c.covered) << c.ink << ": " << c.why;
    }
}

TEST_F(InkColorTest, LightGivesTheTruncatedSumsOfDoubles) {
    for (int strength = 0; strength <= 255; ++strength)
        for (const int tenths : {10, 7, 3, 1})  // 1 - 9 / 10 falls a hair short of a tenth
            for (int c = 0; c <= 255; c += 5) {
                const double amount = (1 - (10 - tenths) / 10.0) * (strength / 255.0) * c;
                const Light up = light_of({amount, 0, amount}), down = light_of({amount, 0, amount}, true);
                for (unsigned p = 0; p <= 255; ++p) {
                    const auto sum = static_cast<Color>(std::min(p + amount, 255.0)),
                               rest = static_cast<Color>(std::max(p - amount, 0.0));
                    ASSERT_EQ(lit(gray(p), up), sum << 16 | p << 8 | sum) << p << " + " << amount;
                    ASSERT_EQ(lit(~gray(p) & 0xffffff, down) ^ 0xffffff, rest << 16 | p << 8 | rest)
                        << p << " - " << amount;
                }
            }
}

TEST_F(InkColorTest, SoftEdgesOfOpaqueAndGrayStartFromTheFrame) {
    make_frame(1, 1, 0);
    const auto after_stamp = [](int tip) { return apply_ink(0, 0, INK_OPAQUE, 0xffffff, tip), frame(0, 0); };
    EXPECT_EQ(after_stamp(100), gray(100)) << "255 * 101 >> 8";
    EXPECT_EQ(after_stamp(100), gray(100)) << "equal coverage is dropped";
    EXPECT_EQ(after_stamp(50), gray(191)) << "over the first: (100 * 105 >> 8) + (255 * 151 >> 8) = 41 + 150";
    EXPECT_EQ(after_stamp(0), gray(255));
    EXPECT_EQ(mask(0, 0), 150U) << "a full pixel leaves the mask alone";

    make_frame(1, 1, 0x0a143c);
    frame(0, 0) = 0x1e3c5a;  // left there by the stroke: its mean is 60
    ink_option(INK_GRAY, OPTION_STRENGTH) = 255;
    EXPECT_EQ(painted(INK_GRAY, 0, 0, 100), 0x1d233bU) << "60 * 101 >> 8 = 23; 10, 20, 60 * 155 >> 8 = 6, 12, 36";
}

TEST_F(InkColorTest, GrainDrawsAtEveryPixelThenTheAlpha) {
    make_frame(5, 1, 0);
    ink_option(INK_GRAIN, OPTION_STRENGTH) = 200;
    ink_option(INK_GRAIN, OPTION_GRAIN_FREQUENCY) = 50;
    mask(4, 0) = 200;
    const std::uint8_t tip[] = {0, 100, 200, 0, 0};
    tell_draws({50, 99, 0, 150, 0, 51, 0});
    apply_ink_row({0, 0, 5, tip, 1}, INK_GRAIN, 0xffffff);
    EXPECT_EQ(asked, (std::vector{100, 200, 100, 200, 100, 100, 100})) << "outside, too often, covered: no alpha";
    // 255 * 100 >> 8 = 99; 150 / 255 * 100 = 58.8, 255 * 59 >> 8 = 58
    EXPECT_EQ(pixels_of(current_frame), (std::vector<Color>{gray(99), gray(58), 0, 0, 0}));
    EXPECT_EQ(pixels_of(stroke_mask), (std::vector<Color>{200, 58, 0, 0, 200}));

    make_frame(1, 1, gray(100));
    tell_draws({0, 0});
    EXPECT_EQ(painted(INK_GRAIN, 0, 0), gray(100)) << "an alpha of 0 does nothing, but covers";
    EXPECT_EQ(mask(0, 0), 200U);
}

TEST_F(InkColorTest, PullMovesTheHueStraightTowardTheBrushColor) {
    const auto pulled = [](Color base, int strength, int tip) {
        make_frame(1, 1, base);
        ink_option(INK_PULL, OPTION_STRENGTH) = strength;
        return painted(INK_PULL, 0, 0, tip);  // the colour argument plays no part
    };
    brush_color = 0xff0000;
    EXPECT_EQ(pulled(0x00ff00, 51, 0), 0x66ff00U) << "hue 85 - 0.2 * 85 = 68, the red 6 * (2 / 3 - 0.6) = 0.4";
    EXPECT_EQ(pulled(0x00ff00, 51, 100), 0x08fe00U) << "alpha 20: 102 * 21 >> 8, (255 * 235 >> 8) + (255 * 21 >> 8)";
    EXPECT_EQ(mask(0, 0), 20U);
    brush_color = 0x0000ff;
    EXPECT_EQ(pulled(0xff0000, 128, 0), 0x00ff01U) << "from hue 0 to 170 by way of green at 85, not of violet at 212";
}

}  // namespace
}  // namespace nubo
