// The window over the steps of the Frame: what it shows, what it leaves, what it forgets.
#include "menus_kit.h"
#include "windows/history_window.h"
#include "workspace/resize_frame.h"

namespace nubo {
namespace {

constexpr Color red = 0xff0000;
enum : int { slider = slot_content, okay, today, forget, forget_all, cancel };

class HistoryWindowTest : public MenuTest {
protected:
    HistoryWindowTest() {
        opt_undo_depth = undo_depth_all;
        frame_count = 2;
        reset_undo_slots();
        for (const int x : {1, 2, 3}) {
            EXPECT_TRUE(save_undo(false));
            *pixels_at(current_frame, x, 0) = red;
            note_touched({x, 0, x, 0});
        }
        EXPECT_TRUE(resize_frame(0, 90, 50, 0, false));
    }
    static void look_at(int step) { gui::slider_value[slider] = step; }
};

TEST_F(HistoryWindowTest, ShowsEachStepAndStaysOrReturns) {
    play_on(history_window, [](User& user) -> Script {
        for (const int step : {0, 2, 3, 4, 1}) {
            look_at(step);
            co_await user.wait(2);
            EXPECT_EQ(frame_w, step == 4 ? 90 : view_w);
            EXPECT_EQ(count_pixels(red), std::min(step, 3));
        }
        for (const int box : {0, 1}) {
            if (box == 1) co_await click(user, forget);
            co_await user.tap_key(KEY_PGDN);
            EXPECT_TRUE(frame_index == 0 && frame_behind_preview != nullptr) << box;
        }
        co_await user.tap_key(KEY_ESC);
        co_await click(user, cancel);
    });
    EXPECT_EQ(frame_w, 90);
    EXPECT_EQ(undo_reach().done, 4);
    play_on(history_window, [](User& user) -> Script {
        look_at(2);
        co_await user.wait(2);
        co_await click(user, okay);
    });
    EXPECT_TRUE(count_pixels(red) == 2 && frame_w == view_w);
    EXPECT_TRUE(undo_reach().done == 2 && undo_reach().all == 4);
    undo_last();
    EXPECT_EQ(count_pixels(red), 1);
}

TEST_F(HistoryWindowTest, AnEndWhileItLooksBackKeepsTheFrameItself) {
    play_on(history_window, [](User& user) -> Script {
        look_at(1);
        co_await user.wait(2);
        exit_requested = EXIT_BY_HAND;
        co_await user.wait(2);
    });
    EXPECT_TRUE(frame_w == 90 && count_pixels(red) == 3);
}

}  // namespace
}  // namespace nubo
