// The shape tools that need only the mouse, by the scripted user: from the press to the commit and to each way out.
#include "harness/user.h"
#include "paint/shape_in_hand.h"
#include "state/gui.h"
#include "state/messages.h"
#include "state/shape.h"
#include "state/windows.h"

#include <cmath>

namespace nubo {
namespace {

constexpr Color white = 0xffffff, black = 0;
constexpr int right_button = 2;

class ShapeToolTest : public EditorTest {
protected:
    static void take(BrushTool tool, int filled, int tip) {
        take_tool(tool);
        tool_option(tool, OPTION_FILLED) = filled;
        brush_tip = tip;
    }
    /// Nothing of a tool is left: no preview, no memory, no hidden menu.
    static void expect_at_rest(const char* what) {
        EXPECT_EQ(tool_preview, -1) << what;
        EXPECT_EQ(tool_preview_on, 0) << what;
        EXPECT_EQ(point_list.capacity(), 0u) << what;
        EXPECT_EQ(gui::hidden[0], 0) << what;
    }
};

User::Pause press_and_release(User& user, int x, int y) {
    constexpr int moved = 4, pressed = 8, released = 12;
    ::mouse_x = x * pixel_scale;
    ::mouse_y = y * pixel_scale;
    return user.wait_until([update = 0]() mutable {
        ++update;
        if (update == moved) ::mouse_b = 1;
        if (update == pressed) ::mouse_b = 0;
        return update >= released;
    });
}
User::Pause press_key(User& user, int code) {
    constexpr int released = 4, seen = 8;
    ::key[code] = 1;
    return user.wait_until([code, update = 0]() mutable {
        ++update;
        if (update == released) ::key[code] = 0;
        return update >= seen;
    });
}
User::Pause right_click(User& user, int x, int y) {
    constexpr int pressed = 4, seen = 10;
    ::mouse_x = x * pixel_scale;
    ::mouse_y = y * pixel_scale;
    ::mouse_b = right_button;
    return user.wait_until([update = 0]() mutable {
        if (++update == pressed) ::mouse_b = 0;
        return update >= seen;
    });
}

TEST_F(ShapeToolTest, ShiftHoldsDirectionsAndSquares) {
    // 11.3 degrees are next to 15: 101.8 pixels along it. 43.8 are next to 45.
    EXPECT_EQ(aligned_end({0, 0}, {100, 20}), (Point{98, 26}));
    EXPECT_EQ(aligned_end({5, 5}, {105, 8}), (Point{105, 5}));
    EXPECT_EQ(aligned_end({0, 0}, {-50, -48}), (Point{-49, -49}));
    EXPECT_EQ(aligned_end({7, 7}, {7, 7}), (Point{7, 7}));
    EXPECT_EQ(square_end({10, 10}, {3, 30}), (Point{-10, 30}));
}

TEST_F(ShapeToolTest, PolyTakesCornersBackHoldsThemAndCloses) {
    take(TOOL_POLY, 0, 0);
    play([](User& user) -> Script {
        co_await press_and_release(user, 10, 10);
        co_await press_and_release(user, 90, 60);
        for (int i = 0; i < 2; ++i) co_await user.tap_key(KEY_BACKSPACE);  // the first corner stays
        co_await user.hold_key(KEY_LSHIFT);
        co_await press_and_release(user, 20, 11);  // held level
        co_await user.release_key(KEY_LSHIFT);
        co_await press_and_release(user, 150, 150);
        EXPECT_NE(*pixels_at(overlay, 85, 80), transparent_color) << "the preview joins the corners";
        co_await user.tap_key(KEY_BACKSPACE);
        co_await press_and_release(user, 20, 18);
        co_await press_and_release(user, 10, 18);
        co_await right_click(user, 100, 100);
    });
    EXPECT_EQ(count_pixels(white), 2 * 11 + 2 * 7);
    EXPECT_EQ(undo_steps(), 1);
    expect_at_rest("POLY");
}

TEST_F(ShapeToolTest, ShiftCountsAtThePressNotAtTheRelease) {
    for (const BrushTool tool : {TOOL_OVAL, TOOL_LINE, TOOL_BOX, TOOL_CIRCLE}) {
        take(tool, 0, 0);
        play([](User& user) -> Script {
            co_await press_and_release(user, 30, 50);
            co_await user.hold_key(KEY_LSHIFT);
            co_await user.press_left(70, 54);
            co_await user.release_key(KEY_LSHIFT);
            co_await user.release_left();
            if (active_tool() == TOOL_OVAL) co_await press_and_release(user, 50, 54);
        });
        const Point level{70, 50}, square{70, 90};
        EXPECT_EQ(click_points[1], tool == TOOL_BOX ? square : level) << tool;
    }
}

TEST_F(ShapeToolTest, KeysChangeThePaintBetweenTheClicks) {
    take(TOOL_BOX, 0, 0);
    play([](User& user) -> Script {
        co_await press_and_release(user, 10, 10);
        co_await user.tap_key(KEY_INSERT);
        co_await press_key(user, KEY_9_PAD);
        EXPECT_EQ(menu_id, WINDOW_INK);
        co_await right_click(user, 100, 100);
        EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
        EXPECT_EQ(tool_preview, TOOL_BOX) << "not the tool's right press";
        co_await press_and_release(user, 20, 18);
    });
    EXPECT_EQ(count_pixels(white), 11 * 9) << "filled";
}

TEST_F(ShapeToolTest, OneCornerIsATipOrAPixel) {
    for (const int filled : {0, 1}) {
        take(TOOL_POLY, filled, 1);
        play([](User& user) -> Script {
            co_await press_and_release(user, 10, 10);
            co_await right_click(user, 100, 100);
        });
        EXPECT_EQ(count_pixels(white), filled != 0 ? 1 : 9);
        undo_last();
    }
}

TEST_F(ShapeToolTest, FreehandShapeClosesWhenTheButtonRises) {
    take(TOOL_FSHAPE, 1, 1);
    play([](User& user) -> Script {
        co_await user.press_left(10, 10);
        co_await user.drag_to(20, 10);
        co_await user.drag_to(20, 18);
        co_await user.drag_to(10, 18);
        EXPECT_EQ(point_list.size(), 7u) << "each jump repeats the point before it";
        co_await user.release_left();
    });
    EXPECT_EQ(count_pixels(white), 11 * 9);
    EXPECT_EQ(undo_steps(), 1);
    expect_at_rest("FSHAPE");
}

TEST_F(ShapeToolTest, FullShapesTakeNoMorePointsAndSaySo) {
    take(TOOL_POLY, 0, 0);
    play([](User& user) -> Script {
        co_await press_and_release(user, 10, 10);
        point_list.resize(list_capacity - 1, {10, 10});
        co_await press_and_release(user, 50, 50);
        EXPECT_EQ(point_list.size(), std::size_t{list_capacity - 1});
        EXPECT_EQ(status_message, MESSAGE_SHAPE_FULL);
        co_await right_click(user, 100, 100);
    });
    EXPECT_EQ(count_pixels(white), 1);
    take(TOOL_FSHAPE, 0, 0);
    play([](User& user) -> Script {
        co_await user.press_left(10, 10);
        point_list.resize(freehand_points_max, {10, 10});
        co_await user.drag_to(50, 50);
        EXPECT_EQ(tool_preview, -1) << "closed as if the button had risen";
        co_await user.release_left();
    });
    EXPECT_EQ(count_pixels(white), 1);
    take(TOOL_SPLINE, 0, 0);
    play([](User& user) -> Script {
        co_await press_and_release(user, 10, 10);
        point_count = spline_nodes_max + 2;
        co_await press_and_release(user, 50, 50);
        EXPECT_EQ(point_count, spline_nodes_max + 2);
        co_await press_key(user, KEY_ESC);
    });
}

TEST_F(ShapeToolTest, OvalIsSetByItsLengthAndTheMouse) {
    for (const int filled : {0, 1}) {
        take(TOOL_OVAL, filled, 0);
        play([](User& user) -> Script {
            co_await press_and_release(user, 30, 50);
            co_await press_and_release(user, 70, 50);
            co_await user.hold_key(KEY_LSHIFT);
            co_await user.move_to(90, 39);  // level is 90: 15.4 degrees above it
            co_await user.wait(2);
            EXPECT_STREQ(placing_text.data(), "AXES > |c2440 X 82, 105");
            co_await user.move_to(90, 36);  // 19.3, which are next to 15; 22.9 of (90, 33) to 30
            co_await user.wait(2);
            EXPECT_STREQ(placing_text.data(), "AXES > |c2440 X 84, 105");
            co_await user.move_to(90, 33);
            co_await user.wait(2);
            EXPECT_STREQ(placing_text.data(), "AXES > |c2440 X 86, 120");
            co_await user.release_key(KEY_LSHIFT);
            co_await user.move_to(50, 60);
            co_await right_click(user, 50, 60);
            EXPECT_NE(gui::hidden[0], 0) << "a right press shows what lies under the menu";
            co_await right_click(user, 50, 60);
            co_await press_and_release(user, 50, 60);
        });
        EXPECT_EQ(frame_pixel(70, 50), white);
        EXPECT_EQ(frame_pixel(71, 50), black);
        EXPECT_TRUE(frame_pixel(50, 60) == white || frame_pixel(49, 60) == white) << "as wide as the mouse is far";
        EXPECT_EQ(frame_pixel(50, 61), black);
        EXPECT_EQ(frame_pixel(50, 50), filled != 0 ? white : black);
        EXPECT_EQ(undo_steps(), 1);
        expect_at_rest("OVAL");
        undo_last();
    }
}

TEST_F(ShapeToolTest, SplineMovesNodesAndTakesThemBack) {
    take(TOOL_SPLINE, 0, 0);
    tool_option(TOOL_SPLINE, OPTION_CLOSED) = tool_option(TOOL_SPLINE, OPTION_CURVE) = 0;
    play([](User& user) -> Script {
        co_await press_and_release(user, 10, 10);
        co_await press_and_release(user, 110, 50);
        co_await press_and_release(user, 200, 150);
        co_await user.tap_key(KEY_BACKSPACE);
        co_await press_and_release(user, 13, 15);  // near the first: it follows the mouse
        co_await user.move_to(10, 80);
        co_await right_click(user, 10, 80);  // and is put back
        EXPECT_EQ(click_points[1], (Point{10, 10}));
        co_await press_and_release(user, 10, 10);
        co_await press_and_release(user, 10, 50);  // set down here
        co_await right_click(user, 150, 100);
    });
    EXPECT_EQ(count_pixels(white), 101) << "straight and level";
    EXPECT_TRUE(frame_pixel(10, 50) == white && frame_pixel(110, 50) == white);
    EXPECT_EQ(undo_steps(), 1);
    play([](User& user) -> Script {
        co_await press_and_release(user, 10, 10);
        co_await right_click(user, 150, 100);
    });
    EXPECT_EQ(undo_steps(), 1) << "a single node paints nothing";
    expect_at_rest("SPLINE");
}

TEST_F(ShapeToolTest, EscapeAndTheCloseButtonPaintNothing) {
    const auto leave_by = [](void (*leave)()) {
        static void (*leave_now)() = nullptr;
        leave_now = leave;
        play([](User& user) -> Script {
            if (active_tool() == TOOL_FSHAPE) {
                co_await user.press_left(30, 30);
                co_await user.drag_to(60, 30);
            } else {
                co_await press_and_release(user, 30, 30);
                co_await press_and_release(user, 60, 30);
            }
            EXPECT_EQ(tool_preview, active_tool());
            leave_now();
            co_await user.wait(20);
            ::key[KEY_ESC] = 0;
            co_await user.wait(10);
            EXPECT_EQ(tool_preview, -1) << active_tool();
            ::mouse_b = 0;
        });
        expect_at_rest("left");
        EXPECT_EQ(count_pixels(white), 0) << active_tool();
    };
    for (const BrushTool tool : {TOOL_POLY, TOOL_FSHAPE, TOOL_OVAL, TOOL_SPLINE}) {
        take(tool, 0, 1);
        leave_by([] { ::key[KEY_ESC] = 1; });
        leave_by([] { exit_requested = 1; });
    }
}

}  // namespace
}  // namespace nubo
