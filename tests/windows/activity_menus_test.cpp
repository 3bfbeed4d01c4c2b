// The activity menus and the Workspace window: where they open, what their items do, how they end.
#include "menus_kit.h"
#include "windows/pic_commands.h"
#include "workspace/frame_store.h"

namespace nubo {
namespace {

constexpr Color red = 0xff0000, green = 0x00ff00;

struct MenuCase {
    int button;
    Window window;
    int x;
    int y_low, y_middle, y_high;  // with the drawing menu's top at 207, 93 and 0: its buttons at 209, 95 and 2
};
// A menu of 72 above its button, or 2 above it if that stands in the upper 72 rows; CEL and USER 92, with bounds of 102
// and 92.
constexpr MenuCase menu_cases[] = {
    {DRAWING_FRAME, WINDOW_FRAME_MENU, 72, 137, 23, 0},
    {DRAWING_PIC, WINDOW_PIC_MENU, 189, 137, 23, 0},
    {DRAWING_CEL, WINDOW_CEL_MENU, 229, 117, 93, 0},
    {DRAWING_USER, WINDOW_USER_MENU, 261, 117, 3, 0},
};

TEST_F(MenuTest, ActivityMenusOpenAtTheirButtonAndStayUntilBack) {
    play_on(menu_loop, [](User& user) -> Script {
        for (const int top : {207, 93, 0}) {
            window_pos[POS_DRAWING_MENU] = {0, top};
            GUI_close_window();
            build_drawing_menu();
            for (const MenuCase& one : menu_cases) {
                co_await click(user, one.button);
                EXPECT_EQ(menu_id, one.window);
                EXPECT_EQ(gui::x[slot_window], one.x) << one.window;
                EXPECT_EQ(gui::y[slot_window], top == 207 ? one.y_low : top == 93 ? one.y_middle : one.y_high);
                EXPECT_EQ(menu_shadow.y, top);
                co_await click_place(user, 20, 60);
                co_await click_place(user, 20, 60, right_button);
                EXPECT_EQ(menu_id, one.window);
                co_await click(user, slot_of(LABEL_BACK));
                EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
                EXPECT_EQ(menu_shadow.x, -1);
                EXPECT_EQ(gui::y[slot_window], top);
            }
        }
    });
}

TEST_F(MenuTest, PicClearsAndRestores) {
    mask_color = red;
    replace_bitmap(original_frame, make_bitmap(50, 40, green));
    play_on(menu_loop, [](User& user) -> Script {
        co_await click(user, DRAWING_PIC);
        co_await click(user, slot_of(LABEL_PIC_CLEAR));
        EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
        EXPECT_EQ(count_pixels(red), view_w * view_h);
        co_await click(user, DRAWING_UNDO);
        EXPECT_EQ(count_pixels(red), 0);
        co_await click(user, DRAWING_PIC);
        co_await click(user, slot_of(LABEL_PIC_RESTORE));
        EXPECT_EQ(count_pixels(green), 50 * 40);
        EXPECT_EQ(frame_w, 50);
        co_await click(user, DRAWING_UNDO);  // the history has ended: no step has another size
        EXPECT_EQ(count_pixels(green), 50 * 40);
        co_await click(user, DRAWING_PIC);
        co_await click(user, slot_of(LABEL_PIC_CLEAR));
        co_await click(user, DRAWING_PIC);
        co_await click(user, slot_of(LABEL_PIC_RESTORE));
        EXPECT_EQ(count_pixels(green), 50 * 40);
        co_await click(user, DRAWING_UNDO);
        EXPECT_EQ(count_pixels(red), 50 * 40) << "of the same size it can be undone";
    });
}

TEST_F(MenuTest, QuitAsks) {
    play_on(menu_loop, [](User& user) -> Script {
        co_await click(user, DRAWING_USER);
        co_await click(user, slot_of(LABEL_QUIT));
        EXPECT_EQ(menu_shadow.x, -1);
        co_await click(user, cancel_slot);
        EXPECT_EQ(exit_requested, 0);
        EXPECT_EQ(slot_of(LABEL_UNDO), DRAWING_UNDO);
        co_await click(user, DRAWING_USER);
        co_await click(user, slot_of(LABEL_QUIT));
        ::mouse_x = middle_x(okay_slot) * pixel_scale;
        ::mouse_y = middle_y(okay_slot) * pixel_scale;
        co_await user.wait(4);
        ::mouse_b = left_button;
        co_await user.wait(4);
        ::mouse_b = 0;
        co_await user.wait_until([] { return exit_requested != 0; });
    });
}

TEST_F(ActivityTest, FramesAreClonedInsertedDeletedAndCentered) {
    clear_frame_to(red);
    play_on(menu_loop, [](User& user) -> Script {
        co_await click(user, DRAWING_FRAME);
        co_await click(user, slot_of(LABEL_DELETE));
        EXPECT_NE(slot_of(LABEL_LAST_FRAME), -1);
        EXPECT_EQ(slot_of(LABEL_CANCEL), -1);
        co_await click(user, okay_slot);
        EXPECT_EQ(frame_count, 1);
        zoom = 2;
        co_await click(user, DRAWING_FRAME);
        co_await click(user, slot_of(LABEL_CLONE));
        EXPECT_EQ(frame_view[1].zoom, 2);  // the copy shows what the user sees
        EXPECT_EQ(status_message, MESSAGE_FRAME_CLONED);
        zoom = 1;
        co_await click(user, DRAWING_FRAME);
        co_await click(user, slot_of(LABEL_INSERT));
        EXPECT_EQ(status_message, MESSAGE_FRAME_CREATED);
        EXPECT_EQ(frame_count, 3);
        co_await click(user, DRAWING_FRAME);
        co_await click(user, slot_of(LABEL_DELETE));
        co_await click(user, cancel_slot);
        EXPECT_EQ(frame_count, 3);
        EXPECT_EQ(frame_pixel(3, 3), red);
        co_await click(user, DRAWING_FRAME);
        co_await click(user, slot_of(LABEL_DELETE));
        co_await click(user, okay_slot);
        EXPECT_EQ(frame_count, 2);
        EXPECT_EQ(frame_pixel(3, 3), 0U);  // the blank one stood next
        zoom = 3;
        co_await click(user, DRAWING_FRAME);
        co_await click(user, slot_of(LABEL_CENTER));
        EXPECT_EQ(zoom, 1);
    });
    EXPECT_EQ(count_frame_files(), 2);
}

TEST_F(ActivityTest, FrameJumpGoesToTheFrameThatTheMouseTouchedAlone) {
    insert_frames(0, 2, true);
    clear_frame_to(red);  // since it came in
    zoom = 2;
    play([](User& user) -> Script {
        constexpr int long_enough = 40;                             // 400 ms
        co_await user.move_to(10 + 4 * 43 + 20, 12 + 2 * 43 + 20);  // where the next Frame will stand
        co_await user.hold_key(KEY_BACKSLASH);
        co_await user.wait(long_enough);
        co_await user.release_key(KEY_BACKSLASH);
        EXPECT_EQ(frame_index, 0) << "the hand hasn't moved";
        // The slot of USER, 18, is that of the next Frame on the board; its place is that of an empty cell.
        for (const bool touches : {false, true}) {
            co_await user.move_to(middle_x(DRAWING_USER), middle_y(DRAWING_USER));
            co_await user.hold_key(KEY_BACKSLASH);
            EXPECT_EQ(gui::active[zoom_preview_slot], 0) << "no preview over the board";
            EXPECT_EQ(*pixels_at(nail_sheet, 20, 20), red) << "as it is now";
            if (touches) co_await user.move_to(10 + 4 * 43 + 20, 12 + 2 * 43 + 20);
            co_await user.move_to(10 + 43 + 20, 12 + 20);  // an empty cell
            co_await user.wait(long_enough);
            co_await user.release_key(KEY_BACKSLASH);
            EXPECT_EQ(frame_index, touches ? 1 : 0);
        }
    });
}

TEST_F(ActivityTest, TheWorkspaceWindowKeepsItsTextsAndClearsAfterAsking) {
    clear_frame_to(red);
    workspace_title = {"A"};
    play_on(menu_loop, [](User& user) -> Script {
        co_await click(user, DRAWING_USER);
        co_await click(user, slot_of(LABEL_WORKSPACE));
        EXPECT_EQ(menu_id, WINDOW_WORKSPACE);
        const int title = 6;
        co_await click_place(user, gui::x[title] + gui::w[title] - 9, middle_y(title));
        co_await user.hold_key(KEY_END);
        co_await user.release_key(KEY_END);
        co_await user.hold_key(KEY_B);
        co_await user.release_key(KEY_B);
        EXPECT_STREQ(workspace_title.data(), "Ab");
        co_await click_place(user, 20, 20, right_button);
        EXPECT_EQ(gui::hidden[title], 1);
        EXPECT_EQ(status_message, MESSAGE_WINDOW_HIDDEN);
        co_await click_place(user, 20, 20, right_button);
        EXPECT_EQ(gui::hidden[title], 0);
        EXPECT_EQ(status_message, status_coordinates);
        co_await click(user, slot_of(LABEL_WORKSPACE_RETURN));
        EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
        for (const bool sure : {false, true}) {
            co_await click(user, DRAWING_USER);
            co_await click(user, slot_of(LABEL_WORKSPACE));
            co_await click(user, slot_of(LABEL_WORKSPACE_NEW));
            co_await click(user, sure ? okay_slot : cancel_slot);
            co_await user.wait_until([] { return menu_id == WINDOW_DRAWING_MENU; });  // behind the progress box
            EXPECT_EQ(frame_pixel(0, 0), sure ? 0U : red);
        }
    });
}

}  // namespace
}  // namespace nubo
