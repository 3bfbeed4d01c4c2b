// The MOVE tool, on one Frame and from Frame to Frame, to each of its ends.
#include "cel_kit.h"
#include "platform/faults.h"
#include "platform/signals.h"
#include "windows/cel/cel_commands.h"
#include "windows/kit/placement.h"
#include "workspace/frame_store.h"
#include <csignal>

namespace nubo {
namespace {

TEST_F(CelCommandTest, MoveCutsAndAnchorsInOneStep) {
    take_tool(TOOL_MOVE);
    take_cel(make_bitmap(5, 5, blue));
    cel_x = 9;
    mask_color = white;
    play([](User& user) -> Script {
        co_await click_place(user, 42, 51);
        EXPECT_EQ(status_message, MESSAGE_GRAB_SECOND);
        co_await click_place(user, 60, 60, right_button);
        expect_at_rest();
        EXPECT_EQ(undo_steps(), 0);
        co_await click_place(user, 42, 51);
        co_await click_place(user, 40, 50);
        EXPECT_EQ(area_floats, 1);
        EXPECT_EQ(frame_pixel(41, 50), white) << "the hole";
        co_await tap(user, KEY_ESC);
        expect_at_rest();
        EXPECT_EQ(frame_pixel(42, 50), green) << "put back";
        EXPECT_EQ(undo_steps(), 0);
        co_await click_place(user, 42, 51);
        co_await click_place(user, 40, 50);
        co_await click_place(user, 41, 51);
        co_await user.move_to(101, 81);
        co_await click_place(user, 101, 81, right_button);
        expect_at_rest();
        EXPECT_EQ(frame_pixel(102, 80), green);
        EXPECT_EQ(frame_pixel(40, 50), white);
        EXPECT_EQ(undo_steps(), 1);
        EXPECT_EQ(cel->w, 5) << "the Cel is the old one";
        EXPECT_EQ(cel_pixel(0, 0), blue);
        EXPECT_EQ(cel_x, 9);
        co_await tap(user, KEY_U);
        EXPECT_EQ(frame_pixel(42, 50), green);
        EXPECT_EQ(count_pixels(red), 5);
        // The program ends while it floats.
        co_await click_place(user, 42, 51);
        co_await click_place(user, 40, 50);
        co_await tap(user, KEY_DOWN);
        exit_requested = 1;
        co_await user.wait(4);
    });
    EXPECT_EQ(count_pixels(red), 5) << "it has landed";
    EXPECT_EQ(frame_pixel(42, 51), green);
    EXPECT_EQ(area_floats, 0);
}

TEST_F(CelCommandTest, MoveThatIsLeftTakesNothingFromUndoAndRedo) {
    take_tool(TOOL_MOVE);
    opt_undo_depth = 2;
    for (const int x : {1, 2, 3}) {
        ASSERT_TRUE(save_undo(false));
        fill(x, 0, x, 0, blue);
    }
    undo_last();
    play([](User& user) -> Script {
        const auto before = frame_pixels();
        co_await click_place(user, 42, 51);
        co_await click_place(user, 40, 50);
        co_await tap(user, KEY_ESC);
        EXPECT_EQ(frame_pixels(), before);
        redo_last();
        EXPECT_EQ(count_pixels(blue), 3);
        for (const int left : {2, 1}) {
            undo_last();
            EXPECT_EQ(count_pixels(blue), left);
        }
    });
}

TEST_F(CelCommandTest, ALossOfTheDisplayPutsBackWhatFloatsAndTheCel) {
    take_tool(TOOL_MOVE);
    take_cel(make_bitmap(5, 5, blue));
    cel_x = 9;
    play([](User& user) -> Script {
        co_await click_place(user, 42, 51);
        co_await click_place(user, 40, 50);
        co_await tap(user, KEY_H);
        co_await tap(user, KEY_DOWN);
        end_placement();
        EXPECT_EQ(frame_pixel(42, 50), green);
        EXPECT_EQ(count_pixels(red), 5);
        EXPECT_EQ(cel_pixel(4, 4), blue);
        EXPECT_EQ(cel_x, 9);
    });
    grab_sprite();
    play([](User& user) -> Script {
        co_await tap(user, KEY_TILDE);
        co_await tap(user, KEY_H);
        end_placement();
        EXPECT_EQ(cel_pixel(2, 0), green) << "not flipped";
    });
}

TEST_F(CelCommandTest, MoveReadsTheFrameBeforeTheHole) {
    take_tool(TOOL_MOVE);
    take_ink(INK_GLASS, 128);
    mask_color = white;
    play([](User& user) -> Script {
        co_await click_place(user, 40, 50);
        co_await click_place(user, 41, 51);
        co_await click_place(user, 10, 10, right_button);
        EXPECT_EQ(frame_pixel(40, 50), 0xfe0000U) << "red on red: 255 * 127 >> 8 = 126, 255 * 129 >> 8 = 128";
    });
}

// ---- MOVE from Frame to Frame --------------------------------------------------------------------------------------

class MoveToAnotherFrameTest : public ActivityTest {
protected:
    MoveToAnotherFrameTest() {
        fill(40, 50, 42, 51, red);
        fill(42, 50, 42, 50, green);
        before_ = frame_pixels();
        insert_frames(0, 2, true);
        take_tool(TOOL_MOVE);
        mask_color = white;
        take_cel(make_bitmap(5, 5, blue));
        cel_x = 9;
    }
    /// Cuts the sprite and looks at Frame 1; it floats over that.
    static User::Pause cut(User& user, int step) {
        return step < 2 ? click_place(user, step == 0 ? 42 : 40, step == 0 ? 51 : 50) : tap(user, KEY_PGDN);
    }
    static void expect_frame_hole() {
        EXPECT_EQ(frame_index, 0);
        EXPECT_EQ(frame_pixel(42, 50), white);
    }
    static inline std::vector<Color> before_;
};

TEST_F(MoveToAnotherFrameTest, UndoGivesTheFrameBeforeTheCutWhateverWasLookedAt) {
    play([](User& user) -> Script {
        for (const int step : {0, 1, 2}) co_await cut(user, step);
        EXPECT_EQ(frame_index, 1);
        co_await tap(user, KEY_DEL);
        EXPECT_EQ(frame_index, 0);
        co_await tap(user, KEY_RIGHT);
        co_await click_place(user, 10, 10, right_button);
        EXPECT_EQ(frame_pixel(43, 50), green);
        EXPECT_EQ(frame_pixel(40, 50), white);
        const auto landed = frame_pixels();
        undo_last();
        EXPECT_EQ(frame_pixels(), before_);
        redo_last();
        EXPECT_EQ(frame_pixels(), landed);
        EXPECT_EQ(cel_pixel(0, 0), blue);
    });
}

TEST_F(MoveToAnotherFrameTest, UndoMakesTheAreaTheCelAndTheHoleIsAStepOfItsFrame) {
    play([](User& user) -> Script {
        for (const int step : {0, 1, 2}) co_await cut(user, step);
        co_await tap(user, KEY_H);
        co_await tap(user, KEY_RIGHT);
        co_await click_place(user, 10, 10, right_button);
        for (int round = 0; round < 2; ++round) {
            EXPECT_EQ(frame_pixel(41, 50), green) << "flipped";
            EXPECT_EQ(cel_pixel(0, 0), blue);
            EXPECT_EQ(cel_x, 9);
            co_await tap(user, KEY_U);
            EXPECT_EQ(count_pixels(red) + count_pixels(green), 0);
            EXPECT_EQ(cel->w, 3);
            EXPECT_EQ(cel_pixel(2, 0), green) << "as it was cut";
            EXPECT_EQ(cel_x, 41) << "where it stood";
            redo_last();
        }
        co_await tap(user, KEY_DEL);
        expect_frame_hole();
        co_await tap(user, KEY_U);
        EXPECT_EQ(frame_pixels(), before_);
        redo_last();
        expect_frame_hole();
        EXPECT_EQ(cel_pixel(0, 0), blue);
    });
}

TEST_F(MoveToAnotherFrameTest, AtEachEndItGoesBackWhereItWasCut) {
    static int end = 0;
    for (end = 0; end < 4; ++end) {  // the close button, a signal, the loss of the display, and on a full disk
        request_exit_on_signals();
        play([](User& user) -> Script {
            for (const int step : {0, 1, 2}) co_await cut(user, step);
            fill(5, 5, 5, 5, blue);  // work of its own on the Frame below
            co_await tap(user, KEY_V);
            if (end == 3) faults::arm(faults::CALL_WRITE, 0, ENOSPC, true);
            if (end == 0 || end == 3) exit_requested = 1;
            if (end == 1) raise(SIGTERM);
            if (end == 2) end_placement();
            co_await user.wait(4);
        });
        EXPECT_EQ(cel_pixel(0, 0), blue) << end;
        faults::disarm();
        EXPECT_EQ(end == 3 || close_workspace() == WORKSPACE_KEPT, true) << end;
        EXPECT_FALSE(std::filesystem::exists("WORKSPACE/rescue.000")) << end;
        EXPECT_TRUE(fetch_frame(0, 0));
        EXPECT_EQ(frame_pixels(), before_) << end;
        EXPECT_TRUE(fetch_frame(0, 1));
        EXPECT_EQ(count_pixels(blue), 1) << end;
        EXPECT_EQ(count_pixels(red), 0) << end;
        EXPECT_TRUE(fetch_frame(1, 0));
        handlers_locked = 0;
    }
}

}  // namespace
}  // namespace nubo
