// The commands of the CEL menu and the quick crop, by a user who clicks, presses keys and leaves.
#include "cel_kit.h"
#include "state/guides.h"
#include "windows/cel/cel_commands.h"

namespace nubo {
namespace {

TEST_F(CelCommandTest, GetTakesTheAreaBetweenTwoClicksOrNothing) {
    play([](User& user) -> Script {
        co_await tap(user, KEY_ESC);
        EXPECT_EQ(slot_of(LABEL_UNDO), -1) << "the menu is out of the way";
        EXPECT_EQ(status_message, MESSAGE_GRAB_FIRST);
        co_await click_place(user, 43, 51);
        EXPECT_EQ(status_message, MESSAGE_GRAB_SECOND);
        co_await click_place(user, 40, 50);
        expect_at_rest();
        EXPECT_EQ(cel->w, 4);
        EXPECT_EQ(cel_mask->h, 2);
        EXPECT_EQ(cel_pixel(2, 0), green);
        EXPECT_EQ(cel_x, 40);
        EXPECT_EQ(cel_y, 50);
        for (const int way : {0, 1, 2}) {
            co_await click(user, DRAWING_CEL);
            co_await click(user, slot_of(LABEL_GET));
            if (way > 0) co_await click_place(user, 10, 10);
            if (way == 2)
                co_await tap(user, KEY_ESC);
            else
                co_await click_place(user, 90, 90, right_button);
            expect_at_rest();
            EXPECT_EQ(cel->w, 4);
        }
        ::key[KEY_LSHIFT] = 1;
        co_await click(user, DRAWING_CEL);
        co_await click(user, slot_of(LABEL_GET));
        co_await click_place(user, 60, 60);
        co_await click_place(user, 50, 57);
        ::key[KEY_LSHIFT] = 0;
        EXPECT_EQ(cel->w, 11) << "SHIFT makes it a square";
        EXPECT_EQ(cel->h, 11);
        EXPECT_EQ(cel_x, 50);
        EXPECT_EQ(cel_y, 50);
        // Over the drawing menu a corner is a corner.
        co_await tap(user, KEY_ESC);
        co_await click_place(user, 40, 50);
        const int x = 60, y = 213;
        co_await click_place(user, x, y);
        EXPECT_EQ(cel->h, y - 50 + 1);
        expect_at_rest();
    });
}

TEST_F(CelCommandTest, PasteFloatsUntilItIsAnchoredOrLeft) {
    grab_sprite();
    play([](User& user) -> Script {
        co_await tap(user, KEY_TILDE);
        EXPECT_EQ(status_message, MESSAGE_CEL_REPOSITION);
        EXPECT_NE(menu_shadow.x, -1);
        co_await click_place(user, 100, 100);  // beside it
        EXPECT_EQ(cel_place.x, 40);
        co_await click_place(user, 41, 51);
        co_await user.move_to(141, 91);
        EXPECT_EQ(cel_place.x, 140);
        EXPECT_EQ(frame_pixel(140, 90), black) << "nothing is painted yet";
        co_await click_place(user, 151, 101);
        EXPECT_EQ(cel_x, 150) << "put down";
        co_await tap(user, KEY_RIGHT);
        EXPECT_EQ(cel_place.x, 151);
        EXPECT_EQ(pan_x, 0) << "the arrows are the Cel's";
        ::key[KEY_LSHIFT] = 1;
        co_await tap(user, KEY_DOWN);
        ::key[KEY_LSHIFT] = 0;
        EXPECT_EQ(cel_place.y, 108);
        co_await tap(user, KEY_H);
        co_await tap(user, KEY_V);
        co_await click_place(user, 10, 10, right_button);
        expect_at_rest();
        EXPECT_EQ(menu_shadow.x, -1);
        EXPECT_EQ(frame_pixel(151, 109), green) << "flipped both ways";
        EXPECT_EQ(frame_pixel(153, 108), red);
        EXPECT_EQ(cel_pixel(2, 0), green) << "the Cel itself is not";
        EXPECT_EQ(cel_x, 151);
        EXPECT_EQ(undo_steps(), 1);
        co_await tap(user, KEY_U);
        EXPECT_EQ(count_pixels(red), 5);
        status_message = status_coordinates;  // which told of the step
        co_await tap(user, KEY_TILDE);
        co_await tap(user, KEY_ESC);
        expect_at_rest();
        EXPECT_EQ(undo_steps(), 0);
        EXPECT_EQ(count_pixels(red), 5);
    });
}

TEST_F(CelCommandTest, AHandThatDragsCarriesAndLetsGo) {
    grab_sprite();
    play([](User& user) -> Script {
        co_await tap(user, KEY_TILDE);
        co_await user.press_left(41, 51);
        co_await user.drag_to(43, 53);
        EXPECT_EQ(cel_place.x, 40) << "it only trembles";
        co_await user.release_left();
        co_await user.move_to(60, 60);
        EXPECT_EQ(cel_place.x, 57) << "picked up, as by a click, where it was let go";
        co_await click_place(user, 61, 61);
        co_await user.press_left(59, 59);
        co_await user.drag_to(141, 91);
        EXPECT_EQ(cel_place.x, 140);
        ::mouse_x = 151 * pixel_scale;  // it rises where no motion was heard
        ::mouse_b = 0;
        co_await user.wait(8);
        EXPECT_EQ(cel_x, 150);
        co_await user.move_to(20, 20);
        EXPECT_EQ(cel_place.x, 150) << "let go of";
        co_await user.press_left(151, 91);
        co_await user.drag_to(100, 100);
        co_await tap(user, KEY_ESC);
        co_await user.release_left();
        expect_at_rest();
        EXPECT_EQ(undo_steps(), 0);
    });
}

TEST_F(CelCommandTest, ATileIsLaidFromWhereTheCelLands) {
    grab_sprite();
    take_ink(INK_TILE);
    play([](User& user) -> Script {
        co_await tap(user, KEY_TILDE);
        co_await tap(user, KEY_RIGHT);
        refuse_bitmap(0);
        co_await click_place(user, 10, 10, right_button);
        EXPECT_EQ(cel_x, 40) << "it still floats";
        co_await click_place(user, 10, 10, right_button);
        EXPECT_EQ(frame_pixel(41, 50), red);
        EXPECT_EQ(frame_pixel(43, 50), green);
        EXPECT_EQ(cel_x, 41);
    });
}

TEST_F(CelCommandTest, AHiddenMenuStaysHiddenAndThePromptShows) {
    grab_sprite();
    play([](User& user) -> Script {
        co_await tap(user, KEY_BACKSPACE);
        EXPECT_EQ(gui::hidden[slot_window], 1);
        co_await tap(user, KEY_TILDE);
        EXPECT_EQ(gui::hidden[slot_window], 0) << "which the status bar goes by";
        co_await tap(user, KEY_ESC);
        EXPECT_EQ(gui::hidden[slot_window], 1);
        EXPECT_EQ(slot_of(LABEL_UNDO), DRAWING_UNDO);
    });
}

TEST_F(CelCommandTest, ACelOutOfViewIsReachedByItsBox) {
    grab_sprite();
    cel_x = -500, cel_y = 60;
    play([](User& user) -> Script {
        co_await tap(user, KEY_TILDE);
        co_await click(user, slot_of(LABEL_JUMP_TO_CEL));
        EXPECT_EQ(pan_x, -160) << "the pan limit";
        EXPECT_NE(slot_of(LABEL_JUMP_TO_CEL), -1) << "still out of view";
        co_await click(user, slot_of(LABEL_BRING_CEL_HERE));
        EXPECT_EQ(slot_of(LABEL_JUMP_TO_CEL), -1);
        EXPECT_EQ(cel_place.x, view_center_x - 1);
        EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
        co_await click_place(user, 10, 10, right_button);
        expect_at_rest();
    });
}

TEST_F(CelCommandTest, BelowPaintsOnlyTheMaskColor) {
    grab_sprite();
    cel_x = 41;
    mask_color = black;
    play([](User& user) -> Script {
        co_await click(user, DRAWING_CEL);
        co_await click(user, slot_of(LABEL_BELOW));
        co_await click_place(user, 10, 10, right_button);
        expect_at_rest();
        EXPECT_EQ(frame_pixel(42, 50), green) << "stays above";
        EXPECT_EQ(frame_pixel(43, 50), green);
        EXPECT_EQ(frame_pixel(43, 51), red);
        EXPECT_EQ(count_pixels(green), 2);
        EXPECT_EQ(undo_steps(), 1);
    });
}

TEST_F(CelCommandTest, TurnGoesByItsSliderAndItsButtons) {
    grab_sprite();
    cel_angle = 90;
    play([](User& user) -> Script {
        const auto open = [&user] {
            take_cel(copy_of_area({40, 50, 42, 51}));
            return click(user, slot_of(LABEL_TURN));
        };
        co_await click(user, DRAWING_CEL);
        co_await open();
        EXPECT_EQ(status_message, MESSAGE_TURN_CENTER);
        co_await click_place(user, 90, 90, right_button);
        expect_at_rest();
        co_await click(user, DRAWING_CEL);
        co_await open();
        co_await click_place(user, 100, 60);
        EXPECT_EQ(status_message, MESSAGE_TURN_ANGLE);
        EXPECT_EQ(menu_id, WINDOW_BOX);
        EXPECT_EQ(gui::x[high_slot], 163) << "right and below, far from the upper left quarter";
        EXPECT_EQ(gui::y[high_slot], 189);
        EXPECT_EQ(cel_place.x2, 63) << "90 * 0.711 = 63.99";
        co_await click(user, slot_of(LABEL_CANCEL));
        expect_at_rest();
        EXPECT_EQ(undo_steps(), 0);
        co_await click(user, DRAWING_CEL);
        co_await open();
        co_await click_place(user, 100, 60);
        gui::slider_value[high_slot + slot_content] = 100;
        co_await user.wait(4);
        ::key[KEY_LSHIFT] = 1;
        co_await user.wait(4);
        co_await tap(user, KEY_RIGHT);
        EXPECT_EQ(cel_place.x, 108);
        EXPECT_EQ(cel_place.x2, 71) << "SHIFT is the arrow's: 100 * 0.711 = 71.1";
        const int slider = high_slot + slot_content;
        co_await user.press_left(middle_x(slider), middle_y(slider));
        co_await user.wait(4);
        EXPECT_GT(cel_place.x2, 100) << "it follows the knob in the hand";
        co_await user.release_left();
        gui::slider_value[high_slot + slot_content] = 178;
        co_await user.wait(4);
        EXPECT_EQ(cel_place.x2, 127) << "in steps of 15: 180 * 0.711 = 127.99";
        co_await click(user, slot_of(LABEL_OKAY));
        ::key[KEY_LSHIFT] = 0;
        expect_at_rest();
        EXPECT_EQ(cel_angle, 180);
        EXPECT_EQ(undo_steps(), 1);
        EXPECT_GT(count_pixels(red), 5);
        co_await click(user, DRAWING_CEL);
        co_await open();
        co_await click_place(user, 200, 160);
        gui::slider_value[high_slot + slot_content] = 0;
        co_await user.wait(4);
        co_await click_place(user, 200, 160);  // picked up
        EXPECT_EQ(status_message, MESSAGE_TURN_NEW_CENTER);
        co_await user.move_to(220, 150);
        co_await click_place(user, 220, 150, right_button);
        expect_at_rest();
        EXPECT_EQ(frame_pixel(221, 149), green) << "about its middle, (1, 1)";
    });
}

TEST_F(CelCommandTest, QualityIsSwitchedWhileItStretchesAndWaitsForTheHandToRest) {
    clear_frame_to(black);
    fill(40, 50, 41, 50, red);  // twice enlarged, the black corner of the L would be cut
    fill(40, 51, 40, 51, red);
    take_cel(copy_of_area({40, 50, 42, 52}));
    opt_cel_masking = 0;
    play([](User& user) -> Script {
        co_await tap(user, KEY_TILDE);
        co_await tap(user, KEY_Q);
        co_await tap(user, KEY_ESC);
        EXPECT_EQ(guides.clean_cel, 0) << "a PASTE has no quality";
        co_await click(user, DRAWING_CEL);
        co_await click(user, slot_of(LABEL_STRETCH));
        co_await click_place(user, 100, 60);
        co_await tap(user, KEY_Q);
        EXPECT_EQ(guides.clean_cel, 1);
        co_await user.move_to(106, 66);
        const auto cut = [] { return *pixels_at(overlay, 102, 62) == red; };
        EXPECT_FALSE(cut()) << "the hand moves";
        co_await user.wait(4);
        EXPECT_TRUE(cut());
        co_await click_place(user, 106, 66);
        co_await click_place(user, 200, 200, right_button);
        EXPECT_EQ(frame_pixel(102, 62), red);
        EXPECT_EQ(frame_pixel(103, 63), black);
    });
}

TEST_F(CelCommandTest, StretchSetsItsSizeAndMoves) {
    grab_sprite();
    play([](User& user) -> Script {
        co_await click(user, DRAWING_CEL);
        co_await click(user, slot_of(LABEL_STRETCH));
        co_await click_place(user, 90, 90, right_button);
        expect_at_rest();
        co_await click(user, DRAWING_CEL);
        co_await click(user, slot_of(LABEL_STRETCH));
        co_await click_place(user, 100, 60);
        EXPECT_EQ(status_message, MESSAGE_STRETCH_SIZE);
        co_await click_place(user, 106, 60, right_button);
        expect_at_rest();
        EXPECT_EQ(undo_steps(), 0) << "no size was set";
        co_await click(user, DRAWING_CEL);
        co_await click(user, slot_of(LABEL_STRETCH));
        co_await click_place(user, 100, 60);
        co_await click_place(user, 103, 70);
        EXPECT_EQ(status_message, MESSAGE_STRETCH_ADJUST);
        co_await click_place(user, 130, 70);  // beside it: the size is free again
        ::key[KEY_LSHIFT] = 1;
        co_await click_place(user, 94, 59);
        ::key[KEY_LSHIFT] = 0;
        EXPECT_EQ(cel_place.x2, 94);
        EXPECT_EQ(cel_place.y2, 56) << "twice the width, twice the height";
        co_await click_place(user, 97, 58);  // picked up
        co_await user.move_to(107, 58);
        co_await click_place(user, 107, 58, right_button);
        expect_at_rest();
        EXPECT_EQ(count_pixels(green), 1 + 4);
        EXPECT_EQ(frame_pixel(104, 59), green) << "flipped both ways, 10 to the right of where it was";
        EXPECT_EQ(frame_pixel(109, 56), red);
        EXPECT_EQ(undo_steps(), 1);
    });
}

TEST_F(CelCommandTest, ClipTakesTheTightBoxAndOneColorAsks) {
    brush_color = blue;
    play([](User& user) -> Script {
        co_await tap(user, KEY_TAB);
        co_await user.wait(80);  // its outline stands for 0.6 seconds
        EXPECT_EQ(cel->w, 3);
        EXPECT_EQ(cel_pixel(2, 0), green);
        EXPECT_EQ(cel_x, 0) << "as it was";
        expect_at_rest();
        for (const Label answer : {LABEL_CANCEL, LABEL_OKAY}) {
            co_await click(user, DRAWING_CEL);
            co_await click(user, slot_of(LABEL_ONE_COLOR));
            co_await click(user, slot_of(answer));
            EXPECT_EQ(cel_pixel(0, 0), answer == LABEL_OKAY ? blue : red);
        }
        clear_frame_to(0);
        fill(7, 7, 7, 9, red);
        co_await tap(user, KEY_TAB);
        EXPECT_EQ(cel->w, 3) << "a column of one pixel is no Cel";
    });
}

TEST_F(CelCommandTest, WithoutMemoryItGoesOnFloatingOrDoesNotBegin) {
    take_tool(TOOL_MOVE);
    play([](User& user) -> Script {
        for (const int bitmaps_before : {0, 1, 2}) {  // the area, its second copy, the undo state
            co_await click_place(user, 40, 50);
            refuse_bitmap(bitmaps_before);
            co_await click_place(user, 42, 51);
            refuse_bitmap(-1);
            EXPECT_EQ(cel_place.mode, -1);
            EXPECT_EQ(frame_pixel(42, 50), green);
            EXPECT_GT(status_message, 0);
            co_await user.wait_until([] { return status_message == status_coordinates; });
        }
        co_await tap(user, KEY_TILDE);
        refuse_bitmap(0);
        co_await click_place(user, 10, 10, right_button);
        EXPECT_EQ(cel_place.mode, CEL_PASTE);
        co_await click_place(user, 10, 10, right_button);
        EXPECT_EQ(cel_place.mode, -1) << "now it could be anchored";
        EXPECT_EQ(undo_steps(), 1);
    });
}

}  // namespace
}  // namespace nubo
