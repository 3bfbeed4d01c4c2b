// What all windows and waiting tools share: how they end, what comes back behind them, whom a press belongs to.
#include "windows/run_window.h"

#include "menus_kit.h"
#include "windows/about_box.h"
#include "windows/activity_menus.h"
#include "windows/cel_commands.h"
#include "windows/color_window.h"
#include "windows/confirm_box.h"
#include "windows/favorites_window.h"
#include "windows/gradient_nodes.h"
#include "windows/help_window.h"
#include "windows/hotkey_window.h"
#include "windows/ink_window.h"
#include "windows/options_window.h"
#include "windows/resize_window.h"
#include "windows/scheme_window.h"
#include "windows/screen_pick.h"
#include "windows/sheet_tool.h"
#include "windows/tip_window.h"
#include "windows/tool_window.h"
#include "windows/workspace_window.h"

namespace nubo {
namespace {

constexpr void (*openers[])() = {about_box,
                                 [] { frame_menu(82, 209); },
                                 [] { color_window(EDIT_BRUSH_COLOR); },
                                 [] { confirm(LABEL_DELETE_FRAME, LABEL_CANNOT_BE_UNDONE); },
                                 [] { confirm_box(LABEL_DELETE_FRAME, LABEL_NONE, true, true); },
                                 favorites_window,
                                 [] { reposition_gradient(INK_LGRAD); },
                                 help_window,
                                 hotkey_window,
                                 [] { ink_window(0); },
                                 options_window,
                                 scheme_window,
                                 pick_spectrum,
                                 tip_window,
                                 get_by_menu,
                                 paste_by_key,
                                 below_by_key,
                                 turn_cel,
                                 [] { turn_cel_about(50, 50); },
                                 stretch_cel,
                                 resize_window,
                                 quick_crop,
                                 sheet_tool,
                                 [] { tool_window(0); },
                                 workspace_window};
int opened = 0;
bool returned = false;

/// Opens one of them over the drawing menu and waits behind it.
void open_and_wait() {
    build_drawing_menu();
    openers[opened]();
    returned = true;
    wait_loop();
}

TEST_F(MenuTest, EscapeCancelsWhateverIsOpenAndTheDrawingMenuComesBack) {
    for (opened = 0; opened < static_cast<int>(std::size(openers)); ++opened) {
        returned = false;
        play_on(open_and_wait, [](User& user) -> Script {
            co_await user.hold_key(KEY_ESC);
            co_await user.wait(10);
            EXPECT_FALSE(returned) << opened << ": a key that was down before counts for nothing";
            co_await user.release_key(KEY_ESC);
            co_await user.hold_key(KEY_ESC);
            EXPECT_FALSE(returned) << opened << ": nobody else must hear the key";
            co_await user.release_key(KEY_ESC);
            EXPECT_TRUE(returned) << opened;
            EXPECT_EQ(slot_of(LABEL_UNDO), DRAWING_UNDO) << opened;
            EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU) << opened;
            EXPECT_EQ(status_message, status_coordinates) << opened;
        });
    }
}

TEST_F(MenuTest, TheProgramsEndCancelsWhateverIsOpen) {
    opt_cel_tolerance = 99;
    hotkeys[HOTKEY_UNDO][KEY_PRIMARY] = KEY_J;
    for (opened = 0; opened < static_cast<int>(std::size(openers)); ++opened) {
        returned = false;
        play_on(open_and_wait, [](User& user) -> Script {
            co_await user.wait(10);
            if (const int defaults = slot_of(LABEL_KEYS_DEFAULTS); defaults != -1) co_await click(user, defaults);
            co_await user.press_left(100, 30);  // a hand that holds the button holds up nothing
            exit_requested = 1;
            co_await user.wait(4);
        });
        ::mouse_b = 0;
        EXPECT_TRUE(returned) << opened;
    }
    EXPECT_EQ(opt_cel_tolerance, 99);
    EXPECT_EQ(hotkeys[HOTKEY_UNDO][KEY_PRIMARY], KEY_J);
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
