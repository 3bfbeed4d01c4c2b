// What all windows and waiting tools share: how they end, what comes back behind them, whom a press belongs to.
#include "windows/kit/run_window.h"

#include "harness/windows.h"
#include "menus_kit.h"
#include "windows/kit/confirm_box.h"
#include "windows/options_window.h"

namespace nubo {
namespace {

const std::vector<WindowOpener> windows = all_windows();
std::size_t opened = 0;
bool returned = false;

/// Opens one of them over the drawing menu and waits behind it.
void open_and_wait() {
    zoom = zoom_min;
    build_drawing_menu();
    windows[opened].open();
    returned = true;
    wait_loop();
}

TEST_F(AllWindowsTest, EscapeCancelsWhateverIsOpenAndTheDrawingMenuComesBack) {
    for (opened = 0; opened < windows.size(); ++opened) {
        if ((windows[opened].traits & (IS_HELD | TAKES_ESCAPE)) != 0) continue;
        returned = false;
        play_on(open_and_wait, [](User& user) -> Script {
            const std::string& name = windows[opened].name;
            co_await user.hold_key(KEY_ESC);
            co_await user.wait(10);
            EXPECT_FALSE(returned) << name << ": a key that was down before counts for nothing";
            co_await user.release_key(KEY_ESC);
            co_await user.hold_key(KEY_ESC);
            EXPECT_FALSE(returned) << name << ": nobody else must hear the key";
            co_await user.release_key(KEY_ESC);
            EXPECT_TRUE(returned) << name;
            EXPECT_EQ(slot_of(LABEL_UNDO), DRAWING_UNDO) << name;
            EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU) << name;
            EXPECT_EQ(status_message, status_coordinates) << name;
        });
    }
}

TEST_F(AllWindowsTest, TheProgramsEndCancelsWhateverIsOpen) {
    opt_cel_tolerance = 99;
    hotkeys[HOTKEY_UNDO][KEY_PRIMARY] = KEY_J;
    for (opened = 0; opened < windows.size(); ++opened) {
        returned = false;
        play_on(open_and_wait, [](User& user) -> Script {
            co_await user.wait(10);
            EXPECT_FALSE(returned) << windows[opened].name;
            if (const int defaults = slot_of(LABEL_KEYS_DEFAULTS); defaults != -1) co_await click(user, defaults);
            co_await user.press_left(100, 30);  // a hand that holds the button holds up nothing
            exit_requested = 1;
            co_await user.wait(4);
        });
        ::mouse_b = 0;
        EXPECT_TRUE(returned) << windows[opened].name;
    }
    EXPECT_EQ(opt_cel_tolerance, 99);
    EXPECT_EQ(hotkeys[HOTKEY_UNDO][KEY_PRIMARY], KEY_J);
}

TEST_F(AllWindowsTest, TheMiddleButtonPansTheFrameOnlyUnderWhatLetsIt) {
    for (opened = 0; opened < windows.size(); ++opened) {
        play_on(open_and_wait, [](User& user) -> Script {
            co_await user.wait(10);
            ::mouse_b = middle_button;
            co_await user.wait(4);
            // A Frame as small as the view isn't panned, which the status bar says.
            EXPECT_EQ(status_message == MESSAGE_QUICK_PAN_TOO_SMALL, (windows[opened].traits & PANS) != 0)
                << windows[opened].name << ", message " << status_message;
            ::mouse_b = 0;
            co_await user.wait(4);
            EXPECT_EQ(mouse_down, 0) << windows[opened].name;
            exit_requested = 1;
        });
    }
}

TEST_F(MenuTest, EscapeIsTheUsersWhereHeHasMappedIt) {
    hotkeys[HOTKEY_FRAME_NEXT][KEY_ALTERNATE] = KEY_ESC;
    play_on(options_window, [](User& user) -> Script {
        co_await user.wait(4);
        co_await user.hold_key(KEY_ESC);
        co_await user.release_key(KEY_ESC);
        EXPECT_EQ(menu_id, WINDOW_OPTIONS);
    });
}

TEST_F(MenuTest, AWaitingToolHasThePressesToItself) {
    take_tool(TOOL_BOX);
    play([](User& user) -> Script {
        const int x = middle_x(DRAWING_UNDO), y = middle_y(DRAWING_UNDO);
        co_await click_place(user, 20, 50);
        co_await user.move_to(x, y);
        EXPECT_EQ(hover, -1) << "no button lights up under it";
        co_await user.hold_key(KEY_ESC);
        co_await user.release_key(KEY_ESC);
        EXPECT_EQ(count_pixels(brush_color), 0) << "cancelled";
        co_await click_place(user, 20, 50);
        co_await click_place(user, x, y);
        const int sides = 2 * (x - 20) + 2 * (y - 50);
        EXPECT_EQ(count_pixels(brush_color), sides);
        co_await user.wait(10);
        EXPECT_EQ(count_pixels(brush_color), sides) << "nothing is left over for UNDO";
        co_await click_place(user, x, y);
        EXPECT_EQ(count_pixels(brush_color), 0) << "now it is UNDO's";
    });
}

TEST_F(MenuTest, AClearedScreenBringsBackTheMenuAsItWas) {
    play_on(
        [] {
            build_drawing_menu();
            hide_window();
            {
                const ClearedScreen cleared;
                EXPECT_EQ(gui::active[slot_window], 0);
                confirm(LABEL_DELETE_FRAME, LABEL_NONE);
                EXPECT_EQ(gui::active[slot_window], 0) << "nothing stands behind the question either";
            }
            EXPECT_EQ(slot_of(LABEL_UNDO), DRAWING_UNDO);
            EXPECT_EQ(gui::hidden[slot_window], 1);
            wait_loop();
        },
        [](User& user) -> Script {
            co_await user.wait(4);
            co_await click(user, slot_of(LABEL_CANCEL));
        });
}

}  // namespace
}  // namespace nubo
