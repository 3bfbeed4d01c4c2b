// Windows: building them, carrying them about, asking the user.
#include "gui/shapes.h"
#include "gui/sliders.h"
#include "gui/snapshot.h"
#include "gui_kit.h"
#include "windows/kit/confirm_box.h"

namespace nubo {
namespace {

constexpr ElementRow row{.slot = 2, .x = 10, .y = 20, .label = LABEL_OKAY, .left = ACTION_CLICK};
constexpr WindowRow window{.id = WINDOW_TOOL,
                           .place = POS_TOOL_AND_INK,
                           .x = 40,
                           .y = 60,
                           .w = 100,
                           .h = 50,
                           .child_count = 4,
                           .title = LABEL_BRUSHES,
                           .title_w = 72,
                           .elements = {&row, 1}};

TEST_F(GuiTest, ARowsOwnWordsStandForALabel) {
    ElementRow worded = row;
    WindowRow worded_window = window;
    worded.text = "AMOUNT";
    worded_window.title_text = "SOFTEN";
    worded_window.elements = {&worded, 1};
    build_window(worded_window);
    EXPECT_EQ(text_of(slot_title), "SOFTEN");
    EXPECT_EQ(text_of(slot_content), "AMOUNT");
    build_window(window);
    EXPECT_EQ(text_of(slot_title), "BRUSHES");
    EXPECT_EQ(text_of(slot_content), "OKAY");
}

TEST_F(GuiTest, AWindowIsCarriedWithoutAButtonAndStaysOnTheScreen) {
    build_window(window);
    GUI_add_slider(3, 50, 90, 80, 10);
    play_on(wait_loop, [](User& user) -> Script {
        co_await user.move_to(50, 65);
        co_await user.press_left(50, 65);
        co_await user.release_left();
        EXPECT_EQ(gui::border_style[0], 2);
        co_await user.move_to(80, 45);
        EXPECT_EQ(gui::x[0], 70);  // held 10 right of and 5 below its corner
        EXPECT_EQ(gui::y[0], 40);
        EXPECT_EQ(gui::x[2], 80);
        EXPECT_EQ(slider_places(3).stop_at(0), 90);  // 50 + 30 + 10
        co_await user.move_to(319, 239);
        EXPECT_EQ(gui::x[0], 219);  // its border, at x + w, is the screen's last column
        EXPECT_EQ(gui::y[0], 189);
        co_await user.press_left(319, 239);
        EXPECT_EQ(gui::x[0], 219);
        co_await user.release_left();
        co_await user.move_to(0, 0);
    });
    EXPECT_EQ(gui::x[0], 219);
    EXPECT_EQ(gui::border_style[0], 0);
    EXPECT_EQ(gui_enabled, 1);
    EXPECT_EQ(window_pos[POS_TOOL_AND_INK].x, 219);
    EXPECT_EQ(window_pos[POS_TOOL_AND_INK].y, 189);
    EXPECT_EQ(window_pos[WINDOW_TOOL].x, -1);
}

TEST_F(GuiTest, AWindowDraggedByItsTitleIsPutDownWhenTheButtonRises) {
    build_window(window);
    play_on(wait_loop, [](User& user) -> Script {
        co_await user.press_left(50, 65);
        co_await user.drag_to(52, 64);  // a hand that trembles
        EXPECT_EQ(gui::border_style[0], 0);
        co_await user.drag_to(90, 100);
        EXPECT_EQ(gui::x[0], 80);
        EXPECT_EQ(gui::border_style[0], 2);
        // A last motion, the release and the next motion in one instant.
        user.drag_to(100, 110), note_hand();
        user.release_left(), note_hand();
        co_await user.move_to(10, 10);
        EXPECT_EQ(gui::x[0], 90);
        EXPECT_EQ(gui::y[0], 105);
        co_await user.wait(10);
    });
    EXPECT_EQ(gui::border_style[0], 0);
    EXPECT_EQ(gui_enabled, 1);
    EXPECT_EQ(window_pos[POS_TOOL_AND_INK].x, 90);
}

TEST_F(GuiTest, TheConfirmBoxAnswersAndGivesTheWindowBack) {
    static int answer;
    struct Case {
        bool high, one_button;
        int x, answer;
    };
    // The box stands at (60, 80); the buttons of 59 at 2 and 140, or the one at 200 / 2 - 59 / 2.
    static constexpr Case cases[] = {
        {false, false, 70, 1}, {false, false, 205, 0}, {true, false, 205, 0}, {true, true, 160, 1}};
    static const Case* asked;
    for (const Case& one : cases) {
        asked = &one;
        answer = -1;
        menu_id = WINDOW_OPTIONS;
        play_on(
            [] {
                answer = confirm_box(LABEL_DELETE_FRAME, LABEL_CANNOT_BE_UNDONE, asked->high, asked->one_button);
                wait_loop();
            },
            [](User& user) -> Script {
                co_await user.wait(4);
                EXPECT_EQ(menu_id, WINDOW_BOX);
                co_await user.move_to(asked->x, 134);
                co_await user.press_left(asked->x, 134);
                co_await user.release_left();
                co_await user.wait(4);
            });
        EXPECT_EQ(answer, one.answer) << one.x;
        EXPECT_EQ(menu_id, one.high ? WINDOW_OPTIONS : WINDOW_DRAWING_MENU);  // what stood before
        EXPECT_EQ(gui::active[high_slot], 0);
    }
}

TEST_F(GuiTest, TheSnapshotHoldsTheWindowAndNothingElse) {
    build_window(window);
    take_menu_snapshot(menu_snapshot);
    EXPECT_EQ(*pixels_at(menu_snapshot, 39, 60), transparent_color);
    EXPECT_EQ(*pixels_at(menu_snapshot, 40, 60), ui_border);
    EXPECT_EQ(menu_shadow.x, 40);
    EXPECT_EQ(menu_shadow.w, 103);
    EXPECT_EQ(menu_shadow.h, 51);
    clear_menu_shadow();
    EXPECT_EQ(menu_shadow.x, -1);
}

}  // namespace
}  // namespace nubo
