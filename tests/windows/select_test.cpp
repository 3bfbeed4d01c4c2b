// The hand that selects, with the window SELECT and without it.
#include "cel_kit.h"
#include "state/guides.h"
#include "state/messages.h"
#include "windows/cel/select.h"
#include "windows/cel/selection_in_hand.h"
#include "workspace/frame_store.h"

namespace nubo {
namespace {

User::Pause press_key(User& user, int code, int modifier = 0) {
    return user.wait_until([=, update = 0]() mutable {
        ++update;
        if (modifier != 0) ::key[modifier] = update < 10 ? 1 : 0;
        ::key[code] = update > 2 && update < 8 ? 1 : 0;
        return update >= 14;
    });
}

/// The sprite of 3 by 2 at (40, 50), red but for a green pixel at its upper right, and a red pixel far from it.
class SelectTest : public CelCommandTest {
protected:
    SelectTest() {
        fill(100, 90, 100, 90, red);
        take_cel(make_bitmap(5, 5, blue));
    }
    static std::vector<Color> cel_pixels() {
        std::vector<Color> pixels;
        for (int y = 0; y < cel_mask->h; ++y)
            for (int x = 0; x < cel_mask->w; ++x) pixels.push_back(cel_pixel(x, y));
        return pixels;
    }
    static inline const Color hole = transparent_color;
};

TEST_F(SelectTest, LassoTakesADrawnShapeAndOneOfCorners) {
    play([](User& user) -> Script {
        co_await press_key(user, KEY_L);
        co_await user.press_left(41, 50);
        for (const Point to : {Point{46, 50}, {46, 56}, {41, 56}, {41, 51}}) co_await user.drag_to(to.x, to.y);
        co_await user.release_left();
        co_await click_place(user, 160, 100, right_button);
        expect_at_rest();
        EXPECT_EQ(cel->w, 6);
        EXPECT_EQ(cel->h, 7);
        EXPECT_EQ(cel_pixel(1, 0), green);
        EXPECT_EQ(cel_pixel(0, 1), red);
        EXPECT_TRUE(cel_x == 41 && cel_y == 50);
        EXPECT_EQ(guides.cel_shape, CEL_IS_CUT_OUT);
        // A triangle, whose last corner was set wrong at first.
        co_await press_key(user, KEY_L);
        for (const Point corner : {Point{40, 50}, {42, 50}, {90, 90}}) co_await click_place(user, corner.x, corner.y);
        co_await press_key(user, KEY_BACKSPACE);
        co_await click_place(user, 40, 52);
        co_await click_place(user, 10, 10, right_button);
        EXPECT_EQ(cel->w, 6) << "closed, but not yet taken";
        co_await press_key(user, KEY_ENTER);
        expect_at_rest();
        EXPECT_EQ(cel_pixels(), (std::vector<Color>{red, red, green, red, red, hole, 0, hole, hole}));
        EXPECT_EQ(undo_steps(), 0);
    });
}

TEST_F(SelectTest, ShiftAddsCtrlTakesAwayAndEscDrops) {
    play([](User& user) -> Script {
        co_await user.hold_key(KEY_LSHIFT);
        co_await user.hold_key(KEY_L);
        ::key[KEY_LSHIFT] = 0;  // before the other key
        co_await user.wait(4);
        co_await user.release_key(KEY_L);
        co_await click_place(user, 40, 50);
        ::key[KEY_LSHIFT] = 1;
        co_await click_place(user, 42, 50);
        ::key[KEY_LSHIFT] = 0;
        co_await press_key(user, KEY_ENTER);
        EXPECT_EQ(cel_pixels(), (std::vector<Color>{red, red, green, red, red, red}));
        co_await press_key(user, KEY_L, KEY_LSHIFT);
        co_await click_place(user, 40, 50);
        co_await click_place(user, 42, 50);  // in place of the first
        co_await click_place(user, 40, 50);
        ::key[KEY_LCONTROL] = 1;
        co_await click_place(user, 42, 50);  // isn't in it
        ::key[KEY_LCONTROL] = 0;
        co_await click_place(user, 10, 10, right_button);
        EXPECT_EQ(cel_pixels(), (std::vector<Color>{red, red, hole, red, red, red}));
        co_await press_key(user, KEY_L, KEY_LSHIFT);
        co_await click_place(user, 42, 50);
        co_await press_key(user, KEY_ESC);
        expect_at_rest();
        EXPECT_EQ(cel->w, 3);
    });
}

TEST_F(SelectTest, MoveCarriesJustTheShape) {
    take_tool(TOOL_MOVE);
    mask_color = white;
    play([](User& user) -> Script {
        co_await press_key(user, KEY_L, KEY_LSHIFT);
        co_await click_place(user, 40, 50);
        co_await press_key(user, KEY_M);
        EXPECT_EQ(area_floats, 1);
        EXPECT_EQ(guides.symmetry, SYMMETRY_OFF) << "the key's other meaning";
        EXPECT_EQ(frame_pixel(40, 50), white);
        EXPECT_EQ(frame_pixel(42, 50), green) << "not of the shape";
        co_await tap(user, KEY_DOWN);
        co_await click_place(user, 10, 10, right_button);
        expect_at_rest();
        EXPECT_EQ(frame_pixel(41, 51), red);
        EXPECT_EQ(frame_pixel(42, 51), white);
        EXPECT_EQ(frame_pixel(42, 52), red);
        EXPECT_EQ(frame_pixel(40, 50), white);
        EXPECT_EQ(frame_pixel(42, 50), green);
        EXPECT_EQ(cel_pixel(4, 4), blue) << "the Cel is the old one";
        EXPECT_EQ(guides.cel_shape, CEL_IS_WHOLE);
        co_await tap(user, KEY_U);
        EXPECT_EQ(frame_pixel(40, 50), red);
        EXPECT_EQ(count_pixels(white), 0);
    });
}

TEST_F(SelectTest, CornersSnapToTheCornersOfTheirCells) {
    guides.snap = 1;
    play([](User& user) -> Script {
        co_await press_key(user, KEY_L);
        for (const Point corner : {Point{34, 50}, {44, 49}, {45, 62}, {33, 61}})
            co_await click_place(user, corner.x, corner.y);
        co_await click_place(user, 10, 10, right_button);
        co_await press_key(user, KEY_ENTER);
        EXPECT_TRUE(cel->w == 16 && cel->h == 16 && cel_x == 32 && cel_y == 48);
    });
}

class SelectOnFramesTest : public ActivityTest {};

TEST_F(SelectOnFramesTest, AShapeOfAnotherFrameIsLetGo) {
    insert_frames(0, 1, true);
    ASSERT_TRUE(fetch_frame(0, 1));
    new_frame(20, 20, green);
    ASSERT_TRUE(fetch_frame(1, 0));
    play([](User& user) -> Script {
        co_await press_key(user, KEY_L, KEY_LSHIFT);
        co_await click_place(user, 40, 50);
        co_await press_key(user, KEY_PGDN);
        EXPECT_EQ(frame_w, 20);
        co_await press_key(user, KEY_M);
        EXPECT_EQ(area_floats, 0);
        co_await press_key(user, KEY_ESC);
        EXPECT_EQ(draw_over_frame, nullptr);
    });
}

TEST_F(SelectTest, TheWindowTellsThePixelsAndHidesWhileTheHandDraws) {
    play_on(select_window, [](User& user) -> Script {
        co_await user.wait(4);
        co_await click(user, slot_of_text("WAND"));
        co_await click(user, slot_of_text("CLEAN"));
        co_await click_place(user, 40, 50);
        EXPECT_NE(slot_of_text("5 PIXELS IN HAND"), -1);
        co_await click(user, slot_of_text("GLOBAL"));
        co_await click_place(user, 40, 50);
        EXPECT_NE(slot_of_text("6 PIXELS IN HAND"), -1);
        co_await click(user, slot_of_text("LASSO"));
        co_await user.press_left(40, 51);
        EXPECT_EQ(gui::hidden[0], 1);
        co_await user.drag_to(80, 51);
        EXPECT_EQ(gui::hidden[0], 1);
        co_await user.release_left();
        EXPECT_EQ(gui::hidden[0], 0);
        EXPECT_NE(slot_of_text("41 PIXELS IN HAND"), -1);
        co_await click(user, slot_of(LABEL_CANCEL));
    });
    EXPECT_EQ(guides.clean_cel, 0) << "as before";
    EXPECT_EQ(cel->w, 5);
    wand_is_global = false;
}

}  // namespace
}  // namespace nubo
