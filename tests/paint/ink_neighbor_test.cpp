// The inks that look at neighbours.
#include "ink_surfaces.h"

namespace nubo {
namespace {

class InkNeighborTest : public InkTest {
protected:
    static void set_strength(Ink ink, int strength) { ink_option(ink, OPTION_STRENGTH) = strength; }
};

TEST_F(InkNeighborTest, CloseFillsGapsAcrossAndAlong) {
    brush_color = 0xff0000;
    const Color r = 0xff0000, g = 0x00ff00;
    const auto closed = [=](std::initializer_list<Color> line, bool is_across, int tolerance) {
        make_frame(is_across ? 3 : 1, is_across ? 1 : 3, g);
        int at = 0;
        for (const Color pixel : line) frame(is_across ? at : 0, is_across ? 0 : at) = pixel, ++at;
        begin_stroke();
        set_strength(INK_CLOSE, tolerance);
        return painted(INK_CLOSE, is_across ? 1 : 0, is_across ? 0 : 1, 255);  // outside the tip all the same
    };
    for (const bool is_across : {true, false}) {
        EXPECT_EQ(closed({r, g, 0xfb0000}, is_across, 5), r) << "4 less than red is within 5";
        EXPECT_EQ(closed({r, g, 0xfa0000}, is_across, 5), g);
        EXPECT_EQ(closed({r, g, r}, is_across, 0), g) << "a tolerance of 0 matches nothing";
        EXPECT_EQ(closed({r, 0xfb0000, r}, is_across, 5), 0xfb0000U) << "near enough already";
        EXPECT_EQ(mask(0, 0), 0U);
    }
    EXPECT_EQ(painted(INK_CLOSE, 0, 0), r) << "the frame's edge has no gaps";
}

TEST_F(InkNeighborTest, EmbossWeighsFromLowerRightToUpperLeft) {
    make_frame(3, 3, gray(100));
    frame(2, 2) = gray(110);
    begin_stroke();
    set_strength(INK_EMBOSS, 255);
    EXPECT_EQ(painted(INK_EMBOSS, 1, 1, 100), gray(110)) << "100 + 0.5 * (2 * 110 + 2 * 100 - 4 * 100)";
    EXPECT_EQ(mask(1, 1), 100U);
    EXPECT_EQ(painted(INK_EMBOSS, 1, 1, 0), gray(120)) << "the stronger stamp starts from the snapshot";
    EXPECT_EQ(painted(INK_EMBOSS, 0, 0), gray(255)) << "nothing at the upper left: 100 + 4 * 100";
    EXPECT_EQ(painted(INK_EMBOSS, 2, 2), gray(0)) << "110 - 4 * 100";
    EXPECT_EQ(painted(INK_EMBOSS, 2, 0), gray(100)) << "100 - 100 + 100, a weight of 0 between";
}

TEST_F(InkNeighborTest, SoftenCountsMissingNeighborsAsBlack) {
    make_frame(3, 3, gray(80));
    frame(1, 1) = gray(1);
    begin_stroke();
    set_strength(INK_SOFTEN, 255);
    EXPECT_EQ(painted(INK_SOFTEN, 1, 1), gray(80)) << "the centre drops out";
    EXPECT_EQ(painted(INK_SOFTEN, 1, 0), gray(40)) << "(4 * 80 + 1) / 8";
    set_strength(INK_SOFTEN, 51);
    EXPECT_EQ(painted(INK_SOFTEN, 0, 0), gray(68)) << "0.8 * 80 + 0.2 * (2 * 80 + 1) / 8 = 68.03";
}

TEST_F(InkNeighborTest, GlowPilesUpOncePerPixel) {
    make_frame(9, 9, 0);
    frame(3, 3) = 0xffffff;
    begin_stroke();
    set_strength(INK_GLOW, 255);
    ink_option(INK_GLOW, OPTION_GLOW_RADIUS) = 3;
    for (int i = 0; i < 3; ++i) apply_ink(4, 4, INK_GLOW, 100, 0);
    EXPECT_EQ(frame(4, 4), 100U);
    EXPECT_EQ(frame(5, 5), 75U) << "1 - 1 / 4; the diagonal is 1.4 away, truncated 1";
    EXPECT_EQ(frame(7, 6), 25U) << "3.6 away";
    EXPECT_EQ(frame(1, 1), 0U) << "4.2 away";
    EXPECT_EQ(frame(3, 3), 0xffffffU) << "white stays";
    apply_ink(8, 4, INK_GLOW, 100, 100);
    EXPECT_EQ(frame(5, 4), 87U) << "75 + 0.5 * 25, clipped at the right";
    EXPECT_EQ(mask(8, 4), 1U);
}

TEST_F(InkNeighborTest, HollowErasesTheInsideOfSolidAreas) {
    make_frame(5, 3, gray(50));
    frame(4, 1) = gray(60);
    frame(0, 2) = gray(200);  // no neighbour of the row above's end
    begin_stroke();
    mask_color = 0x0000ff;
    ink_option(INK_HOLLOW, OPTION_HOLLOW_TOLERANCE) = 10;
    EXPECT_EQ(painted(INK_HOLLOW, 0, 0), mask_color) << "a corner has only the neighbours there are";
    EXPECT_EQ(painted(INK_HOLLOW, 3, 1), gray(50)) << "60 is not below 10 away";
    EXPECT_EQ(painted(INK_HOLLOW, 2, 1, 100), 0x1e1e82U) << "50 * 155 >> 8 = 30, + (255 * 101 >> 8) = 130";
    EXPECT_EQ(painted(INK_HOLLOW, 2, 1, 100), 0x1212b2U) << "no mask: 30 * 155 >> 8 = 18, (130 * 155 >> 8) + 100 = 178";
    ink_option(INK_HOLLOW, OPTION_HOLLOW_TOLERANCE) = 11;
    EXPECT_EQ(painted(INK_HOLLOW, 3, 1), mask_color);
    EXPECT_EQ(painted(INK_HOLLOW, 4, 1), mask_color);
    ink_option(INK_HOLLOW, OPTION_HOLLOW_TOLERANCE) = 0;
    EXPECT_EQ(painted(INK_HOLLOW, 1, 0), gray(50)) << "not even the pixel itself matches";
}

TEST_F(InkNeighborTest, JumbleDrawsXThenY) {
    make_frame(4, 4, 0);
    for (int i = 0; i < 16; ++i) frame(i % 4, i / 4) = static_cast<Color>(i);
    begin_stroke();
    set_strength(INK_JUMBLE, 2);
    const std::uint8_t tip[] = {255, 0};
    tell_draws({3, 0, 0, 3});
    apply_ink_row({1, 2, 2, tip, 1}, INK_JUMBLE, 0);
    EXPECT_EQ(asked, (std::vector{4, 4, 4, 4}));
    EXPECT_EQ(frame(1, 2), 2U) << "from (1 - 2 + 3, 2 - 2 + 0)";
    EXPECT_EQ(frame(2, 2), 12U) << "from (2 - 2 + 0, 2 - 2 + 3)";
}

TEST_F(InkNeighborTest, SweepReplacesStraysByTheMeanOfTheFrame) {
    make_frame(3, 3, gray(100));
    frame(1, 1) = gray(200);
    begin_stroke();
    for (int i = 0; i < 9; ++i) frame(i % 3, i / 3) = gray(i == 8 ? 67U : 60U);  // what the stroke has left there
    set_strength(INK_SWEEP, 100);
    EXPECT_EQ(painted(INK_SWEEP, 0, 0, 255), gray(60)) << "has friends";
    EXPECT_EQ(painted(INK_SWEEP, 1, 1, 255), gray(60)) << "none below 100 away: (7 * 60 + 67) / 8 = 60.9";
    frame(1, 1) = gray(200);
    set_strength(INK_SWEEP, 101);
    EXPECT_EQ(painted(INK_SWEEP, 1, 1), gray(200));
    make_frame(1, 1, gray(5));
    EXPECT_EQ(painted(INK_SWEEP, 0, 0), gray(5)) << "no neighbour at all";
}

TEST_F(InkNeighborTest, UnzagSoftensTheFirstCornerThatStandsOut) {
    set_strength(INK_UNZAG, 100);
    const auto softened = [](Color beside, Color diagonal, Color above, Color center) {
        make_frame(3, 3, center);
        frame(0, 1) = beside, frame(0, 0) = diagonal, frame(1, 0) = above;
        frame(2, 1) = frame(2, 2) = frame(1, 2) = gray(250);  // the last diagonal agrees too
        begin_stroke();
        return painted(INK_UNZAG, 1, 1, 255);
    };
    EXPECT_EQ(softened(gray(200), gray(205), gray(195), 0), gray(78)) << "100 / 255 * 200 = 78.4";
    EXPECT_EQ(softened(gray(200), gray(206), gray(200), 0), gray(98)) << "6 apart; 100 / 255 * 250 = 98.04";
    EXPECT_EQ(softened(gray(200), gray(200), gray(206), 0), gray(98));
    EXPECT_EQ(softened(gray(230), gray(230), gray(230), gray(231)), gray(231)) << "neither stands out by 20";
    EXPECT_EQ(softened(gray(220), gray(220), gray(220), gray(240)), gray(232)) << "240 - 100 / 255 * 20 = 232.2";
}

}  // namespace
}  // namespace nubo
