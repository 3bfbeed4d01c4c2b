// A mask colour that no Frame holds, and the old one's pixels carried over to it in all of them.
#include "menus_kit.h"
#include "windows/colors/color_window.h"
#include "workspace/frame_store.h"

namespace nubo {
namespace {

constexpr Color red = 0xff0000, green = 0x00ff00;

class FreeColorTest : public ActivityTest {
protected:
    /// Three Frames of the old mask colour with a green pixel; the second, without the mask colour, is in memory.
    FreeColorTest() {
        opt_undo_depth = undo_depth_all;
        mask_color = red;
        clear_frame_to(red);
        *pixels_at(current_frame, 3, 2) = green;
        insert_frames(0, 2, false);
        fetch_frame(0, 1);
        clear_frame_to(0x00ffff);
    }
    static void play_with(bool carries) {
        carries_ = carries;
        play([](User& user) -> Script {
            co_await click(user, DRAWING_MASK, right_button);
            co_await click(user, COLOR_MASK);
            co_await user.wait_until([] { return menu_id == WINDOW_COLOR && mask_color != red; });
            co_await right_click_outside(user);
            EXPECT_NE(slot_of(LABEL_CARRY_MASK), -1);
            co_await click(user, carries_ ? okay_slot : cancel_slot);
            co_await user.wait_until([] { return menu_id == WINDOW_DRAWING_MENU; });
        });
    }
    static inline bool carries_ = false;
};

TEST_F(FreeColorTest, CarriesThePixelsOverInAllFramesAStepInEach) {
    play_with(true);
    EXPECT_EQ(mask_color, 0xffff00U) << "of the vivid ones green is held, and the Frame in memory holds 00ffff";
    EXPECT_EQ(frame_index, 1);
    EXPECT_EQ(undo_steps(), 0) << "nothing there to change";
    EXPECT_STREQ(told_text.data(), "2 FRAMES CHANGED");
    for (const int slot : {0, 2}) {
        ASSERT_TRUE(fetch_frame(frame_index, slot));
        EXPECT_EQ(frame_pixel(3, 2), green);
        EXPECT_EQ(count_pixels(mask_color), frame_w * frame_h - 1);
        undo_last();
        EXPECT_EQ(count_pixels(red), frame_w * frame_h - 1);
    }
}

TEST_F(FreeColorTest, LeavesAllFramesAsTheyAreIfToldSo) {
    play_with(false);
    EXPECT_NE(mask_color, red);
    ASSERT_TRUE(fetch_frame(frame_index, 0));
    EXPECT_EQ(count_pixels(red), frame_w * frame_h - 1);
}

}  // namespace
}  // namespace nubo
