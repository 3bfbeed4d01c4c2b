#include "windows/options_window.h"

#include "gui/elements.h"
#include "harness/user.h"
#include "windows/favorites_window.h"

namespace nubo {
namespace {

class OptionsTest : public EditorTest {
protected:
    OptionsTest() { mouse_reversed = 0; }
};

/// The middle of a button or a row of the window, which opens at (0, 123).
constexpr Point okay{30, 123 + 110}, defaults{160, 123 + 110}, cancel{280, 123 + 110};
constexpr Point first_left{190, 123 + 18}, first_right{260, 123 + 18};  // ON and OFF of CEL - MASKING

#define CLICK(place)                                                                                                   \
    co_await user.move_to((place).x, (place).y);                                                                       \
    co_await user.press_left((place).x, (place).y);                                                                    \
    co_await user.release_left()

TEST_F(OptionsTest, ControlsActAtOnceAndOkayKeepsThem) {
    opt_cel_masking = 1;
    play_on(options_window, [](User& user) -> Script {
        CLICK(first_right);
        EXPECT_EQ(opt_cel_masking, 0);
        CLICK(okay);
    });
    EXPECT_EQ(opt_cel_masking, 0);
}

TEST_F(OptionsTest, DefaultsShowAtOnceAndCancelPutsAllBack) {
    opt_cel_masking = 0;
    opt_cel_tolerance = 99;
    opt_crosshair_strength = 7;
    play_on(options_window, [](User& user) -> Script {
        CLICK(defaults);
        EXPECT_EQ(opt_cel_masking, 1);
        EXPECT_EQ(opt_cel_tolerance, 3);
        EXPECT_EQ(opt_crosshair_strength, 60);
        CLICK(cancel);
    });
    EXPECT_EQ(opt_cel_masking, 0);
    EXPECT_EQ(opt_cel_tolerance, 99);
    EXPECT_EQ(opt_crosshair_strength, 7);
}

TEST_F(OptionsTest, AScrolledListHasTheControlsOfItsRows) {
    opt_undo_depth = 12;
    play_on(options_window, [](User& user) -> Script {
        co_await user.move_to(100, 123 + 50);
        for (int notch = 0; notch < 12; ++notch) co_await user.turn_wheel(-1);  // by two rows, to the last nine
        co_await user.wait(4);
        EXPECT_EQ(gui::tooltip[slot_content], option_message(user_options[19 + 3].label))
            << "of the row under the mouse";
        // The last row of the view is UNDO DEPTH, a slider: the wheel moves the list all the same.
        co_await user.move_to(200, 123 + 14 + 8 * 10 + 4);
        co_await user.turn_wheel(1);
        co_await user.wait(4);
        EXPECT_EQ(opt_undo_depth, 12);
        EXPECT_EQ(gui::slider_value[slot_content], 17);
        co_await user.move_to(100, 20);
        co_await user.press_right(100, 20);  // outside: as CANCEL
        co_await user.release_right();
    });
    EXPECT_EQ(opt_undo_depth, 12);
}

TEST_F(OptionsTest, AFavoriteBecomesTheBrushColorAndTheWheelTurnsThePage) {
    favorites[19] = 0x123456;  // the second of the second row
    favorites_page = 0;
    play_on(favorites_window, [](User& user) -> Script {
        constexpr Point second_row{66 + 11 + 5, 197 + 12 + 4}, first_row{66 + 11 + 5, 197 + 2 + 4};
        CLICK(second_row);
        EXPECT_EQ(brush_color, 0x123456U);
        co_await user.turn_wheel(-1);
        EXPECT_EQ(favorites_page, 1);
        brush_color = 0;
        CLICK(first_row);
        EXPECT_EQ(brush_color, 0x123456U);
        brush_color = 0x654321;
        co_await user.hold_key(KEY_LSHIFT);
        CLICK(first_row);
        co_await user.release_key(KEY_LSHIFT);
        EXPECT_EQ(favorites[19], 0x654321U) << "with SHIFT the slot takes the brush's colour";
        co_await user.move_to(100, 20);
        co_await user.press_right(100, 20);
        co_await user.release_right();
    });
    EXPECT_EQ(menu_id, 0);
}

}  // namespace
}  // namespace nubo
