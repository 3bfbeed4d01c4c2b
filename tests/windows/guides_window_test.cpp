// GUIDES: what it sets and puts back, and what the guides show on the screen.
#include "menus_kit.h"
#include "state/guides.h"
#include "view/checker.h"
#include "windows/guides_window.h"

namespace nubo {
namespace {

/// On the screen at a place of the Frame.
constexpr int button_x(int column) { return 58 + 43 * column + 20; }
constexpr int row_y(int y) { return 123 + y + 4; }

class GuidesWindowTest : public MenuTest {
protected:
    static Color shown_pixel(int x, int y) { return *pixels_at(screen_buffer, x, y); }
};

TEST_F(GuidesWindowTest, SetsAtOnceWhatCancelPutsBack) {
    play_on(guides_window, [](User& user) -> Script {
        co_await click_place(user, button_x(3), row_y(12));  // BOTH
        co_await click_place(user, button_x(3), row_y(72));  // CHECKER
        co_await user.wait(1);
        EXPECT_TRUE(guides.symmetry == SYMMETRY_BOTH && guides.checker == 1);
        co_await click_place(user, button_x(0) + 10, row_y(22));
        for (int i = 0; i < 8; ++i) co_await user.tap_key(KEY_BACKSPACE);
        for (const int key : {KEY_1, KEY_5, KEY_STOP, KEY_5}) co_await user.tap_key(key);
        co_await user.wait(1);
        EXPECT_EQ(guides.axis_x, 31 + 1);
        co_await click_place(user, 58 + 2 * 64 + 30, row_y(22));  // CENTER
        co_await user.wait(1);
        EXPECT_EQ(guides.axis_x, axis_in_the_middle);
        co_await user.tap_key(KEY_ESC);
        co_await user.tap_key(KEY_ESC);
    });
    EXPECT_TRUE(guides.symmetry == SYMMETRY_OFF && guides.checker == 0 && guides.axis_x == axis_in_the_middle);
}

TEST_F(GuidesWindowTest, AnAxisIsDraggedByItsHandleAndEscPutsItBack) {
    constexpr int handle_y = 14;
    guides.symmetry = SYMMETRY_ACROSS;
    play_on(guides_window, [](User& user) -> Script {
        co_await user.press_left(160, handle_y);  // the middle of 320 pixels
        co_await user.drag_to(101, 60);
        EXPECT_EQ(guides.axis_x, 2 * 101);
        co_await user.release_left();
        co_await user.press_left(101, handle_y);
        co_await user.drag_to(40, handle_y);
        co_await user.tap_key(KEY_ESC);
        EXPECT_EQ(guides.axis_x, 2 * 101);
        co_await user.release_left();
        co_await user.press_left(220, 60);  // where there is none
        co_await user.release_left();
        EXPECT_EQ(guides.axis_x, 2 * 101);
        co_await click_place(user, 20, row_y(106));
    });
    EXPECT_EQ(guides.axis_x, 2 * 101);
}

TEST_F(GuidesWindowTest, GuidesShowInThePictureAndNeverInAPick) {
    constexpr Color paint = 0x204060;
    clear_frame_to(mask_color);
    *pixels_at(current_frame, 5, 3) = paint;
    note_touched({5, 3, 5, 3});
    opt_crosshair_strength = 0;
    gui_visible = 0;
    guides.checker = 1;
    for (const int level : {1, 3, 4}) {  // scales of 1, 4 and 8
        zoom = level;
        pan_x = pan_y = 0;
        const int scale = zoom_scale[static_cast<unsigned>(level)];
        guides.pixel_grid = 1;
        update_screen(UPDATE_STROKE);
        const auto inside = [=](int pixel) { return pixel * scale + scale / 2; };
        EXPECT_EQ(shown_pixel(inside(5), inside(3)), paint);
        EXPECT_EQ(shown_pixel(inside(20), inside(20)), checker_color(20, 20, scale));
        EXPECT_EQ(shown_pixel(5 * scale, inside(3)) != paint, scale == 8) << "lines from eight screen pixels on";
        picking_color = 1;
        update_screen(UPDATE_STROKE);
        picking_color = 0;
        EXPECT_EQ(shown_pixel(inside(20), inside(20)), mask_color);
        EXPECT_EQ(shown_pixel(5 * scale, inside(3)), paint);
    }
}

}  // namespace
}  // namespace nubo
