// The steps of the program loop's pass and of the picture, each by what a user sees when it is there.
#include "editor/stop.h"
#include "platform/faults.h"
#include "windows/menus_kit.h"
#include "windows/pic_commands.h"
#include "workspace/notices.h"
#include "workspace/rescue.h"

namespace nubo {
namespace {

constexpr Color white = 0xffffff;
constexpr int middle_button = 4;

class LoopTest : public ActivityTest {
protected:
    LoopTest() {
        take_tool(TOOL_DRAW);
        brush_color = white;
    }
};

TEST_F(LoopTest, TheButtonsOfTheMousePaintHideAndPan) {
    new_frame(3 * view_w, 3 * view_h);
    play([](User& user) -> Script {
        co_await click_place(user, 100, 60, right_button);
        EXPECT_NE(gui::hidden[DRAWING_UNDO], 0);
        co_await click_place(user, 100, 60, right_button);
        EXPECT_EQ(gui::hidden[DRAWING_UNDO], 0);
        co_await click_place(user, 100, 60);
        EXPECT_EQ(frame_pixel(100, 60), white);
        ::mouse_b = middle_button;
        co_await user.move_to(200, 150);
        ::mouse_b = 0;
        co_await user.wait(4);
        EXPECT_GT(pan_x, 0);
        EXPECT_GT(pan_y, 0);
    });
}

TEST_F(LoopTest, UndoRepeatsWhileItsKeyIsHeldAndSaysHowFarItIs) {
    opt_undo_depth = undo_depth_all;
    for (int i = 0; i < 30; ++i) EXPECT_TRUE(save_undo(false));
    play([](User& user) -> Script {
        co_await user.hold_key(KEY_U);
        co_await user.wait(30);  // of 10 ms
        EXPECT_EQ(undo_reach().done, 29) << "a press alone is one step";
        EXPECT_STREQ(told_text.data(), "UNDO 29 OF 30");
        co_await user.wait(110);
        EXPECT_NEAR(undo_reach().done, 29 - 12, 1) << "a second of it behind the first 0.4";
        co_await user.release_key(KEY_U);
        co_await user.move_to(middle_x(DRAWING_UNDO), middle_y(DRAWING_UNDO));
        ::mouse_b = middle_button;
        co_await user.wait(2);
        ::mouse_b = 0;
        co_await user.wait(4);
        EXPECT_NE(frame_behind_preview, nullptr) << "the middle button opens the history";
        co_await user.tap_key(KEY_ESC);
        EXPECT_EQ(frame_behind_preview, nullptr);
    });
    for (const int depth : {3, undo_depth_all}) {
        opt_undo_depth = depth;
        reset_undo_slots();
        status_message = status_coordinates;
        undo_by_user();
        EXPECT_EQ(status_message == MESSAGE_TOLD, depth == undo_depth_all) << "with a depth the end is silent";
    }
}

TEST_F(LoopTest, AStrokeThatEndsWithTheButtonDownIsNotBegunAgain) {
    take_tool(TOOL_FILL);
    tool_option(TOOL_FILL, OPTION_TOLERANCE) = 1;
    play([](User& user) -> Script {
        co_await user.press_left(100, 60);
        co_await user.wait(10);
        EXPECT_EQ(frame_pixel(0, 0), white);
        brush_color = 0;  // a second press would fill with it
        co_await user.wait(10);
        EXPECT_EQ(frame_pixel(0, 0), white);
        co_await user.release_left();
    });
}

TEST_F(LoopTest, AKeyThatIsHeldHoldsUpNoEnd) {
    play([](User& user) -> Script {
        co_await user.move_to(100, 60);
        co_await user.hold_key(KEY_X);  // CLEAR, which waits for the key to rise
        EXPECT_EQ(frame_pixel(0, 0), mask_color);
        exit_requested = 1;
        co_await user.wait(100);
        ADD_FAILURE() << "the program goes on";
        co_await user.release_key(KEY_X);
    });
}

TEST_F(LoopTest, AnEndByHandThatCanSaveNowhereIsPutOff) {
    setenv("XDG_STATE_HOME", (std::string(program_dir.data()) + "/state").c_str(), 1);
    faults::arm(faults::CALL_WRITE, 0, ENOSPC, /*all_later=*/true);
    static std::optional<int> code;
    static int ends = 0;
    const auto end_twice = [] {
        build_drawing_menu();
        for (; ends < 2; ++ends) {
            exit_requested = EXIT_BY_HAND;
            code = shutdown_program();
            EXPECT_EQ(code.has_value(), ends == 1);
        }
        wait_loop();
    };
    play_on(end_twice, [](User& user) -> Script {
        for (const Label label : {LABEL_TRY_AGAIN, LABEL_GO_ON, LABEL_QUIT}) {
            co_await user.wait_until([] { return slot_of(LABEL_WORK_NOT_SAVED) != -1; });
            co_await click(user, slot_of(label));
        }
        co_await click(user, slot_of(LABEL_CANCEL));
        EXPECT_EQ(ends, 1);  // neither the second question nor its CANCEL ends anything
        co_await click(user, slot_of(LABEL_QUIT));
        co_await click(user, slot_of(LABEL_OKAY));
        EXPECT_EQ(ends, 2);
    });
    EXPECT_NE(code.value_or(0), 0);
}

TEST_F(LoopTest, WaitingBoxesAreShownOneByOneOverTheDrawingMenu) {
    play([](User& user) -> Script {
        co_await user.wait(4);
        queue_box(LABEL_LAST_FRAME);
        queue_box(LABEL_CANNOT_BE_UNDONE);
        for (const Label told : {LABEL_LAST_FRAME, LABEL_CANNOT_BE_UNDONE}) {
            co_await user.wait(10);
            EXPECT_NE(slot_of(told), -1);
            co_await click(user, high_slot + okay_slot);
        }
        co_await user.wait(4);
        EXPECT_EQ(slot_of(LABEL_UNDO), DRAWING_UNDO);
        EXPECT_EQ(menu_shadow.x, -1);
    });
}

TEST_F(LoopTest, ThePictureHasItsTintItsPreviewAndItsStatusBar) {
    new_frame(view_w, view_h, white);
    opt_crosshair_strength = opt_status_bar = 0;
    play([](User& user) -> Script {
        co_await user.move_to(160, 100);
        EXPECT_EQ(*pixels_at(screen_buffer, 10, 60), white);
        tint_r = tint_g = tint_b = 0;
        tint_strength = 128;
        co_await user.wait(2);
        EXPECT_NEAR(static_cast<double>(*pixels_at(screen_buffer, 10, 60) & 0xff), 0x80, 2);
        tint_r = -1;
        opt_zoom_preview = opt_status_bar = 1;
        zoom = 2;
        co_await user.wait(4);
        EXPECT_NE(gui::active[zoom_preview_slot], 0);
        const int far = view_w - 1 - gui::w[zoom_preview_slot] - 10;
        const auto left = [] { return int{gui::x[zoom_preview_slot]}; };
        co_await user.move_to(40, 25);
        EXPECT_EQ(left(), 10) << "the hand may take it by its title";
        co_await user.press_left(40, 25);
        co_await user.drag_to(70, 65);
        co_await user.release_left();
        EXPECT_EQ(left(), 40);
        co_await user.press_left(70, 65);
        co_await user.drag_to(40, 25);
        co_await user.release_left();
        co_await user.move_to(40, 60);
        EXPECT_EQ(left(), far) << "but it hides no pixel from the hand";
        co_await user.move_to(240, 60);
        EXPECT_EQ(left(), 10);
        take_tool(TOOL_LINE);
        co_await click_place(user, 160, 100);
        co_await user.move_to(40, 25);
        EXPECT_EQ(left(), far) << "nor from a tool that waits";
        co_await user.tap_key(KEY_ESC);
        pan_x = view_w - 80;  // so that no Frame is there
        co_await user.move_to(240, 60);
        EXPECT_EQ(left(), far);
        zoom = zoom_min;
        co_await user.wait(4);
        EXPECT_EQ(gui::active[zoom_preview_slot], 0);
    });
}

TEST_F(LoopTest, ThePaintIsWrittenAsideWhileTheEditorRuns) {
    play([](User& user) -> Script {
        co_await click_place(user, 100, 60);
        UA_clock_ticks += 2 * rescue_seconds * clock_hz;
        co_await user.wait(4);
        settle_rescue();
        EXPECT_TRUE(std::filesystem::exists("WORKSPACE/rescue.000"));
    });
}

}  // namespace
}  // namespace nubo
