// The inks that look at neighbours: small cases by hand, and the plain formulas over random Frames.
#include "ink_surfaces.h"

#include "base/color.h"
#include <algorithm>
#include <cmath>

namespace nubo {
namespace {

class InkNeighborTest : public InkTest {
protected:
    static void set_strength(Ink ink, int strength) { ink_option(ink, OPTION_STRENGTH) = strength; }
    static Color painted(Ink ink, int x, int y, int tip = 0) { return apply_ink(x, y, ink, 0, tip), frame(x, y); }
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
    fill_glow_distances();
    make_frame(5, 5, 0);
    frame(1, 1) = 0xffffff;
    begin_stroke();
    set_strength(INK_GLOW, 255);
    ink_option(INK_GLOW, OPTION_GLOW_RADIUS) = 1;
    for (int i = 0; i < 3; ++i) apply_ink(2, 2, INK_GLOW, gray(100), 0);
    EXPECT_EQ(frame(2, 2), gray(100));
    EXPECT_EQ(frame(3, 3), gray(50)) << "1 - 1 / 2; the diagonal is 1.4 away, truncated 1";
    EXPECT_EQ(frame(4, 2), 0U);
    EXPECT_EQ(frame(1, 1), gray(255)) << "white stays";
    apply_ink(3, 2, INK_GLOW, gray(100), 100);
    EXPECT_EQ(frame(3, 2), gray(100)) << "50 + 0.5 * 100";
    EXPECT_EQ(frame(2, 2), gray(125)) << "100 + 0.25 * 100";
    EXPECT_EQ(mask(3, 2), 1U);
}

TEST_F(InkNeighborTest, HollowErasesTheInsideOfSolidAreas) {
    make_frame(5, 3, gray(50));
    frame(4, 1) = gray(60);
    begin_stroke();
    mask_color = 0x0000ff;
    ink_option(INK_HOLLOW, OPTION_HOLLOW_TOLERANCE) = 10;
    EXPECT_EQ(painted(INK_HOLLOW, 0, 0), mask_color) << "a corner has only the neighbours there are";
    EXPECT_EQ(painted(INK_HOLLOW, 3, 1), gray(50)) << "60 is not below 10 away";
    EXPECT_EQ(painted(INK_HOLLOW, 2, 1, 100), 0x1e1e82U) << "50 * 155 >> 8 = 30, + (255 * 101 >> 8) = 130";
    EXPECT_EQ(painted(INK_HOLLOW, 2, 1, 100), 0x1212b2U) << "no mask: 30 * 155 >> 8 = 18, (130 * 155 >> 8) + 100 = 178";
    ink_option(INK_HOLLOW, OPTION_HOLLOW_TOLERANCE) = 11;
    EXPECT_EQ(painted(INK_HOLLOW, 3, 1), mask_color);
    ink_option(INK_HOLLOW, OPTION_HOLLOW_TOLERANCE) = 0;
    EXPECT_EQ(painted(INK_HOLLOW, 1, 0), gray(50)) << "not even the pixel itself matches";
}

TEST_F(InkNeighborTest, JumbleDrawsXThenY) {
    make_frame(4, 4, 0);
    for (int i = 0; i < 16; ++i) frame(i % 4, i / 4) = static_cast<Color>(i);
    begin_stroke();
    set_strength(INK_JUMBLE, 2);
    const std::uint8_t tip[] = {255, 0};
    const ToldDraws draws{3, 0, 0, 3};
    apply_ink_row({1, 2, 2, tip, 1}, INK_JUMBLE, 0);
    EXPECT_EQ(draws.asked(), (std::vector{4, 4, 4, 4}));
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

// ---- The plain formulas
// ----------------------------------------------------------------------------------------------

Color color_of(const std::array<double, 3>& parts) {
    return pack_color(clamp_component(parts[0]), clamp_component(parts[1]), clamp_component(parts[2]));
}
std::array<double, 3> parts_of(Color color) {
    return {double(red_of(color)), double(green_of(color)), double(blue_of(color))};
}

/// EMBOSS and SOFTEN by one loop over the neighbours of the snapshot.
Color weighed(Ink ink, int x, int y, double s) {
    constexpr int relief[3][3] = {{-2, -1, 0}, {-1, 0, 1}, {0, 1, 2}};
    const auto center = parts_of(*pixels_at(stroke_snapshot(), x, y));
    std::array<double, 3> sum{};
    for (int dy = -1; dy <= 1; ++dy)
        for (int dx = -1; dx <= 1; ++dx) {
            if (!frame_contains(stroke_snapshot(), x + dx, y + dy)) continue;
            const auto parts = parts_of(*pixels_at(stroke_snapshot(), x + dx, y + dy));
            const bool is_center = dx == 0 && dy == 0;
            for (std::size_t i = 0; i < 3; ++i) {
                const double term = s * (ink == INK_EMBOSS ? relief[dy + 1][dx + 1] : 1) * parts[i];
                sum[i] += !is_center ? term : ink == INK_EMBOSS ? parts[i] : 0;
            }
        }
    if (ink == INK_SOFTEN)
        for (std::size_t i = 0; i < 3; ++i) sum[i] = (1 - s) * center[i] + sum[i] * 0.125;
    return color_of(sum);
}

TEST_F(InkNeighborTest, WeighingInksFollowTheirFormulaOnEveryPixel) {
    for (const int width : {1, 2, 65, 131}) {
        make_random_frame(width, 6, 256);
        for (const Ink ink : {INK_EMBOSS, INK_SOFTEN})
            for (const int strength : {0, 37, 51, 128, 255})
                for (const std::uint8_t tip : {0, 60, 199}) {
                    set_strength(ink, strength);
                    const double full = strength / 255.0, s = tip == 0 ? full : (200 - tip) / 200.0 * full;
                    clear_stroke_mask();
                    for (int x = 0; x < width; x += 9) mask(x, 2) = 200;  // covered: the row falls into pieces
                    for (int y = 0; y < 6; ++y) apply_ink_row({0, y, width, &tip, 0}, ink, 0);
                    for (int y = 0; y < 6; ++y)
                        for (int x = 0; x < width; ++x)
                            if (y != 2 || x % 9 != 0) {
                                ASSERT_EQ(frame(x, y), weighed(ink, x, y, s)) << ink << " at " << x << "," << y;
                            }
                }
    }
}

void glow_plainly(BITMAP* target, int x, int y, Color color, double s, int radius) {
    const auto light = parts_of(color);
    for (int dy = -radius; dy <= radius; ++dy)
        for (int dx = -radius; dx <= radius; ++dx) {
            const int d = static_cast<int>(std::sqrt(double(dx * dx + dy * dy)));
            if (d > radius || !frame_contains(target, x + dx, y + dy)) continue;
            Color& pixel = *pixels_at(target, x + dx, y + dy);
            if (pixel == fixed_white) continue;
            const double w = (1 - static_cast<double>(d) / (radius + 1)) * s;
            auto parts = parts_of(pixel);
            for (std::size_t i = 0; i < 3; ++i) parts[i] += w * light[i];
            pixel = color_of(parts);
        }
}

TEST_F(InkNeighborTest, GlowFollowsItsFormulaAtEveryRadius) {
    fill_glow_distances();
    // At a radius of 9 and components of whole tens, 1 - 9 / 10 falls a hair short of a tenth.
    for (const Color color : {gray(100), Color{0x0a64c8}, Color{0xff0307}})
        for (int radius = 0; radius <= 31; ++radius) {
            const int strength = radius % 3 == 0 ? 255 : 40 + radius;
            make_random_frame(40, 12, 256);
            const OwnedBitmap expected = copy_bitmap(current_frame);
            set_strength(INK_GLOW, strength);
            ink_option(INK_GLOW, OPTION_GLOW_RADIUS) = radius;
            const std::uint8_t tip[] = {0, 0, 150, 200, 20};
            apply_ink_row({33, 3, 5, tip, 1}, INK_GLOW, color);
            for (int i = 0; i < 5; ++i)
                if (tip[i] != 200)
                    glow_plainly(expected.get(), 33 + i, 3, color,
                                 tip[i] == 0 ? strength / 255.0 : (200 - tip[i]) / 200.0 * (strength / 255.0), radius);
            ASSERT_EQ(pixels_of(current_frame), pixels_of(expected.get())) << color << " at radius " << radius;
        }
}

TEST_F(InkNeighborTest, HollowFollowsItsFormulaOnEveryPixel) {
    const auto is_solid = [](int x, int y, int tolerance) {
        for (int dy = -1; dy <= 1; ++dy)
            for (int dx = -1; dx <= 1; ++dx)
                if (frame_contains(stroke_snapshot(), x + dx, y + dy) &&
                    !colors_match(*pixels_at(stroke_snapshot(), x + dx, y + dy), *pixels_at(stroke_snapshot(), x, y),
                                  tolerance))
                    return false;
        return true;
    };
    const Color erased = mask_color = 0xabcdef;
    const std::uint8_t full = 0;
    for (const int width : {1, 2, 300})
        for (const int tolerance : {1, 170, 255}) {
            make_random_frame(width, 5, 3);  // components 0, 127, 255
            ink_option(INK_HOLLOW, OPTION_HOLLOW_TOLERANCE) = tolerance;
            for (int y = 0; y < 5; ++y) apply_ink_row({0, y, width, &full, 0}, INK_HOLLOW, 0);
            for (int y = 0; y < 5; ++y)
                for (int x = 0; x < width; ++x)
                    ASSERT_EQ(frame(x, y) == erased, is_solid(x, y, tolerance)) << x << "," << y;
        }
}

}  // namespace
}  // namespace nubo
