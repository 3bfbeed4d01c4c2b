// What holds for many inks at once, over random Frames.
#include "ink_surfaces.h"

#include "state/cel.h"
#include "state/stroke.h"
#include <algorithm>

namespace nubo {
namespace {

constexpr int width = 37, height = 5;

class InkPropertyTest : public InkTest {
protected:
    InkPropertyTest() {
        fill_glow_distances();
        replace_bitmap(cel_mask, make_bitmap(5, 3));
        for (int i = 0; i < 15; ++i) *pixels_at(cel_mask, i % 5, i / 5) = random_color(3);
        cel_x = 7, cel_y = 2;
        brush_color = 0xff0000;
        mask_color = 0x7f7f7f;
    }
    /// A new random picture in a stroke that has begun, and options that let every ink act.
    static void prepare(Ink ink, int strength, int levels = 3) {
        make_random_frame(width, height, levels);
        auto& options = ink_options[static_cast<unsigned>(ink)];
        options = {strength, 3, 0, 4, 2, 20, 3, 0};  // the second: GLOW's radius, GRAIN's frequency
        if (ink == INK_GRAIN) options[OPTION_GRAIN_FREQUENCY] = 60;
        update_gradient_geometry();
    }
    static void stamp(int x, int y, int length, Ink ink, std::uint8_t tip) {
        apply_ink_row({x, y, length, &tip, 0}, ink, brush_color);
    }
};

/// The inks that keep the strongest of their stamps and read nothing of what the stroke has done.
constexpr Ink strongest_wins[] = {INK_ADD,   INK_BRIGHT, INK_DARK, INK_EMBOSS, INK_GLASS,
                                  INK_HGRAD, INK_LGRAD,  INK_PULL, INK_RGRAD,  INK_SCRAPE,
                                  INK_SPARK, INK_SOFTEN, INK_SUB,  INK_VGRAD,  INK_XOR};

TEST_F(InkPropertyTest, RowPaintsWhatItsPixelsPaintOneByOne) {
    constexpr std::uint8_t tips[] = {0, 1, 100, 199, 200, 255};
    for (int ink = 0; ink < INK_COUNT; ++ink)
        for (const int strength : {0, 1, 5, 100, 254, 255})
            for (int tip_step = 0; tip_step <= 1; ++tip_step)
                for (const std::uint8_t first_tip : tips) {
                    prepare(static_cast<Ink>(ink), strength);
                    std::array<std::uint8_t, width> tip;
                    for (std::uint8_t& value : tip) value = tips[UA_random(6)];
                    tip[0] = first_tip;
                    for (int x = 0; x < width; x += 1 + UA_random(4)) mask(x, 2) = static_cast<Color>(UA_random(256));
                    const OwnedBitmap covered = copy_bitmap(stroke_mask);
                    const int x = UA_random(3), length = width - x - UA_random(3);

                    random_first.seed(static_cast<std::uint32_t>(strength + 9));
                    apply_ink_row({x, 2, length, tip.data(), tip_step}, static_cast<Ink>(ink), 0x0a64c8);
                    const auto by_row = pixels_of(current_frame), mask_by_row = pixels_of(stroke_mask);

                    blit(stroke_snapshot(), current_frame, 0, 0, 0, 0, width, height);
                    blit(covered.get(), stroke_mask, 0, 0, 0, 0, width, height);
                    random_first.seed(static_cast<std::uint32_t>(strength + 9));
                    for (int i = 0; i < length; ++i)
                        apply_ink(x + i, 2, ink, 0x0a64c8, tip[static_cast<unsigned>(i * tip_step)]);
                    ASSERT_EQ(by_row, pixels_of(current_frame)) << ink << " at " << strength << ", tip " << +first_tip;
                    ASSERT_EQ(mask_by_row, pixels_of(stroke_mask)) << ink << " at " << strength;
                }
}

TEST_F(InkPropertyTest, PixelsOutsideTheRowAreLeftAlone) {
    for (int ink = 0; ink < INK_COUNT; ++ink) {
        if (ink == INK_GLOW) continue;  // lights its surroundings
        prepare(static_cast<Ink>(ink), 200);
        stamp(3, 2, 20, static_cast<Ink>(ink), 0);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                if (y != 2 || x < 3 || x >= 23) {
                    ASSERT_EQ(frame(x, y), *pixels_at(stroke_snapshot(), x, y)) << ink << " at " << x << "," << y;
                    ASSERT_EQ(mask(x, y), 0U) << ink << " at " << x << "," << y;
                }
    }
}

TEST_F(InkPropertyTest, TipOutsidePaintsOnlyForTheInksThatIgnoreIt) {
    for (int ink = 0; ink < INK_COUNT; ++ink)
        for (const std::uint8_t tip : {200, 201, 255}) {
            prepare(static_cast<Ink>(ink), 5, 2);
            const auto before = pixels_of(current_frame);
            for (int y = 0; y < height; ++y) stamp(0, y, width, static_cast<Ink>(ink), tip);
            const bool ignores_tip = ink == INK_CLOSE || ink == INK_JUMBLE || ink == INK_SWEEP || ink == INK_UNZAG;
            EXPECT_EQ(pixels_of(current_frame) != before, ignores_tip) << ink;
            EXPECT_EQ(pixels_of(stroke_mask), std::vector<Color>(width * height, 0)) << ink;
        }
}

TEST_F(InkPropertyTest, StrongestStampOfAStrokeWins) {
    for (const Ink ink : strongest_wins) {
        prepare(ink, 180);
        stamp(0, 2, width, ink, 60);
        const auto strongest = pixels_of(current_frame);
        for (const int weaker : {60, 61, 199}) stamp(0, 2, width, ink, static_cast<std::uint8_t>(weaker));
        EXPECT_EQ(pixels_of(current_frame), strongest) << ink << ": equal and weaker stamps come after";

        blit(stroke_snapshot(), current_frame, 0, 0, 0, 0, width, height);
        clear_stroke_mask();
        for (const int rising : {199, 130, 60}) stamp(0, 2, width, ink, static_cast<std::uint8_t>(rising));
        EXPECT_EQ(pixels_of(current_frame), strongest) << ink << ": weaker stamps come before";
    }
}

TEST_F(InkPropertyTest, OrderOfEqualStampsDoesNotMatter) {
    constexpr Point at[] = {{0, 1}, {4, 2}, {2, 2}, {9, 1}, {3, 3}};
    for (const Ink ink : strongest_wins) {
        prepare(ink, 130);
        std::vector<Point> order(std::begin(at), std::end(at));
        for (const Point& p : order) stamp(p.x, p.y, 17, ink, 40);
        const auto forward = pixels_of(current_frame);
        blit(stroke_snapshot(), current_frame, 0, 0, 0, 0, width, height);
        clear_stroke_mask();
        std::ranges::reverse(order);
        for (const Point& p : order) stamp(p.x, p.y, 17, ink, 40);
        EXPECT_EQ(pixels_of(current_frame), forward) << ink;
    }
}

}  // namespace
}  // namespace nubo
