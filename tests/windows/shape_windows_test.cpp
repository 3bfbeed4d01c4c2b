// R.POLY, SSHAPE and SPIRAL, by the scripted user: the window, the drag of the shape, what is kept and what is left.
#include "menus_kit.h"
#include "state/shape.h"
#include "windows/shape_windows.h"

namespace nubo {
namespace {

constexpr Color white = 0xffffff;

class ShapeWindowsTest : public GuiTest {
protected:
    ShapeWindowsTest() {
        register_shape_windows();
        brush_tip = 0;
        polygon_values = {0, 20, 4};
        supershape_values = {0, 200, 200, 200, 4, 20};  // a circle
        spiral_values = {0, 100, 2, 0, 0};
    }
};

/// The middle of what is painted, in half pixels.
Point middle_of_paint() {
    Point low{9999, 9999}, high{};
    for (int y = 0; y < current_frame->h; ++y)
        for (int x = 0; x < current_frame->w; ++x) {
            if (*pixels_at(current_frame, x, y) != white) continue;
            low = {std::min(low.x, x), std::min(low.y, y)};
            high = {std::max(high.x, x), std::max(high.y, y)};
        }
    return {low.x + high.x, low.y + high.y};
}

TEST_F(ShapeWindowsTest, PolygonIsPaintedFromItsValuesAndKeepsThem) {
    take_tool(TOOL_RPOLY);
    play([](User& user) -> Script {
        co_await click_place(user, 100, 60);
        EXPECT_EQ(menu_id, WINDOW_POLYGON);
        EXPECT_NE(*pixels_at(overlay, 114, 60), transparent_color) << "the preview: a square of 29 by 29";
        gui::slider_value[at(slot_of(LABEL_ANGLE) + 1)] = 90;
        co_await user.wait(4);
        co_await click(user, slot_of(LABEL_OKAY));
        EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
    });
    EXPECT_EQ(count_pixels(white), 4 * 28) << "20 sin 45 = 14";
    EXPECT_EQ(polygon_values.angle, 90);
    EXPECT_EQ(undo_steps(), 1);
    play([](User& user) -> Script {
        co_await click_place(user, 200, 60);
        gui::slider_value[at(slot_of(LABEL_ANGLE) + 1)] = 45;
        co_await click(user, slot_of(LABEL_CANCEL));
    });
    EXPECT_EQ(polygon_values.angle, 90) << "CANCEL leaves it";
    EXPECT_EQ(undo_steps(), 1);
    EXPECT_EQ(tool_preview, -1);
}

TEST_F(ShapeWindowsTest, ADragCarriesTheShapeUntilTheNextPress) {
    for (const BrushTool tool : {TOOL_RPOLY, TOOL_SSHAPE, TOOL_SPIRAL}) {
        take_tool(tool);
        play([](User& user) -> Script {
            pan_x = 10;
            co_await click_place(user, 100, 60);
            co_await click(user, slot_of(LABEL_OKAY));
        });
        const Point at_first = middle_of_paint();
        EXPECT_NEAR(at_first.x / 2.0, 110, 3) << tool;  // the box of a spiral isn't quite about its middle
        undo_last();
        play([](User& user) -> Script {
            co_await click_place(user, 100, 60);
            co_await click_place(user, 104, 63);  // takes it up
            EXPECT_EQ(shape_box_shown, 1);
            co_await user.move_to(150, 90);
            co_await right_click_outside(user);  // puts it back
            EXPECT_EQ(shape_box_shown, 0);
            EXPECT_EQ(gui::hidden[slot_window], 0) << "not the window's";
            co_await click_place(user, 104, 63);
            co_await click_place(user, 144, 83);  // sets it down, 40 further right and 20 down
            co_await click(user, slot_of(LABEL_OKAY));
        });
        const Point middle = middle_of_paint();
        EXPECT_EQ(middle.x - at_first.x, 2 * 40) << tool;
        EXPECT_EQ(middle.y - at_first.y, 2 * 20) << tool;
        undo_last();
        pan_x = 0;
    }
}

TEST_F(ShapeWindowsTest, KeysChangeThePaintAndTheWindowComesBack) {
    take_tool(TOOL_SSHAPE);
    play([](User& user) -> Script {
        co_await click_place(user, 100, 60);
        gui::slider_value[at(slot_of(LABEL_MAGNITUDE) + 1)] = 10;
        co_await user.wait(4);
        co_await user.tap_key(KEY_INSERT);
        co_await user.hold_key(KEY_9_PAD);
        co_await user.release_key(KEY_9_PAD);
        EXPECT_EQ(menu_id, WINDOW_INK);
        co_await right_click_outside(user);
        EXPECT_EQ(menu_id, WINDOW_SUPERSHAPE);
        EXPECT_EQ(gui::slider_value[at(slot_of(LABEL_MAGNITUDE) + 1)], 10);
        co_await click(user, slot_of(LABEL_OKAY));
    });
    EXPECT_EQ(*pixels_at(current_frame, 100, 60), white) << "filled";
    EXPECT_NEAR(count_pixels(white), 3.14 * 10.5 * 10.5, 15);
}

TEST_F(ShapeWindowsTest, LeavingPaintsNothingAndKeepsNothing) {
    for (const BrushTool tool : {TOOL_RPOLY, TOOL_SSHAPE, TOOL_SPIRAL}) {
        take_tool(tool);
        play([](User& user) -> Script {
            co_await click_place(user, 100, 60);
            co_await right_click_outside(user);
            EXPECT_NE(gui::hidden[slot_window], 0) << "hidden, to see the Frame";
            EXPECT_NE(tool_preview, -1);
            co_await right_click_outside(user);
            gui::slider_value[at(slot_content + 1)] = 77;
            co_await user.hold_key(KEY_ESC);
            co_await user.release_key(KEY_ESC);
            EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
            co_await click_place(user, 100, 60);
            exit_requested = 1;
            co_await user.wait(10);
        });
        EXPECT_EQ(undo_steps(), 0) << tool;
        EXPECT_EQ(tool_preview, -1) << tool;
        EXPECT_EQ(point_list.capacity(), 0u) << tool;
    }
    EXPECT_TRUE(polygon_values.angle == 0 && supershape_values.angle == 0 && spiral_values.angle == 0);
}

TEST_F(ShapeWindowsTest, ValuesOfNoUseAreReadAsUsefulOnes) {
    polygon_values = {.angle = 5};
    supershape_values = {.angle = 5};
    spiral_values = {.angle = 5};
    for (const BrushTool tool : {TOOL_RPOLY, TOOL_SSHAPE, TOOL_SPIRAL}) {
        take_tool(tool);
        play([](User& user) -> Script {
            co_await click_place(user, 100, 60);
            co_await click(user, slot_of(LABEL_OKAY));
        });
    }
    EXPECT_TRUE(polygon_values.radius == 1 && polygon_values.sides == 3);
    EXPECT_TRUE(supershape_values.magnitude == 100 && supershape_values.arms == 1 && supershape_values.n1 == 0);
    EXPECT_TRUE(spiral_values.scale == 1 && spiral_values.wraps == 1);
}

TEST_F(ShapeWindowsTest, TheFirstShapeOfAWorkspaceCanBeSeen) {
    polygon_values = {};
    supershape_values = {};
    spiral_values = {};
    for (const BrushTool tool : {TOOL_RPOLY, TOOL_SSHAPE, TOOL_SPIRAL}) {
        take_tool(tool);
        play([](User& user) -> Script {
            co_await click_place(user, 100, 60);
            const auto [left, top, right, bottom] = shape_box;
            EXPECT_NEAR(right - left, 37, 6);
            EXPECT_NEAR(bottom - top, 37, 6);
            co_await click(user, slot_of(LABEL_CANCEL));
        });
    }
}

TEST_F(ShapeWindowsTest, PicksOnTheFrameLeaveTheOpenShapeInSight) {
    take_tool(TOOL_SSHAPE);
    play([](User& user) -> Script {
        co_await click_place(user, 100, 60);
        co_await user.hold_key(KEY_B);
        co_await user.release_key(KEY_B);
        EXPECT_EQ(menu_id, WINDOW_TIP);
        co_await click(user, slot_content, right_button);  // CUSTOM
        co_await user.move_to(200, 100);
        co_await user.wait(2);
        EXPECT_NE(*pixels_at(overlay, 200 - 9, 100), transparent_color) << "the area of the tip";
        EXPECT_NE(*pixels_at(overlay, 120, 60), transparent_color) << "the shape";
        co_await click_place(user, 200, 100);
        EXPECT_EQ(tool_preview_on, 1);
        co_await right_click_outside(user);
        EXPECT_EQ(menu_id, WINDOW_SUPERSHAPE);
        take_ink(INK_HGRAD);
        co_await user.hold_key(KEY_9_PAD);
        co_await user.release_key(KEY_9_PAD);
        co_await click(user, slot_of(LABEL_POSITION));
        EXPECT_EQ(tool_preview, nodes_preview + INK_HGRAD);
        co_await right_click_outside(user);
        EXPECT_EQ(menu_id, WINDOW_SUPERSHAPE);
        EXPECT_EQ(tool_preview_on, 1) << "also behind the nodes of a gradient";
    });
    EXPECT_EQ(tool_preview_on, 0);
    EXPECT_EQ(draw_over_frame, nullptr);
}

TEST_F(ShapeWindowsTest, ARadiusOfNoneIsToldOnceAndPaintsNothing) {
    const ScratchFolder scratch;
    UA_log_open();
    take_tool(TOOL_RPOLY);
    play([](User& user) -> Script {
        co_await click_place(user, 100, 60);
        gui::slider_value[at(slot_of(LABEL_RADIUS) + 1)] = 0;
        co_await user.wait(50);
        co_await click(user, slot_of(LABEL_OKAY));
    });
    EXPECT_EQ(undo_steps(), 0);
    const std::string log = log_text(), line = "Radius OOB in call to plot_polygon. Radius = 0";
    EXPECT_NE(log.find(line), std::string::npos);
    EXPECT_EQ(log.find(line), log.rfind(line));
}

TEST_F(ShapeWindowsTest, SpiralIsFlippedByItsButton) {
    take_tool(TOOL_SPIRAL);
    spiral_values = {0, 1000, 1, 0, 0};
    for (const int flip : {1, 0}) {
        play([](User& user) -> Script {
            co_await click_place(user, 100, 60);
            co_await click(user, slot_of(LABEL_FLIP));
            co_await click(user, slot_of(LABEL_OKAY));
        });
        EXPECT_EQ(spiral_values.flip, flip);
        // Held at 500, half a winding is 15.7 pixels: it goes to the left at first, flipped to the right.
        EXPECT_EQ(*pixels_at(current_frame, 100 + (flip != 0 ? 15 : -15), 60), white);
        undo_last();
    }
}

}  // namespace
}  // namespace nubo
