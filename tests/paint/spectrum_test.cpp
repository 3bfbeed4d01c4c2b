#include "harness/harness.h"
#include "paint/spectrum.h"

#include <limits>
#include <ostream>

namespace nubo {
namespace {

constexpr Color black = 0x000000, white = 0xffffff;

TEST(Spectrum, FoldsHoldsAndBandsByHand) {
    constexpr float none = std::numeric_limits<float>::quiet_NaN();
    struct Case {
        int fold, banding;
        float t;
        Color first, second, expected;
    };
    const std::vector<Case> cases{
        {0, 1, 0.5F, black, white, 0x7f7f7f},        // 255 * 0.5 = 127.5
        {0, 0, 0.5F, 0xff0010, 0x00ff20, 0x7f7f18},  // down 127.5, up 127.5, from 16 to 32: 24
        {0, 1, 7, black, white, 0xfcfcfc},           // held at 0.99: 252.45
        {0, 1, none, white, black, white},           // no number: 0
        {1, 1, 0.5F, black, white, 0xfcfcfc},        // there at (1 - 0.5) * 2 = 1, held at 0.99,
        {1, 1, 0.75F, black, white, 0x7f7f7f},       // and back: (1 - 0.75) * 2 = 0.5
        {2, 1, 0.25F, black, white, 0xfcfcfc},       // twice there and back: light at the quarters,
        {2, 1, 0.5F, black, white, black},           // dark in the middle
        {3, 1, 0.125F, black, white, 0xfcfcfc},      // to 0.25, 0.5, 1
        {0, 2, 0.49F, black, white, black},          // the first of two steps: trunc(0.99) = 0
        {0, 2, 0.5F, black, white, 0xaaaaaa},        // the second: 1 * 255 / (2 - 0.5) = 170
        {0, 4, 0.5F, white, black, 0x6d6d6d},        // 255 - 2 * 255 / 3.5 = 109.3
        {0, 2, 0.997F, white, black, black},         // trunc(2.004) * 255 / 1.003 would be 508: held at the end,
        {0, 2, 0.997F, black, white, white},         // either way
    };
    for (const Case& one : cases) {
        spectrum_fold = one.fold;
        EXPECT_EQ(spectrum_color(one.first, one.second, one.banding, one.t), one.expected)
            << "fold " << one.fold << ", banding " << one.banding << ", t " << one.t;
    }
}

TEST(Colorspaces, PureColoursLieWhereTheCircleSays) {
    struct Case {
        Color color;
        double hls_hue, hsv_hue;
    };
    // Sixths of a circle of 255, and degrees / 1.40625.
    for (const auto& [color, hls_hue, hsv_hue] : {Case{0xff0000, 0, 0},
                                                  {0xffff00, 42.5, 60 / 1.40625},
                                                  {0x00ff00, 85, 120 / 1.40625},
                                                  {0x00ffff, 127.5, 180 / 1.40625},
                                                  {0x0000ff, 170, 240 / 1.40625},
                                                  {0xff00ff, 212.5, 300 / 1.40625}}) {
        const double r = red_of(color), g = green_of(color), b = blue_of(color);
        const Hls hls = rgb_to_hls(r, g, b);
        const Hsv hsv = rgb_to_hsv(r, g, b);
        EXPECT_DOUBLE_EQ(hls.hue, hls_hue) << color;
        EXPECT_DOUBLE_EQ(hsv.hue, hsv_hue) << color;
    }
    EXPECT_DOUBLE_EQ(rgb_to_hls(255, 0, 51).hue, 246.5);          // (0 - 51) / 255 * 42.5 + 255
    EXPECT_DOUBLE_EQ(rgb_to_hsv(255, 0, 51).hue, 348 / 1.40625);  // 360 - 12 degrees
    EXPECT_DOUBLE_EQ(rgb_to_hls(204, 51, 51).saturation, 153);    // lightness 0.5: 0.6 / (2 - 1)
    EXPECT_DOUBLE_EQ(rgb_to_hls(102, 51, 51).saturation, 85);     // lightness 0.3: 0.2 / 0.6
    EXPECT_DOUBLE_EQ(rgb_to_hsv(102, 51, 51).saturation, 127.5);  // 0.2 / 0.4
}

TEST(Colorspaces, BothWaysGiveTheColourBack) {
    for (int r = 0; r < 256; r += 15)
        for (int g = 0; g < 256; g += 17)
            for (int b = 0; b < 256; b += 5) {
                const Hls hls = rgb_to_hls(r, g, b);
                const Hsv hsv = rgb_to_hsv(r, g, b);
                const Rgb from_hls = hls_to_rgb(hls.hue, hls.lightness, hls.saturation);
                const Rgb from_hsv = hsv_to_rgb(hsv.hue * 1.40625 / 360, hsv.saturation / 255, hsv.value / 255);
                // The thirds of the HLS circle are rounded ones: 1e-8 of a circle is 1e-5 of a component.
                for (const auto& [back, to, slack] : {std::array{from_hls.r * 255, r * 1.0, 1e-4},
                                                      {from_hls.g * 255, g * 1.0, 1e-4},
                                                      {from_hls.b * 255, b * 1.0, 1e-4},
                                                      {from_hsv.r * 255, r * 1.0, 1e-9},
                                                      {from_hsv.g * 255, g * 1.0, 1e-9},
                                                      {from_hsv.b * 255, b * 1.0, 1e-9}})
                    ASSERT_NEAR(back, to, slack) << r << ' ' << g << ' ' << b;
            }
}

TEST(Sliders, ReachBlackWhiteAndGraysExactlyInEverySpace) {
    for (int i = 0; i < 256; ++i) {
        const Color gray = pack_color(i, i, i);
        EXPECT_EQ(sliders_to_color(SPACE_HLS, 77, 255, i), white) << i;
        EXPECT_EQ(sliders_to_color(SPACE_HLS, 77, 0, i), black) << i;
        EXPECT_EQ(sliders_to_color(SPACE_HSV, i, 0, 255), white) << i;
        EXPECT_EQ(sliders_to_color(SPACE_HSV, i, 200, 0), black) << i;
        for (const Colorspace space : {SPACE_RGB, SPACE_HLS, SPACE_HSV}) {
            const auto [a, b, c] = color_to_sliders(space, gray);
            EXPECT_EQ(sliders_to_color(space, a, b, c), gray) << space;
        }
    }
}

}  // namespace
}  // namespace nubo
