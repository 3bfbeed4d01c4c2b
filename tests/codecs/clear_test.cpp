// Clear pixels: what leaves with them, as other programs see it, and what comes in with alpha.
#include "codecs/alpha.h"
#include "codecs/clear_ground.h"
#include "codecs/gif.h"
#include "codecs/png.h"
#include "picture_files.h"
#include "platform/safe_file.h"
#include <climits>

namespace nubo {
namespace {

constexpr Color ground = 0x102030, whole = 0xff000000;

/// 64 by 40 pixels of so many colours in turn, every third of them ground.
OwnedBitmap sprite_of(int colors) {
    OwnedBitmap bitmap = make_bitmap(64, 40, ground);
    for (int i = 0; i < 64 * 40; ++i)
        if (i % 3 != 0)
            *pixels_at(bitmap.get(), i % 64, i / 64) = table_color(i % colors) ^ static_cast<Color>(i % colors >> 8);
    return bitmap;
}

TEST(ClearGround, BelowAClearPixelStandsTheNearestThatIsnt) {
    std::uint32_t noise = 7;
    for (const int solid : {0, 1, 5, 60, 800}) {
        const OwnedBitmap bitmap = make_bitmap(41, 23, ground);
        for (int i = 0; i < solid; ++i) {
            noise = noise * 1664525U + 1013904223U;
            const int place = static_cast<int>((noise >> 8) % (41 * 23));
            *pixels_at(bitmap.get(), place % 41, place / 41) =
                static_cast<Color>(place);  // which it tells from then on
        }
        const OwnedBitmap clear = with_clear_ground(bitmap.get(), ground);
        ASSERT_TRUE(clear);
        const auto distance = [](Color place, int x, int y) {
            const int dx = static_cast<int>(place) % 41 - x, dy = static_cast<int>(place) / 41 - y;
            return dx * dx + dy * dy;
        };
        for (int y = 0; y < 23; ++y)
            for (int x = 0; x < 41; ++x) {
                const Color was = *pixels_at(bitmap.get(), x, y), is = *pixels_at(clear.get(), x, y);
                if (was != ground || solid == 0) {
                    ASSERT_EQ(is, was == ground ? ground : was | whole);
                    continue;
                }
                int least = INT_MAX;
                for (int i = 0; i < 41 * 23; ++i)
                    if (*pixels_at(bitmap.get(), i % 41, i / 41) != ground)
                        least = std::min(least, distance(static_cast<Color>(i), x, y));
                ASSERT_EQ(distance(is, x, y), least) << x << ", " << y << " of " << solid;
            }
    }
}

TEST(ClearGround, AGifKeepsAnIndexFreeAndAllColoursThatTheOthersHold) {
    for (const int colors : {1, 254, 255, 256, 257, 2000})
        for (const GifReduction reduction : {REDUCTION_FAST, REDUCTION_GOOD, REDUCTION_BEST}) {
            const OwnedBitmap bitmap = sprite_of(colors);
            Bytes bytes;
            ASSERT_TRUE(write_clear_gif(bitmap.get(), ground, reduction, bytes));
            const ReadPicture back = read_gif(bytes);
            ASSERT_TRUE(back.bitmap && back.has_alpha) << back.cause;
            int wrong = 0, solid_wrong = 0;
            for (int i = 0; i < 64 * 40; ++i) {
                const Color was = *pixels_at(bitmap.get(), i % 64, i / 64),
                            is = *pixels_at(back.bitmap.get(), i % 64, i / 64);
                wrong += was == ground ? is != ground : (is & whole) == 0;
                solid_wrong += was != ground && is != (was | whole);
            }
            EXPECT_EQ(wrong, 0) << colors << ", " << reduction;
            const int given_up = colors == 256 ? 64 * 40 / 256 : 0;  // one colour
            EXPECT_TRUE(colors > 256 || solid_wrong <= given_up) << colors << ", " << reduction << ": " << solid_wrong;
        }
    Bytes plain, clear;
    const OwnedBitmap full = sprite_of(2);
    ASSERT_TRUE(write_gif(full.get(), REDUCTION_BEST, plain) &&
                write_clear_gif(full.get(), 0x999999, REDUCTION_BEST, clear));
    EXPECT_EQ(plain, clear) << "where nothing is clear no index is kept";
}

/// What another program makes of a file.
Bytes seen_by(const std::string& command) {
    EXPECT_EQ(std::system((command + " >seen 2>errors").c_str()), 0) << command;
    Bytes bytes;
    read_file("seen", SIZE_MAX, bytes);
    return bytes;
}

TEST(ClearGround, OtherProgramsSeeWhatIsClear) {
    const ScratchFolder folder;
    for (const int colors : {0, 1, 255, 2000}) {  // all ground, and sprites
        const OwnedBitmap bitmap = colors == 0 ? make_bitmap(64, 40, ground) : sprite_of(colors);
        Bytes png, gif;
        ASSERT_TRUE(write_clear_png(bitmap.get(), ground, png, PNG_BEST));
        ASSERT_TRUE(write_clear_gif(bitmap.get(), ground, REDUCTION_BEST, gif));
        ASSERT_TRUE(write_file("a.png", png.data(), png.size()) && write_file("a.gif", gif.data(), gif.size()));
        const Bytes of_png = seen_by("/usr/bin/convert a.png -depth 8 rgba:-"),
                    of_gif = seen_by("/usr/bin/convert a.gif -depth 8 rgba:-");
        ASSERT_EQ(of_png.size(), 64U * 40 * 4);
        ASSERT_EQ(of_gif.size(), 64U * 40 * 4);
        const Bytes masks = seen_by("pngtopnm -alpha a.png");
        const std::string head = "P5\n64 40\n255\n";
        ASSERT_EQ(masks.size(), head.size() + 64 * 40);
        for (int i = 0; i < 64 * 40; ++i) {
            const Color color = *pixels_at(bitmap.get(), i % 64, i / 64);
            const std::size_t at = static_cast<std::size_t>(i) * 4;
            ASSERT_EQ(of_png[at + 3], color == ground ? 0 : 255) << i;
            ASSERT_EQ(of_gif[at + 3], color == ground ? 0 : 255) << i;
            ASSERT_EQ(masks[head.size() + static_cast<std::size_t>(i)], color == ground ? 0 : 255) << i;
            if (color != ground) {
                ASSERT_EQ(pack_color(of_png[at], of_png[at + 1], of_png[at + 2]), color) << i;
            }
        }
    }
}

TEST(Alpha, ComesInAsTold) {
    // A row of ImageMagick's with alpha 0, 1, 127, 128, 255 of one colour, then whole pixels of the mask colour, one
    // with the most blue, and of a second colour that is clear.
    constexpr Color mask = 0x2040ff, clear = 0x2040fe, color = 0xc08000;
    struct Case {
        AlphaRule rule;
        Color clear;
        std::vector<Color> wanted;
        std::uint32_t moved;
    };
    // FLATTEN by hand: 1 / 255 of (192, 128, 0) on (32, 64, 255) is (32.6, 64.3, 254), 127 / 255 (111.7, 95.9, 128),
    // 128 / 255 (112.3, 96.1, 127).
    const Case cases[] = {
        {ALPHA_MASK, mask, {mask, mask, mask, color, color, 0x2040fe, 0x2040fe}, 1},
        {ALPHA_FLATTEN, mask, {mask, 0x2140fe, 0x706080, 0x70607f, color, 0x2040fe, 0x2040fe}, 1},
        {ALPHA_MASK, clear, {clear, clear, clear, color, color, 0x2040fd, 0x2040fc}, 2},
    };
    const ScratchFolder folder;
    const std::string row = "/usr/bin/convert -size 1x1 xc:'rgba(192,128,0,0)' xc:'#c0800001' xc:'#c080007f' "
                            "xc:'#c0800080' xc:'#c08000ff' xc:'#2040ffff' xc:'#2040feff' +append PNG32:a.png";
    ASSERT_EQ(std::system(row.c_str()), 0);
    Bytes bytes;
    ASSERT_TRUE(read_file("a.png", SIZE_MAX, bytes));
    for (const Case& one : cases) {
        ReadPicture picture = read_png(bytes);
        ASSERT_TRUE(picture.bitmap && picture.has_alpha) << picture.cause;
        settle_alpha(picture, one.rule, mask, one.clear);
        for (std::size_t x = 0; x < one.wanted.size(); ++x)
            EXPECT_EQ(*pixels_at(picture.bitmap.get(), static_cast<int>(x), 0), one.wanted[x]) << x;
        EXPECT_EQ(picture.loss.moved, one.moved);
        EXPECT_EQ(picture.loss.alpha, one.rule == ALPHA_MASK);
    }
}

TEST(Alpha, APictureThatLeftWithClearGroundComesBackToTheBit) {
    for (const int colors : {1, 255, 2000}) {
        const OwnedBitmap bitmap = sprite_of(colors);
        Bytes png, gif;
        ASSERT_TRUE(write_clear_png(bitmap.get(), ground, png, PNG_FAST));
        ASSERT_TRUE(write_clear_gif(bitmap.get(), ground, REDUCTION_BEST, gif));
        ReadPicture of_png = read_png(png), of_gif = read_gif(gif);
        for (ReadPicture* const picture : {&of_png, &of_gif}) settle_alpha(*picture, ALPHA_MASK, ground, ground);
        EXPECT_TRUE(same_pixels(of_png.bitmap.get(), bitmap.get())) << colors;
        EXPECT_EQ(same_pixels(of_gif.bitmap.get(), bitmap.get()), colors <= 255) << colors;
        EXPECT_EQ(of_png.loss.moved + of_gif.loss.moved, 0U);
    }
}

}  // namespace
}  // namespace nubo
