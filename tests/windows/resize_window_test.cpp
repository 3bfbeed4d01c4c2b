// The windows that give the Frame another size, by typing and clicking, and the quick crop.
#include "menus_kit.h"
#include "windows/kit/number_field.h"
#include "windows/resize_window.h"
#include "windows/sheet_tool.h"

namespace nubo {
namespace {

constexpr Color red = 0xff0000;

class ResizeWindowTest : public MenuTest {
protected:
    ResizeWindowTest() { rectfill(current_frame, 0, 0, 9, 9, static_cast<int>(red)); }
    static int field_beside(Label caption) {
        const int slot = slot_of(caption);
        for (int other = 0; other < gui_slots; ++other)
            if (gui::type[at(other)] == ELEMENT_TEXT_FIELD && gui::y[at(other)] == gui::y[at(slot)]) return other;
        return -1;
    }
    static User::Pause tap(User& user, int code) {
        return user.wait_until([code, update = 0]() mutable {
            ::key[code] = ++update < 6 ? 1 : 0;
            return update >= 12;
        });
    }
};

TEST_F(ResizeWindowTest, TypedSizesAndTheAnchorMakeTheNewFrame) {
    play([](User& user) -> Script {
        co_await click(user, DRAWING_FRAME);
        co_await click(user, slot_of(LABEL_RESIZE));
        const int width = field_beside(LABEL_WIDTH), height = field_beside(LABEL_HEIGHT);
        EXPECT_EQ(key_focus, width);
        EXPECT_EQ(read_number(width), view_w);
        EXPECT_EQ(read_number(height), view_h);
        co_await tap(user, KEY_END);
        for (int i = 0; i < 3; ++i) co_await tap(user, KEY_BACKSPACE);
        co_await tap(user, KEY_1);
        co_await tap(user, KEY_ENTER);
        EXPECT_EQ(key_focus, height);
        co_await tap(user, KEY_ENTER);
        EXPECT_EQ(frame_w, view_w) << "1 is too narrow";
        EXPECT_EQ(menu_id, WINDOW_RESIZE);
        new_frame(12'000, 2);
        co_await user.wait(2);
        EXPECT_GE(gui::field_visible[at(width)], 5) << "12000 shows whole";
        set_number(width, 330);
        new_frame(20, 16, red);  // another Frame comes in
        co_await user.wait(2);
        EXPECT_EQ(read_number(width), 20);
        EXPECT_EQ(read_number(height), 16);
        set_number(width, 24);
        set_number(height, 20);
        co_await click(user, slot_of(LABEL_ANCHOR_CENTER));
        EXPECT_EQ(gui::type[at(slot_of(LABEL_ANCHOR_CENTER))], ELEMENT_BUTTON_DOWN);
        refuse_bitmap(0);
        co_await click(user, slot_of(LABEL_OKAY));
        EXPECT_EQ(menu_id, WINDOW_RESIZE) << "without memory the window stays";
        EXPECT_EQ(frame_w, 20);
        co_await click(user, slot_of(LABEL_OKAY));
        EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
        EXPECT_EQ(frame_w, 24);
        EXPECT_EQ(frame_pixel(1, 2), 0U);
        EXPECT_EQ(frame_pixel(2, 2), red);
        EXPECT_EQ(count_pixels(red), 20 * 16);
        co_await click(user, DRAWING_FRAME);
        co_await click(user, slot_of(LABEL_RESIZE));
        co_await click(user, slot_of(LABEL_SCALE_QUESTION));
        set_number(field_beside(LABEL_WIDTH), 48);
        set_number(field_beside(LABEL_HEIGHT), 40);
        co_await click(user, slot_of(LABEL_OKAY));
        EXPECT_EQ(count_pixels(red), 40 * 32);
    });
}

TEST_F(ResizeWindowTest, SizesTypedAtOnceTakeThePlaceOfThoseOffered) {
    play([](User& user) -> Script {
        co_await click(user, DRAWING_FRAME);
        co_await click(user, slot_of(LABEL_RESIZE));
        for (const int code : {KEY_1, KEY_6, KEY_TAB, KEY_1, KEY_2, KEY_ENTER}) co_await tap(user, code);
        EXPECT_EQ(frame_w, 16);
        EXPECT_EQ(frame_h, 12);
    });
}

TEST_F(ResizeWindowTest, QuickCropCutsBetweenTwoClicks) {
    play([](User& user) -> Script {
        for (const bool leaves : {true, false}) {
            co_await click(user, DRAWING_FRAME);
            co_await click(user, slot_of(LABEL_RESIZE));
            co_await click(user, slot_of(LABEL_QUICK_CROP));
            EXPECT_EQ(status_message, MESSAGE_CROP_FIRST);
            EXPECT_EQ(rectangle_preview.x, rectangle_unset) << "a cross before the first corner";
            co_await click_place(user, 14, 19);
            EXPECT_EQ(status_message, MESSAGE_CROP_SECOND);
            if (leaves)
                co_await click_place(user, 30, 30, right_button);
            else
                co_await click_place(user, 5, 5);
            EXPECT_EQ(frame_w, leaves ? view_w : 10);
            EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
        }
        EXPECT_EQ(frame_h, 15);
        EXPECT_EQ(count_pixels(red), 5 * 5);
    });
}

TEST_F(ResizeWindowTest, RestoreWithoutMemorySaysSoAndLeavesNoStep) {
    play([](User& user) -> Script {
        refuse_bitmap(0);
        co_await tap(user, KEY_R);
        refuse_bitmap(-1);
        EXPECT_EQ(status_message, MESSAGE_NO_MEMORY);
        EXPECT_EQ(undo_steps(), 0);
    });
}

TEST_F(ResizeWindowTest, SheetAsksForValidNumbersAndColors) {
    play([](User& user) -> Script {
        co_await click(user, DRAWING_PIC);
        co_await click(user, slot_of(LABEL_PIC_SHEET));
        const int sprite_w = field_beside(LABEL_SPRITE_W), rows = field_beside(LABEL_TOTAL_ROWS);
        EXPECT_EQ(key_focus, sprite_w);
        EXPECT_EQ(read_number(rows), 8);
        set_number(rows, 0);
        co_await click(user, slot_of(LABEL_OKAY));
        EXPECT_EQ(gui::invalid[at(rows)], 1);
        EXPECT_EQ(frame_w, view_w);
        EXPECT_EQ(menu_id, WINDOW_SPRITE_SHEET);
        set_number(rows, 2);
        set_number(sprite_w, 3);
        co_await user.wait(4);
        EXPECT_EQ(gui::invalid[at(rows)], 0);
        int swatch = slot_content;
        while (gui::type[at(swatch)] != ELEMENT_SWATCH) ++swatch;
        co_await click(user, swatch);
        EXPECT_EQ(menu_id, WINDOW_COLOR);
        co_await right_click_outside(user);
        EXPECT_EQ(menu_id, WINDOW_SPRITE_SHEET);
        EXPECT_EQ(read_number(field_beside(LABEL_SPRITE_W)), 3) << "what was typed is still there";
        for (int i = 0; i < 6; ++i) co_await tap(user, KEY_ENTER);
        EXPECT_EQ(key_focus, sprite_w) << "ENTER goes round";
        co_await click(user, slot_of(LABEL_OKAY));
        EXPECT_EQ(frame_w, 8 * 4 + 1);
        EXPECT_EQ(frame_h, 2 * 17 + 1);
        EXPECT_EQ(frame_pixel(0, 0), ui_black);
        EXPECT_EQ(frame_pixel(1, 1), ui_highlight_fore);
        EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
    });
}

}  // namespace
}  // namespace nubo
