// The thread from a press to the pixel, through the program's own loop.
#include "harness/user.h"

namespace nubo {
namespace {

constexpr Color white = 0xffffff, black = 0;

class ThreadTest : public EditorTest {};

TEST_F(ThreadTest, AStrokeIsDrawnUndoneAndRedone) {
    play([](User& user) -> Script {
        co_await user.press_left(10, 20);
        co_await user.drag_to(30, 20);
        co_await user.release_left();
        EXPECT_EQ(count_pixels(white), 21);  // one tip on each pixel of the line
        EXPECT_EQ(frame_pixel(20, 20), white);
        co_await user.hold_key(KEY_U);
        co_await user.release_key(KEY_U);
        EXPECT_EQ(count_pixels(white), 0);
        co_await user.hold_key(KEY_LSHIFT);
        co_await user.hold_key(KEY_U);
        co_await user.release_key(KEY_U);
        co_await user.release_key(KEY_LSHIFT);
        EXPECT_EQ(count_pixels(white), 21);
    });
}

TEST_F(ThreadTest, AStrokeLandsWhereTheViewShowsIt) {
    play([](User& user) -> Script {
        zoom = 4;
        pan_x = 100;
        pan_y = 50;
        co_await user.press_left(80, 40);  // cells of 8 pixels
        co_await user.release_left();
        EXPECT_EQ(frame_pixel(110, 55), white);
        EXPECT_EQ(count_pixels(white), 1);
    });
}

}  // namespace
}  // namespace nubo
