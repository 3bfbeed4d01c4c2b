// Effects round one pixel, told by hand.
#include "base/random.h"
#include "framework/font_sheet.h"
#include "harness/harness.h"

namespace nubo {
namespace {

constexpr Color ground = 0xc0c0c0, own = 0x808080;

/// A source of 5 by 5 with one pixel in its middle, and a target of the same size with the same places.
class PixelEffectTest : public testing::Test {
protected:
    PixelEffectTest() : source_(make_bitmap(5, 5, transparent_color)), target_(make_bitmap(5, 5, ground)) {
        set_test_palette();
        *pixels_at(source_.get(), 2, 2) = own;
    }
    ~PixelEffectTest() override { set_random_source(nullptr); }
    void apply(int mode, int a, int b, Color mask = transparent_color) {
        clear_to_color(target_.get(), ground);
        for (int y = 0; y < 5; ++y)
            for (int x = 0; x < 5; ++x)
                UA_pixel_effect(source_.get(), target_.get(), x, y, x, y, mode, a, b, static_cast<int>(mask));
    }
    Color target(int x, int y) const { return *pixels_at(target_.get(), x, y); }
    OwnedBitmap source_, target_;
};

TEST_F(PixelEffectTest, EachModeDoesItsOwnToThePixelOrToItsFourNeighbours) {
    set_random_source([](int n) { return n - 1; });  // the strongest
    const Color fifth = UA_palette_color(5);
    // A blend at the strength f: old * (255 - f) >> 8, plus color * (f + 1) >> 8, on each channel.
    struct Case {
        int mode, a, b;
        Color middle, above;
    };
    const Case cases[] = {
        {EFFECT_NONE, 5, 0, ground, ground},
        {2, 5, 0, ground, ground},
        {EFFECT_SPECKLE_WHITE, 0, 0, 0xc5c5c5, ground},     // 24: 192 * 231 >> 8 = 173, + 255 * 25 >> 8 = 24
        {EFFECT_SPECKLE_BLACK, 0, 0, 0xadadad, ground},     // 24: 173
        {EFFECT_SPECKLE_STRONG, 101, 0, 0xd8d8d8, ground},  // 101: 192 * 154 >> 8 = 115, + 255 * 102 >> 8 = 101
        {EFFECT_YELLOW, 0, 0, 0xffff00, ground},
        {EFFECT_FADED, 0, 127, 0xa0a0a0, ground},  // 127: 96 + 64
        {EFFECT_FADED_ALONE, 0, 255, own, ground},
        {EFFECT_OUTLINE, 5, 0, ground, fifth},
        {EFFECT_OUTLINE_FLICKERS, 5, 0, ground, fifth},
        {EFFECT_OUTLINE_BLACK, 5, 0, ground, 0x000000},
        {EFFECT_OUTLINE_WHITE, 5, 0, ground, 0xffffff},
        {EFFECT_OUTLINE_YELLOW, 5, 0, ground, 0xffff00},
        {EFFECT_OUTLINE_WHITE_FLICKERS, 5, 0, ground, 0xffffff},
    };
    for (const Case& one : cases) {
        apply(one.mode, one.a, one.b);
        EXPECT_EQ(target(2, 2), one.middle) << one.mode;
        for (const auto& [x, y] : {std::pair(2, 1), {2, 3}, {1, 2}, {3, 2}})
            EXPECT_EQ(target(x, y), one.above) << one.mode << " at " << x << ", " << y;
        EXPECT_EQ(target(1, 1), ground) << one.mode;
    }
}

TEST_F(PixelEffectTest, TheWeakestOfARandomStrengthIsNothingOrHalfOfA) {
    set_random_source([](int) { return 0; });
    apply(EFFECT_OUTLINE_WHITE_FLICKERS, 0, 0);
    EXPECT_EQ(target(2, 1), ground);
    apply(EFFECT_SPECKLE_STRONG, 101, 0);  // 50: 192 * 205 >> 8 = 153, + 255 * 51 >> 8 = 50
    EXPECT_EQ(target(2, 2), 0xcbcbcbU);
}

TEST_F(PixelEffectTest, SomeOutlinesTakeAnotherColorForNothing) {
    constexpr Color mask = 0x123456;
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 5; ++x)
            if (x != 2 || y != 2) *pixels_at(source_.get(), x, y) = mask;
    const std::pair<int, Color> outlines[] = {{EFFECT_OUTLINE_MASKED, UA_palette_color(9)},
                                              {EFFECT_OUTLINE_BLACK_MASKED, 0x000000},
                                              {EFFECT_OUTLINE_WHITE_MASKED, 0xffffff},
                                              {EFFECT_OUTLINE_YELLOW_MASKED, 0xffff00}};
    for (const auto& [mode, color] : outlines) {
        apply(mode, 9, 0, mask);
        EXPECT_EQ(target(2, 1), color) << mode;
        EXPECT_EQ(target(0, 0), ground) << mode;
    }
    apply(EFFECT_OUTLINE, 9, 0,
          mask);  // here it is a pixel like others, and nothing lies round the picture but its edge
    EXPECT_EQ(target(2, 1), ground);
}

TEST_F(PixelEffectTest, AtTheEdgeOfTheTargetWhatFitsIsDrawn) {
    UA_pixel_effect(source_.get(), target_.get(), 2, 2, 0, 4, EFFECT_OUTLINE_WHITE, 0, 0, 0);
    EXPECT_EQ(target(0, 3), 0xffffffU);
    EXPECT_EQ(target(1, 4), 0xffffffU);
    UA_pixel_effect(source_.get(), target_.get(), 2, 2, -1, 0, EFFECT_YELLOW, 0, 0, 0);
    UA_pixel_effect(source_.get(), target_.get(), 9, 2, 2, 2, EFFECT_YELLOW, 0, 0, 0);
    EXPECT_EQ(target(0, 0), ground);
    EXPECT_EQ(target(2, 2), ground);
}

}  // namespace
}  // namespace nubo
