// Sliders and lists under the mouse.
#include "gui/sliders.h"
#include "gui_kit.h"

namespace nubo {
namespace {

constexpr int level = 5, upright = 6;

class SliderTest : public GuiTest {
protected:
    /// Two sliders of the sizes of the ink window.
    static void build(int level_stops, int upright_stops) {
        GUI_add_slider(level, 100, 50, 115, level_stops);
        add(upright, ELEMENT_LIST, 10, 60, 72, 65);
        gui::left_action[upright] = ACTION_NONE;
        GUI_set_vertical_slider(upright, 62, 0, upright_stops, 2);
    }
};

TEST_F(SliderTest, StopsSpreadOverTheTrack) {
    build(31, 10);
    // Level: arrows of 7 at 100 + 2 and 100 + 115 - 3 - 7 + 1; stop 0 at 7 + 3 + 100, the knob of 5 before arrow 2.
    const SliderPlaces across = slider_places(level);
    EXPECT_EQ(across.arrow1_x, 102);
    EXPECT_EQ(across.arrow2_x, 206);
    EXPECT_EQ(across.arrow1_y, 51);
    EXPECT_EQ(across.stop_at(0), 110);
    EXPECT_EQ(across.stop_at(1), 113);  // (206 - 2 - 5 - 102 - 7) / 30 = 3 a stop
    EXPECT_EQ(across.stop_at(30), 200);
    // Upright: arrows at 60 + 2 and 60 + 65 - 3 - 7 + 1; stop 0 at 7 + 2 + 60.
    const SliderPlaces down = slider_places(upright);
    EXPECT_EQ(down.arrow1_y, 62);
    EXPECT_EQ(down.arrow2_y, 116);
    EXPECT_EQ(down.arrow1_x, 73);
    EXPECT_EQ(down.stop_at(0), 69);
    EXPECT_EQ(down.stop_at(9), 110);  // 69 + (116 + 1 - 7 - 62 - 7)
    EXPECT_EQ(down.origin, 70);       // 10 + 62 - 2
}

TEST_F(SliderTest, TheKnobFollowsTheMouseToBothEnds) {
    build(256, 10);
    mouse_at(150, 54, left_button);
    // Stops of 90 / 255 pixels: the last one before 148 - 110 = 38 pixels is stop 107, 107 * 90 / 255 = 37.76.
    EXPECT_EQ(gui::slider_value[level], 107);
    mouse_at(319, 200, left_button);  // a knob once picked up stays in the hand
    EXPECT_EQ(gui::slider_value[level], 255);
    mouse_at(0, 0, left_button);
    EXPECT_EQ(gui::slider_value[level], 0);
    mouse_at(0, 0);
    mouse_at(150, 54);
    EXPECT_EQ(gui::slider_value[level], 0);  // let go
    mouse_at(75, 100, left_button);
    mouse_at(75, 239, left_button);
    EXPECT_EQ(gui::slider_value[upright], 9);
    mouse_at(75, 239);
    mouse_at(150, 58);
    mouse_at(150, 58, left_button);  // the last row of the knob's nine
    EXPECT_EQ(gui::slider_value[level], 107);
}

TEST_F(SliderTest, AHeldArrowStepsAtOnceThenAfter22TicksThenEvery8) {
    build(256, 10);
    mouse_at(208, 54, left_button);
    EXPECT_EQ(gui::slider_value[level], 1);
    int steps = 0;
    for (int i = 1; i <= 22 + 2 * 8; ++i) {
        const int before = gui::slider_value[level];
        tick();
        if (gui::slider_value[level] == before) continue;
        EXPECT_EQ(i, 22 + 8 * steps) << "step " << steps;
        ++steps;
    }
    EXPECT_EQ(steps, 3);
    mouse_at(208, 54);
    tick(100);
    EXPECT_EQ(gui::slider_value[level], 4);
    for (int i = 0; i < 6; ++i) click_at(103, 54);
    EXPECT_EQ(gui::slider_value[level], 0);  // and no further
}

TEST_F(SliderTest, TheWheelTurnsWhatLiesUnderTheMouse) {
    build(33, 10);
    zoom = 1;
    const auto turn = [](int notches) {
        ::mouse_z = ::mouse_z + notches;
        tick();
    };
    mouse_at(150, 54);
    turn(1);
    EXPECT_EQ(gui::slider_value[level], 10);  // a level slider grows upward, by its own step
    for (int i = 0; i < 3; ++i) turn(1);
    EXPECT_EQ(gui::slider_value[level], 32);
    turn(-1);
    EXPECT_EQ(gui::slider_value[level], 22);
    mouse_at(30, 100);
    turn(-1);
    EXPECT_EQ(gui::slider_value[upright], 2);
    turn(1);
    turn(1);
    EXPECT_EQ(gui::slider_value[upright], 0);
    EXPECT_EQ(zoom, 1);  // over an element the frame doesn't zoom
}

TEST_F(SliderTest, TheRowUnderTheMouseIsOneThatHoldsALabel) {
    build(33, 10);
    GUI_set_list(upright, {.rows = 9, .row_h = 7, .row_w = 59}, tool_label(TOOL_BOX), 4);
    struct Case {
        int x, y, row;
    };
    // Rows of 7 from y 60, the last that holds the mouse counts: 67 is row 1's first. Rows end at 10 + 59 - 3.
    const Case cases[] = {{20, 61, 0}, {20, 66, 0}, {20, 67, 1},  {20, 84, 3},
                          {20, 89, 3}, {66, 61, 0}, {67, 61, -1}, {20, 90, -1}};
    for (const Case& one : cases) {
        mouse_at(one.x, one.y);
        EXPECT_EQ(gui::hover_row[upright], one.row) << one.x << ", " << one.y;
    }
    gui::row_w[upright] = -1;  // as far as to the slider, at 10 + 62
    for (const Case& one : {Case{69, 61, 0}, {70, 61, -1}}) {
        mouse_at(one.x, one.y);
        EXPECT_EQ(gui::hover_row[upright], one.row) << one.x;
    }
    gui::slider_value[upright] = 3;  // the fourth label has become the first row
    mouse_at(20, 61);
    EXPECT_EQ(gui::hover_row[upright], 0);
    mouse_at(20, 69);
    EXPECT_EQ(gui::hover_row[upright], -1);
    mouse_at(200, 200);
    EXPECT_EQ(gui::hover_row[upright], -1);
}

}  // namespace
}  // namespace nubo
