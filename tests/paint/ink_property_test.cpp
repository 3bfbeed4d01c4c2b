// What holds for many inks at once, over random Frames.
#include "ink_surfaces.h"

#include "state/cel.h"
#include "state/stroke.h"
#include <algorithm>

namespace nubo {
namespace {

constexpr int width = 300, height = 5;  // wider than what any ink works out in one go

class InkPropertyTest : public InkTest {
protected:
    InkPropertyTest() {
        replace_bitmap(cel_mask, make_bitmap(5, 3));
        for (int i = 0; i < 15; ++i) *pixels_at(cel_mask, i % 5, i / 5) = random_color(3);
        cel_x = 7, cel_y = 2;
        brush_color = 0xff0000;
        mask_color = 0x7f7f7f;
    }
    /// Few, near components: matches, full coverage and strays all turn up.
    static Color random_color(int levels) {
        const auto level = [levels] { return static_cast<Color>(UA_random(levels) * 255 / (levels - 1)); };
        return level() << 16 | level() << 8 | level();
    }
    /// A new random picture in a stroke that has begun, and options that let every ink act.
    static void prepare(Ink ink, int strength, int levels = 3) {
        make_frame(width, height, 0);
        for (int i = 0; i < width * height; ++i) frame(i % width, i / width) = random_color(levels);
        // The second is GLOW's radius and GRAIN's frequency.
        ink_options[static_cast<unsigned>(ink)] = {strength, ink == INK_GRAIN ? 60 : 3, 0, 4, 2, 20, 3, 0};
        begin_stroke();
    }
    /// Back to the beginning of the stroke, or to where it had covered `mask`.
    static void begin_again(BITMAP* covered = nullptr) {
        blit(stroke_snapshot(), current_frame, 0, 0, 0, 0, width, height);
        clear_stroke_mask();
        if (covered != nullptr) blit(covered, stroke_mask, 0, 0, 0, 0, width, height);
    }
    static void stamp(int x, int y, int length, Ink ink, std::uint8_t tip) {
        apply_ink_row({x, y, length, &tip, 0}, ink, brush_color);
    }
};

/// The inks that keep the strongest of their stamps and read nothing of what the stroke has done.
constexpr Ink strongest_wins[] = {INK_ADD,   INK_BRIGHT, INK_DARK, INK_EMBOSS, INK_GLASS,
                                  INK_HGRAD, INK_LGRAD,  INK_PULL, INK_RGRAD,  INK_SCRAPE,
                                  INK_SPARK, INK_SOFTEN, INK_SUB,  INK_VGRAD,  INK_XOR};

TEST_F(InkPropertyTest, RowPaintsWhatItsPixelsPaintOneByOneAndNoOther) {
    constexpr std::uint8_t tips[] = {0, 1, 100, 199, 200, 255};
    for (int number = 0; number < INK_COUNT * 144; ++number) {
        const Ink ink = static_cast<Ink>(number / 144);
        const int strength = std::array{0, 1, 5, 100, 254, 255}[number / 24 % 6], tip_step = number / 6 % 2;
        const bool has_colors = number / 12 % 2 != 0;
        prepare(ink, strength);
        std::array<std::uint8_t, width> tip;
        for (std::uint8_t& value : tip) value = tips[UA_random(6)];
        tip[0] = tips[number % 6];
        std::array<Color, width> colors;
        for (Color& color : colors) color = has_colors ? random_color(8) : 0x0a64c8;
        for (int x = 0; x < width; x += 1 + UA_random(80)) mask(x, 2) = static_cast<Color>(UA_random(256));
        const OwnedBitmap covered = copy_bitmap(stroke_mask);
        const int left = UA_random(3), length = width - left - UA_random(3);

        random_first.seed(7U);
        apply_ink_row({left, 2, length, tip.data(), tip_step, has_colors ? colors.data() : nullptr}, ink, 0x0a64c8);
        const auto by_row = pixels_of(current_frame), mask_by_row = pixels_of(stroke_mask);
        for (int i = 0; i < width * height && ink != INK_GLOW; ++i) {
            const int x = i % width, y = i / width;
            const bool is_of_row = y == 2 && x >= left && x < left + length;
            ASSERT_TRUE(is_of_row || frame(x, y) == *pixels_at(stroke_snapshot(), x, y)) << ink << " at " << x;
        }

        begin_again(covered.get());
        random_first.seed(7U);
        for (int i = 0; i < length; ++i)
            apply_ink(left + i, 2, ink, colors[static_cast<unsigned>(i)], tip[static_cast<unsigned>(i * tip_step)]);
        ASSERT_EQ(by_row, pixels_of(current_frame)) << ink << " at " << strength << ", tip " << +tip[0];
        ASSERT_EQ(mask_by_row, pixels_of(stroke_mask)) << ink << " at " << strength;
    }
}

TEST_F(InkPropertyTest, TipOutsidePaintsOnlyForTheInksThatIgnoreIt) {
    for (int ink = 0; ink < INK_COUNT; ++ink)
        for (const std::uint8_t tip : {200, 201, 255}) {
            prepare(static_cast<Ink>(ink), 5, 2);
            for (int y = 0; y < height; ++y) stamp(0, y, width, static_cast<Ink>(ink), tip);
            const bool ignores_tip = ink == INK_CLOSE || ink == INK_JUMBLE || ink == INK_SWEEP || ink == INK_UNZAG;
            EXPECT_EQ(pixels_of(current_frame) != pixels_of(stroke_snapshot()), ignores_tip) << ink;
            EXPECT_EQ(pixels_of(stroke_mask), std::vector<Color>(width * height, 0)) << ink;
        }
}

TEST_F(InkPropertyTest, StrongestStampOfAStrokeWinsInAnyOrder) {
    struct Stamp {
        int x, y, tip;
    };
    std::vector<Stamp> stamps{{0, 1, 60}, {4, 2, 60}, {2, 2, 61}, {9, 1, 199}, {3, 3, 60}, {8, 2, 0}, {5, 1, 60}};
    for (const Ink ink : strongest_wins) {
        prepare(ink, 180);
        std::vector<Color> first;
        for (int order = 0; order < 10; ++order) {
            for (const Stamp& s : stamps) stamp(s.x, s.y, 17, ink, static_cast<std::uint8_t>(s.tip));
            if (order == 0) first = pixels_of(current_frame);
            EXPECT_EQ(pixels_of(current_frame), first) << ink;
            begin_again();
            std::rotate(stamps.begin(), stamps.begin() + 3, stamps.end());
            std::swap(stamps[0], stamps[1]);
        }
    }
}

}  // namespace
}  // namespace nubo
