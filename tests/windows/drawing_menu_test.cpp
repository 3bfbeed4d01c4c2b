// The drawing menu: what each button does, and where each window opens and ends.
#include "menus_kit.h"
#include "state/shown.h"

namespace nubo {
namespace {

constexpr Color red = 0xff0000, blue = 0x0000ff;

TEST_F(MenuTest, ColorsGoToTheBrush) {
    mask_color = 0x123456;
    for (std::size_t i = 0; i < color_slots.size(); ++i) color_slots[i] = static_cast<Color>(0x100 + i);
    spectrum_start = red;
    spectrum_end = blue;
    spectrum_fold = 0;
    play_on(menu_loop, [](User& user) -> Script {
        co_await click(user, DRAWING_MASK);
        EXPECT_EQ(brush_color, 0x123456U);
        for (int i = 0; i < color_slot_count; ++i) {
            co_await click(user, DRAWING_COLOR_FIRST + i);
            EXPECT_EQ(brush_color, static_cast<Color>(0x100 + i));
        }
        co_await click(user, DRAWING_BRUSH);
        EXPECT_EQ(brush_color, 0x109U);
        // Half way along the band from red to blue: 127.5 of each, truncated.
        co_await click_place(user, gui::x[DRAWING_SPECTRUM] + gui::w[DRAWING_SPECTRUM] / 2, middle_y(DRAWING_SPECTRUM));
        EXPECT_EQ(brush_color, 0x7f007fU);
    });
}

TEST_F(MenuTest, ALeftPressOnUndoGoesBackAndARightOneForward) {
    play_on(menu_loop, [](User& user) -> Script {
        for (const int x : {10, 20}) {
            EXPECT_TRUE(save_undo(false));
            *pixels_at(current_frame, x, 5) = red;
            note_all_touched();
        }
        for (const auto& [button, dots] : {std::pair{left_button, 1},
                                           {right_button, 2},
                                           {right_button, 2},
                                           {left_button, 1},
                                           {left_button, 0},
                                           {right_button, 1}}) {
            co_await click(user, DRAWING_UNDO, button);
            EXPECT_EQ(count_pixels(red), dots);
        }
    });
}

TEST_F(MenuTest, OneToolAndOneInkIsPressedDown) {
    play_on(menu_loop, [](User& user) -> Script {
        co_await click(user, DRAWING_TOOL_FIRST + 4);
        co_await click(user, DRAWING_INK_FIRST + 2);
        EXPECT_EQ(active_tool(), TOOL_POLY);
        EXPECT_EQ(active_ink(), INK_BRIGHT);
        for (int i = 0; i < choice_slots; ++i) {
            EXPECT_EQ(gui::type[at(DRAWING_TOOL_FIRST + i)], i == 4 ? ELEMENT_BUTTON_DOWN : ELEMENT_BUTTON) << i;
            EXPECT_EQ(gui::type[at(DRAWING_INK_FIRST + i)], i == 2 ? ELEMENT_BUTTON_DOWN : ELEMENT_BUTTON) << i;
        }
    });
}

TEST_F(MenuTest, EachWindowOpensByTheMouseAndIsLeftByARightPressOrItsKey) {
    struct Case {
        int slot, button;
        Window window;
        int key;
    };
    static constexpr Case cases[] = {
        {DRAWING_TOOL_FIRST + 5, right_button, WINDOW_TOOL, KEY_7_PAD},
        {DRAWING_INK_FIRST, right_button, WINDOW_INK, KEY_9_PAD},
        {DRAWING_TIP, left_button, WINDOW_TIP, KEY_B},
        {DRAWING_TIP, right_button, WINDOW_TIP, KEY_B},
    };
    play_on(menu_loop, [](User& user) -> Script {
        for (const Case& one : cases) {
            co_await click(user, one.slot, one.button);
            EXPECT_EQ(menu_id, one.window) << one.slot;
            co_await click_place(user, 160, 40);  // a left press beside it does nothing
            EXPECT_EQ(menu_id, one.window) << one.slot;
            co_await right_click_outside(user);
            EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU) << one.slot;
            co_await click(user, one.slot, one.button);
            co_await user.hold_key(one.key);
            EXPECT_EQ(menu_id, one.window) << one.slot;  // until the key is up
            co_await user.release_key(one.key);
            EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU) << one.slot;
            EXPECT_EQ(slot_of(LABEL_UNDO), DRAWING_UNDO);
        }
    });
    EXPECT_EQ(active_tool_slot, 0);  // nothing was chosen
}

TEST_F(MenuTest, TipsAreChosenAndTheCustomOneIsTakenFromTheFrame) {
    constexpr int cell_first = 3, custom = 2;
    clear_frame_to(0x3c6030);  // its components' mean is (60 + 96 + 48) / 3 = 68
    play_on(menu_loop, [](User& user) -> Script {
        co_await click(user, DRAWING_TIP);
        co_await click(user, cell_first + 35);
        EXPECT_EQ(brush_tip, 35);
        EXPECT_EQ(menu_id, WINDOW_TIP);
        co_await click(user, custom);
        EXPECT_EQ(brush_tip, tip_custom);
        co_await click(user, custom, right_button);
        EXPECT_EQ(tool_preview_on, 1);
        EXPECT_EQ(gui::border_style[custom], 2);
        EXPECT_EQ(*pixels_at(overlay, shown.pixel_x - 9, shown.pixel_y - 8) == transparent_color, false);
        EXPECT_EQ(*pixels_at(overlay, shown.pixel_x + 9, shown.pixel_y), transparent_color);
        co_await click_place(user, 0, 100);  // the left half of the area lies beside the Frame
        EXPECT_EQ(tool_preview_on, 0);
        EXPECT_EQ(gui::border_style[custom], 0);
        co_await right_click_outside(user);
    });
    EXPECT_EQ(*pixels_at(tip_sheet, 7, custom_tip_y), 0xdbdbdbU);
    EXPECT_EQ(*pixels_at(tip_sheet, 8, custom_tip_y + 13), 0x444444U);
    EXPECT_EQ(*pixels_at(tip_sheet, 16, custom_tip_y), transparent_color);
    EXPECT_EQ(*pixels_at(tip_sheet, 8, custom_tip_y + 14), transparent_color);
}

}  // namespace
}  // namespace nubo
