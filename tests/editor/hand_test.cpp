// A hasty hand: presses in the same instant as the motion, clicks and strokes of keys shorter than a look.
#include "gui/elements.h"
#include "harness/user.h"
#include "platform/input_queue.h"
#include "windows/kit/drawing_menu.h"

namespace nubo {
namespace {

constexpr Color white = 0xffffff;

class HandTest : public EditorTest {
protected:
    HandTest() {
        take_tool(TOOL_DRAW);
        brush_color = white;
        mouse_reversed = 0;
    }
    static int middle_x(int slot) { return gui::x[at(slot)] + gui::w[at(slot)] / 2; }
    static int middle_y(int slot) { return gui::y[at(slot)] + gui::h[at(slot)] / 2; }
};

TEST_F(HandTest, APressBelongsToWhatIsUnderIt) {
    color_slots[0] = 0x123456;
    play([](User& user) -> Script {
        co_await user.move_to(100, 30);
        // The motion from the Frame onto the menu and the press come together.
        co_await user.press_left(middle_x(DRAWING_COLOR_FIRST), middle_y(DRAWING_COLOR_FIRST));
        co_await user.release_left();
        EXPECT_EQ(brush_color, 0x123456U);
        co_await user.move_to(100, 30);
        co_await user.press_right(middle_x(DRAWING_UNDO), middle_y(DRAWING_UNDO));
        co_await user.release_right();
        EXPECT_EQ(gui::hidden[DRAWING_UNDO], 0);
        EXPECT_EQ(count_pixels(0), view_w * view_h);
        // And from the menu onto the Frame.
        co_await user.move_to(middle_x(DRAWING_UNDO), middle_y(DRAWING_UNDO));
        co_await user.press_left(50, 40);
        co_await user.release_left();
    });
    EXPECT_EQ(frame_pixel(50, 40), 0x123456U);
}

TEST_F(HandTest, AllClicksBeforeTheCloseAreServed) {
    play([](User& user) -> Script {
        co_await user.move_to(100, 30);
        for (int i = 1; i <= 6; ++i)
            for (const int buttons : {0, 1, 0}) note_mouse(20 * i * pixel_scale, 40 * pixel_scale, buttons);
        note_close();
        co_await user.wait(200);
        ADD_FAILURE() << "the program goes on";
    });
    EXPECT_EQ(count_pixels(white), 6);
}

TEST_F(HandTest, APressBelongsToWhereItBegan) {
    play([](User& user) -> Script {
        co_await user.press_left(middle_x(DRAWING_BRUSH), middle_y(DRAWING_BRUSH));
        co_await user.drag_to(100, 30);
        co_await user.drag_to(150, 60);
        co_await user.release_left();
        EXPECT_EQ(count_pixels(white), 0);
        // A stroke goes on below the menu, presses no button there, and ends where the hand rose.
        co_await user.press_left(middle_x(DRAWING_UNDO), gui::y[0] - 20);
        co_await user.drag_to(middle_x(DRAWING_UNDO), middle_y(DRAWING_UNDO));
        co_await user.release_left();
        EXPECT_EQ(frame_pixel(middle_x(DRAWING_UNDO), middle_y(DRAWING_UNDO)), white);
    });
    EXPECT_GT(count_pixels(white), 20);
}

TEST_F(HandTest, AClickPaintsItsPointHoweverShort) {
    play([](User& user) -> Script {
        co_await user.move_to(40, 40);
        co_await user.tap_left(40, 40);
        co_await user.move_to(60, 40);
        // Three in one instant, then the hand goes elsewhere.
        for (const int x : {60, 70, 80}) user.tap_left(x, 40), note_hand();
        co_await user.move_to(200, 100);
        co_await user.wait(20);
    });
    for (const int x : {40, 60, 70, 80}) EXPECT_EQ(frame_pixel(x, 40), white) << x;
    EXPECT_EQ(count_pixels(white), 4);
}

TEST_F(HandTest, AStrokeReachesWhereTheButtonRose) {
    play([](User& user) -> Script {
        user.press_left(20, 20);
        note_hand();
        user.move_to(60, 20);
        note_hand();
        co_await user.release_left();
        co_await user.move_to(60, 90);
        co_await user.wait(10);
    });
    EXPECT_EQ(count_pixels(white), 41);
}

TEST_F(HandTest, StrokesOfKeysActOnceEachAndInTheirOrder) {
    play([](User& user) -> Script {
        co_await user.move_to(160, 100);
        co_await user.tap_key(KEY_PLUS_PAD);
        co_await user.wait(20);
        EXPECT_EQ(zoom, 2);
        for (const int key : {KEY_PLUS_PAD, KEY_PLUS_PAD, KEY_PLUS_PAD, KEY_MINUS_PAD}) user.tap_key(key), note_hand();
        co_await user.wait(40);
        EXPECT_EQ(zoom, 4);
        // A stroke, and its undo and redo while the program is still at the stroke.
        user.tap_left(160, 100), note_hand();
        user.tap_key(KEY_U), note_hand();
        co_await user.wait(40);
        EXPECT_EQ(count_pixels(white), 0);
        user.hold_key(KEY_LSHIFT), note_hand();
        user.tap_key(KEY_U), note_hand();
        co_await user.release_key(KEY_LSHIFT);
        co_await user.wait(40);
    });
    EXPECT_EQ(count_pixels(white), 1);
}

TEST_F(HandTest, AClickWithAKeyStillDownIsAClick) {
    play([](User& user) -> Script {
        co_await user.tap_left(30, 30);
        co_await user.hold_key(KEY_U);
        EXPECT_EQ(count_pixels(white), 0);
        co_await user.tap_left(60, 60);
        co_await user.wait(20);
        EXPECT_EQ(count_pixels(white), 1);  // and the key has not undone it
        co_await user.release_key(KEY_U);
        co_await user.tap_key(KEY_U);
        EXPECT_EQ(count_pixels(white), 0);
    });
}

/// More than waits at most: what is forgotten is presses, never the release of what is down.
TEST(InputQueueTest, NothingStaysDown) {
    std::array<bool, input_codes> down{};
    int presses = 0;
    for (int i = 0; i < 3'000; ++i) {
        note_key(KEY_A + i % 26, true);
        if (i % 7 != 0) note_key(KEY_A + i % 26, false);
    }
    for (int code = 1; code < input_keys; ++code) note_key(code, false);
    for (; const InputChange* const change = first_change(); drop_first_change()) {
        EXPECT_NE(down[at(change->code)], change->down);
        down[at(change->code)] = change->down;
        presses += change->down ? 1 : 0;
    }
    EXPECT_GT(presses, 400);
    EXPECT_EQ(std::count(down.begin(), down.end(), true), 0);
    note_key(KEY_A, true);  // and once it is read, it hears again
    ASSERT_NE(first_change(), nullptr);
    EXPECT_TRUE(first_change()->down);
}

}  // namespace
}  // namespace nubo
