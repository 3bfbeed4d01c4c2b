// The quality CLEAN: the enlargements against their published rule, and what TURN and STRETCH make of them.
#include "ink_surfaces.h"

#include "harness/user.h"
#include "paint/cel_paste.h"
#include "paint/cel_pixels.h"
#include "paint/clean_scale.h"
#include "state/guides.h"
#include <set>

namespace nubo {
namespace {

using Rows = std::vector<std::vector<Color>>;

OwnedBitmap picture_of(const Rows& rows) {
    OwnedBitmap picture = make_bitmap(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()));
    for (std::size_t y = 0; y < rows.size(); ++y)
        std::ranges::copy(rows[y], pixels_at(picture.get(), 0, static_cast<int>(y)));
    return picture;
}

Rows enlarged(BITMAP* drawing, int scale) {
    Rows rows(at(drawing->h * scale), std::vector<Color>(at(drawing->w * scale)));
    for (std::size_t y = 0; y < rows.size(); ++y)
        for (std::size_t x = 0; x < rows[y].size(); ++x)
            rows[y][x] = clean_pixel(drawing, scale, static_cast<int>(x), static_cast<int>(y));
    return rows;
}

/// Scale2x of a whole picture, as it is published: B above, D left, F right, H below E.
OwnedBitmap scale2x(BITMAP* drawing) {
    OwnedBitmap twice = make_bitmap(drawing->w * 2, drawing->h * 2);
    const auto pixel = [=](int x, int y) {
        return *pixels_at(drawing, std::clamp(x, 0, drawing->w - 1), std::clamp(y, 0, drawing->h - 1));
    };
    for (int y = 0; y < drawing->h; ++y)
        for (int x = 0; x < drawing->w; ++x) {
            const Color b = pixel(x, y - 1), d = pixel(x - 1, y), e = pixel(x, y), f = pixel(x + 1, y),
                        h = pixel(x, y + 1);
            const bool cuts = b != h && d != f;
            *pixels_at(twice.get(), 2 * x, 2 * y) = cuts && d == b ? d : e;
            *pixels_at(twice.get(), 2 * x + 1, 2 * y) = cuts && b == f ? f : e;
            *pixels_at(twice.get(), 2 * x, 2 * y + 1) = cuts && d == h ? d : e;
            *pixels_at(twice.get(), 2 * x + 1, 2 * y + 1) = cuts && h == f ? f : e;
        }
    return twice;
}

TEST(CleanScaleTest, EnlargementsAreThosePublished) {
    const OwnedBitmap diagonal = picture_of({{1, 0, 0}, {0, 1, 0}, {0, 0, 1}});
    EXPECT_EQ(enlarged(diagonal.get(), 2), (Rows{{1, 1, 0, 0, 0, 0},
                                                 {1, 0, 1, 0, 0, 0},
                                                 {0, 1, 1, 1, 0, 0},
                                                 {0, 0, 1, 1, 1, 0},
                                                 {0, 0, 0, 1, 0, 1},
                                                 {0, 0, 0, 0, 1, 1}}));
    const auto middle_of = [](const Rows& rows) {
        const OwnedBitmap picture = picture_of(rows);
        Rows middle;
        for (int y = 3; y < 6; ++y) {
            const std::vector<Color> row = enlarged(picture.get(), 3)[at(y)];
            middle.emplace_back(row.begin() + 3, row.begin() + 6);
        }
        return middle;
    };
    EXPECT_EQ(middle_of({{0, 0, 1}, {0, 1, 1}, {1, 1, 1}}), (Rows{{0, 1, 1}, {1, 1, 1}, {1, 1, 1}}));
    EXPECT_EQ(middle_of({{0, 0, 0}, {0, 1, 1}, {0, 1, 1}}), (Rows{{0, 0, 1}, {0, 1, 1}, {1, 1, 1}}));
    EXPECT_EQ(middle_of({{2, 0, 2}, {0, 2, 1}, {2, 1, 2}}), (Rows{{0, 2, 2}, {2, 2, 2}, {2, 2, 1}}));
}

class CleanCelTest : public EditorTest {
protected:
    CleanCelTest() {
        new_frame(120, 100, 0x404040);
        guides.clean_cel = 1;
        opt_cel_masking = 0;
    }
    static void take_random_cel(int w, int h) {
        OwnedBitmap picture = make_bitmap(w, h);
        for (int i = 0; i < w * h; ++i) *pixels_at(picture.get(), i % w, i / w) = static_cast<Color>(1 + UA_random(3));
        ASSERT_TRUE(take_cel(std::move(picture)));
    }
    static void commit(const CelPlace& place) {
        clear_frame_to(0x404040);
        cel_place = place;
        prepare_cel();
        ASSERT_TRUE(commit_cel(static_cast<CelMode>(place.mode), UNDO_TO_SAVE));
    }
};

TEST_F(CleanCelTest, StretchIsTheNearestOfThreeTimesScale2xOrAWholeEnlargement) {
    for (const auto& [w, h, scale] :
         {std::array{26, 18, 2}, {52, 36, 4}, {13, 9, 1}, {31, 20, 8}, {7, 60, 8}, {26, 27, 8}}) {
        take_random_cel(13, 9);
        OwnedBitmap whole = copy_bitmap(cel);
        for (int times = 1; times < scale; times *= 2) whole = scale2x(whole.get());
        for (const bool mirrored : {false, true}) {
            commit({.x = mirrored ? 10 + w : 10,
                    .y = 20,
                    .x2 = mirrored ? 10 : 10 + w,
                    .y2 = 20 + h,
                    .mode = CEL_STRETCH});
            for (int i = 0; i < w * h; ++i) {
                const int x = i % w, y = i / w;
                const int column = (2 * x + 1) * whole->w / (2 * w), row = (2 * y + 1) * whole->h / (2 * h);
                ASSERT_EQ(frame_pixel(10 + x, 20 + y),
                          *pixels_at(whole.get(), mirrored ? whole->w - 1 - column : column, row))
                    << w << ' ' << x << ' ' << y;
            }
        }
    }
}

TEST_F(CleanCelTest, FourTurnsByRightAnglesGiveTheCelBack) {
    for (const auto& [w, h] : {std::pair{16, 16}, {7, 12}, {12, 7}, {5, 3}}) {
        take_random_cel(w, h);
        const OwnedBitmap first = copy_bitmap(cel_mask);
        for (const int degrees : {90, 90, 90, 90, 180, 180, 360, 0, 270, 90}) {
            const int turned_w = degrees % 180 == 0 ? cel->w : cel->h, turned_h = degrees % 180 == 0 ? cel->h : cel->w;
            const int left = 50 - turned_w / 2, top = 40 - turned_h / 2;
            const Color corner = *pixels_at(cel_mask, 0, 0);
            commit({.x = 50, .y = 40, .mode = CEL_TURN, .degrees = degrees});
            if (degrees == 90) {
                EXPECT_EQ(frame_pixel(left + turned_w - 1, top), corner) << "with the clock";
            }
            ASSERT_EQ(count_pixels(0x404040), 120 * 100 - w * h);
            take_cel(copy_of_area({left, top, left + turned_w - 1, top + turned_h - 1}));
        }
        for (int i = 0; i < w * h; ++i)
            ASSERT_EQ(*pixels_at(cel_mask, i % w, i / w), *pixels_at(first.get(), i % w, i / w));
    }
}

TEST_F(CleanCelTest, ATurnedCelIsWhereItLiesAndHasNoNewColor) {
    OwnedBitmap square = make_bitmap(20, 20, 0x123456);
    ASSERT_TRUE(take_cel(std::move(square)));
    commit({.x = 60, .y = 50, .mode = CEL_TURN, .degrees = 45});
    for (int i = 0; i < 120 * 100; ++i) {  // a square on its corner, whose half diagonal is 14.14
        const double away = std::abs(i % 120 + 0.5 - 60) + std::abs(i / 120 + 0.5 - 50);
        ASSERT_EQ(frame_pixel(i % 120, i / 120) == 0x123456, away < 14.14) << i;
    }
    take_random_cel(30, 17);
    commit({.x = 110, .y = 5, .mode = CEL_TURN, .degrees = 200});  // across the Frame's corner
    std::set<Color> colors;
    for (const Color color : frame_pixels()) colors.insert(color);
    EXPECT_EQ(colors, (std::set<Color>{1, 2, 3, 0x404040}));
}

}  // namespace
}  // namespace nubo
