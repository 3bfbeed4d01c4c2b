// The Frame at another size: by the nine anchors, scaled, cropped, as a sprite sheet; and refused without memory.
#include "harness/user.h"
#include "state/messages.h"
#include "state/status.h"
#include "state/view.h"
#include "windows/pic_commands.h"
#include "workspace/resize_frame.h"

namespace nubo {
namespace {

class ResizeTest : public EditorTest {
protected:
    /// A Frame whose pixels tell their place: 1 + x + 100 * y.
    static void number_frame(int width, int height) {
        new_frame(width, height);
        for (int i = 0; i < width * height; ++i)
            *pixels_at(current_frame, i % width, i / width) = static_cast<Color>(1 + i % width + 100 * (i / width));
    }
    /// Each pixel of the Frame comes from (x + left, y + top) of the numbered one, or is black.
    static void expect_part(int left, int top, int old_w, int old_h, int anchor) {
        for (int y = 0; y < frame_h; ++y)
            for (int x = 0; x < frame_w; ++x) {
                const int sx = x + left, sy = y + top;
                const bool inside = sx >= 0 && sx < old_w && sy >= 0 && sy < old_h;
                ASSERT_EQ(frame_pixel(x, y), inside ? static_cast<Color>(1 + sx + 100 * sy) : 0U)
                    << anchor << ": " << x << ' ' << y;
            }
    }
};

struct Size {
    int w, h, half_x, whole_x, half_y, whole_y;  // the source corner by the anchor's column and row
};
// From 10 by 7. Halves are truncated toward zero: growing by 5 puts the picture 2 inside, shrinking by 3 cuts 1.
constexpr Size sizes[] = {{15, 12, -2, -5, -2, -5}, {7, 2, 1, 3, 2, 5}, {4, 20, 3, 6, -6, -13}, {10, 7, 0, 0, 0, 0}};

TEST_F(ResizeTest, AnchorsPlaceTheOldPicture) {
    for (const Size& size : sizes)
        for (int anchor = 0; anchor < anchor_count; ++anchor) {
            number_frame(10, 7);
            ASSERT_TRUE(save_undo(false));
            ASSERT_TRUE(resize_frame(frame_index, size.w, size.h, anchor, false));
            ASSERT_EQ(frame_w, size.w);
            ASSERT_EQ(stroke_mask->h, size.h);
            expect_part(std::array{0, size.half_x, size.whole_x}[anchor % 3],
                        std::array{0, size.half_y, size.whole_y}[anchor / 3], 10, 7, anchor);
            undo_last();
            ASSERT_EQ(frame_h, size.h) << "the history ended";
        }
    number_frame(10, 7);
    ASSERT_TRUE(crop_frame(-3, 4, 5, 9));
    expect_part(-3, 4, 10, 7, -1);
}

TEST_F(ResizeTest, ScalingReducesOnlyWhereBothSidesShrink) {
    new_frame(4, 4);
    for (int i = 0; i < 16; ++i) *pixels_at(current_frame, i % 4, i / 4) = i % 2 == 0 ? 0x000000 : 0x000011;
    ASSERT_TRUE(resize_frame(frame_index, 2, 2, 8, true));
    EXPECT_EQ(frame_pixels(), std::vector<Color>(4, 0x000009)) << "means of 0 and 17, rounded up";
    number_frame(4, 4);
    ASSERT_TRUE(resize_frame(frame_index, 2, 4, 8, true));
    for (int i = 0; i < 8; ++i) EXPECT_EQ(frame_pixel(i % 2, i / 2) / 100, static_cast<Color>(i / 2)) << "no means";
    number_frame(2, 2);
    ASSERT_TRUE(resize_frame(frame_index, 6, 4, 0, true));
    for (int i = 0; i < 24; ++i)
        EXPECT_EQ(frame_pixel(i % 6, i / 6), static_cast<Color>(1 + i % 6 / 3 + 100 * (i / 6 / 2))) << i;
}

TEST_F(ResizeTest, RestoreBringsTheOldSizeBackAndTheUserIsTold) {
    number_frame(10, 7);
    replace_bitmap(original_frame, copy_bitmap(current_frame));
    pan_x = 9, pan_y = 7;
    ASSERT_TRUE(resize_frame(frame_index, 2, 2, 0, false));
    EXPECT_EQ(status_message, MESSAGE_RESIZED);
    EXPECT_LE(pan_x, 2);
    restore_frame();
    EXPECT_EQ(status_message, status_coordinates) << "it has done so";
    expect_part(0, 0, 10, 7, -1);
    EXPECT_EQ(frame_w, 10);
}

TEST_F(ResizeTest, TheLongestSideIsCalledByItsName) {
    number_frame(10, 7);
    EXPECT_FALSE(make_sprite_sheet({.sprite_w = 256, .columns = 256}));  // 256 * 257 + 1
    EXPECT_EQ(status_message, MESSAGE_FRAME_SIDE);
    expect_part(0, 0, 10, 7, -1);
}

TEST_F(ResizeTest, SheetFollowsItsFormula) {
    constexpr Color sprite = 0x111111, sheet = 0x222222, border = 0x333333;
    struct Case {
        SpriteSheet sheet;
        int w, h;
    };
    const Case cases[] = {{{16, 16, 0, 0, 1, 1}, 18, 18},
                          {{16, 16, 0, 0, 8, 8}, 137, 137},
                          {{3, 2, 1, 4, 2, 3}, 15, 11},
                          {{1, 1, 3, 0, 2, 2}, 8, 5}};
    for (Case one : cases) {
        one.sheet.sprite = sprite, one.sheet.sheet = sheet, one.sheet.border = border;
        ASSERT_TRUE(make_sprite_sheet(one.sheet));
        ASSERT_EQ(frame_w, one.w);
        ASSERT_EQ(frame_h, one.h);
        const OwnedBitmap drawn = make_bitmap(one.w, one.h, sheet);
        for (int r = 0; r < one.sheet.rows; ++r)
            for (int c = 0; c < one.sheet.columns; ++c) {
                const int x = c * (one.sheet.x_spacing + 1 + one.sheet.sprite_w);
                const int y = r * (one.sheet.y_spacing + 1 + one.sheet.sprite_h);
                const int x2 = x + one.sheet.sprite_w + 1, y2 = y + one.sheet.sprite_h + 1;
                rectfill(drawn.get(), x, y, x2, y2, sprite);
                rect(drawn.get(), x, y, x2, y2, border);
            }
        for (int y = 0; y < one.h; ++y)
            for (int x = 0; x < one.w; ++x)
                ASSERT_EQ(frame_pixel(x, y), *pixels_at(drawn.get(), x, y)) << x << ' ' << y;
    }
}

TEST_F(ResizeTest, WithoutMemoryAllIsAsBefore) {
    number_frame(10, 7);
    ASSERT_TRUE(save_undo(false));
    *pixels_at(current_frame, 0, 0) = 0xabcdef;
    note_all_touched();
    const auto before = frame_pixels();
    bool (*const attempts[])() = {[] { return resize_frame(0, 11, 12, 4, false); },
                                  [] { return resize_frame(0, 5, 5, 4, true); }, [] { return crop_frame(1, 1, 3, 3); },
                                  [] { return make_sprite_sheet({}); }};
    for (const auto attempt : attempts)
        for (const int bitmaps_before : {0, 1}) {  // the Frame, its mask
            status_message = 0;
            refuse_bitmap(bitmaps_before);
            EXPECT_FALSE(attempt());
            EXPECT_EQ(status_message, MESSAGE_NO_MEMORY);
            EXPECT_EQ(frame_pixels(), before);
            EXPECT_EQ(stroke_mask->w, 10);
        }
    refuse_bitmap(-1);
    EXPECT_FALSE(make_sprite_sheet({256, 256, 256, 256, 256, 256})) << "131,073 pixels a side";
    EXPECT_FALSE(resize_frame(0, 65535, 65535, 0, false));
    undo_last();
    EXPECT_EQ(frame_pixel(0, 0), 1U) << "the history has stayed";
}

}  // namespace
}  // namespace nubo
