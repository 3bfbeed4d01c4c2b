// The nearest colour, and pictures in the colours of a palette.
#include "codecs/color_use.h"
#include "codecs/remap.h"
#include "picture_files.h"

#include <random>
#include <set>

namespace nubo {
namespace {

constexpr Color mask = 0x102030;

Color nearest_by_hand(std::span<const Color> palette, Color color) {
    int least = INT_MAX;
    Color nearest = color;
    for (const Color one : palette) {
        const int red = red_of(one) - red_of(color), green = green_of(one) - green_of(color),
                  blue = blue_of(one) - blue_of(color), away = red * red + green * green + blue * blue;
        if (one != mask && away < least) least = away, nearest = one;
    }
    return color == mask ? mask : nearest;
}

TEST(NearestColor, IsThatOfASearchThroughAll) {
    std::mt19937 random(3);
    for (const std::size_t size : {0U, 1U, 2U, 16U, 256U}) {
        std::vector<Color> palette(size);
        for (Color& color : palette) color = random() % 4 == 0 ? mask : random() & 0x1f1f7f;  // many near, many alike
        NearestColor nearest(palette, mask);
        for (int i = 0; i < 30'000; ++i) {
            const Color color = random() & (i % 2 == 0 ? 0xffffff : 0x3f3fff);
            ASSERT_EQ(nearest(color), nearest_by_hand(palette, color)) << size << ": " << color;
            const int slot = nearest.slot_of(color);
            ASSERT_TRUE(slot == NearestColor::none ||
                        std::ranges::find(palette, palette[at(slot)]) - palette.begin() == slot)
                << "the lower slot";
        }
    }
}

/// Random but for a quarter of it, which has the mask colour.
OwnedBitmap noisy_picture() {
    std::mt19937 random(5);
    OwnedBitmap picture = make_bitmap(64, 48, mask);
    for (int y = 0; y < 36; ++y)
        for (int x = 0; x < 64; ++x) *pixels_at(picture.get(), x, y) = random() & 0xffffff;
    return picture;
}

TEST(Remap, LeavesNothingButThePaletteAndTheMaskColor) {
    const OwnedBitmap noise = noisy_picture();
    ColorUse use(mask);
    use.add(noise.get());
    EXPECT_GT(use.count(), 2000u);
    for (const std::size_t most : {1U, 2U, 15U, 255U}) {
        const std::vector<Color> best = use.best_colors(most);
        EXPECT_EQ(best.size(), most);
        for (const Dithering dithering : {DITHERING_OFF, DITHERING_BAYER, DITHERING_DIFFUSE}) {
            NearestColor nearest(best, mask);
            const OwnedBitmap picture = copy_bitmap(noise.get());
            remap_pixels(picture.get(), nearest, dithering);
            for (int y = 0; y < 48; ++y)
                for (int x = 0; x < 64; ++x) {
                    const Color was = *pixels_at(noise.get(), x, y), is = *pixels_at(picture.get(), x, y);
                    ASSERT_EQ(is == mask, was == mask);
                    ASSERT_TRUE(is == mask || std::ranges::count(best, is) > 0);
                    ASSERT_TRUE(dithering != DITHERING_OFF || is == nearest_by_hand(best, was));
                }
        }
    }
}

/// The mean of what stands for one gray comes close to it, with either pattern.
TEST(Remap, KeepsTheMeanOfAShadeBetween) {
    const std::array<Color, 2> palette{0x000000, 0xffffff};
    for (const Dithering dithering : {DITHERING_BAYER, DITHERING_DIFFUSE})
        for (const int gray : {64, 128, 192}) {
            const OwnedBitmap picture = make_bitmap(32, 32, pack_color(gray, gray, gray));
            NearestColor nearest(palette, nothing_kept);
            remap_pixels(picture.get(), nearest, dithering);
            int white = 0;
            for (int i = 0; i < 32 * 32; ++i) white += *pixels_at(picture.get(), i % 32, i / 32) != 0 ? 1 : 0;
            EXPECT_NEAR(white * 255 / (32 * 32), gray, 12) << dithering;
        }
}

TEST(ColorUse, GivesTheColorsThereAreByTheirUse) {
    const OwnedBitmap picture = make_bitmap(10, 10, 0x00ff00);
    rectfill(picture.get(), 0, 0, 9, 1, 0x0000ff);
    rectfill(picture.get(), 0, 2, 9, 2, static_cast<int>(mask));
    putpixel(picture.get(), 0, 9, 0xff0000);
    ColorUse use(mask);
    use.add(picture.get());
    EXPECT_EQ(use.count(), 4u);
    EXPECT_EQ(use.best_colors(3), (std::vector<Color>{0x00ff00, 0x0000ff, 0xff0000}));
    EXPECT_EQ(use.best_colors(2).size(), 2u);
}

}  // namespace
}  // namespace nubo
