// Presses: which element takes them, and what each action leaves behind.
#include "gui/columns.h"
#include "gui_kit.h"
#include "state/mouse.h"

namespace nubo {
namespace {

TEST_F(GuiTest, ThePlaceOfTheLeftPressDecidesAndTheMouseOfTheRightOne) {
    add(5, ELEMENT_BUTTON, 100, 50, 39, 9);
    add(6, ELEMENT_BUTTON, 200, 50, 39, 9);
    gui::right_action[6] = ACTION_NONE;
    struct Case {
        const char* what;
        int x, y, release_x, release_y, button, slot, click;
    };
    // The element's last column and row, x + w - 1 and y + h - 1, take no press.
    const Case cases[] = {{"inside", 110, 52, 110, 52, left_button, 5, 5},
                          {"left, let go elsewhere", 110, 52, 10, 10, left_button, 5, 5},
                          {"from elsewhere onto it", 10, 10, 110, 52, left_button, 5, 0},
                          {"right", 110, 52, 110, 52, right_button, 5, click_right},
                          {"right, let go elsewhere", 110, 52, 10, 10, right_button, 5, 0},
                          {"first pixel", 100, 50, 100, 50, left_button, 5, 5},
                          {"last pixel", 137, 57, 137, 57, left_button, 5, 5},
                          {"right border", 138, 52, 138, 52, left_button, 5, 0},
                          {"lower border", 110, 58, 110, 58, left_button, 5, 0},
                          {"middle", 110, 52, 110, 52, middle_button, 5, 0},
                          {"right, no action for it", 210, 52, 210, 52, right_button, 6, 0}};
    for (const Case& one : cases) {
        click_through(one.x, one.y, one.release_x, one.release_y, one.button);
        EXPECT_EQ(take_click(one.slot), one.click) << one.what;
    }
}

TEST_F(GuiTest, WithButtonsReversedTheRightOneIsPrimary) {
    mouse_reversed = 1;
    add(5, ELEMENT_BUTTON, 100, 50, 39, 9);
    click_at(110, 52, right_button);
    EXPECT_EQ(take_click(5), 5);
    click_at(110, 52, left_button);
    EXPECT_EQ(take_click(5), click_right);
    mouse_at(110, 52, right_button);
    EXPECT_EQ(mouse_right, 1);  // the flags keep the physical buttons
    EXPECT_EQ(mouse_left, 0);
}

TEST_F(GuiTest, TheHighestShownSlotTakesThePress) {
    for (const int slot : {5, 9, 12}) add(slot, ELEMENT_BUTTON, 100, 50, 39, 9);
    gui::hidden[12] = 1;
    click_at(110, 52);
    EXPECT_EQ(hover, 9);
    EXPECT_EQ(take_click(9), 9);
    EXPECT_EQ(take_click(5) + take_click(12), 0);
    gui::hot[9] = 0;  // lies over a list: the list is under the mouse, the button takes the press
    click_at(110, 52);
    EXPECT_EQ(hover, 5);
    EXPECT_EQ(take_click(9), 9);
}

TEST_F(GuiTest, ButtonsFlipStayInAndReport) {
    add(5, ELEMENT_BUTTON, 100, 50, 39, 9);
    struct Case {
        Action action;
        int type_before, type_after, click;
    };
    const Case cases[] = {{ACTION_FLIP, ELEMENT_BUTTON, ELEMENT_BUTTON_DOWN, 0},
                          {ACTION_FLIP, ELEMENT_BUTTON_DOWN, ELEMENT_BUTTON, 0},
                          {ACTION_FLIP, ELEMENT_BOX, ELEMENT_BOX, 0},
                          {ACTION_FLIP_CLICK, ELEMENT_BUTTON, ELEMENT_BUTTON_DOWN, 5},
                          {ACTION_PUSH_IN, ELEMENT_BUTTON, ELEMENT_BUTTON_DOWN, 5},
                          {ACTION_PUSH_IN, ELEMENT_BUTTON_DOWN, ELEMENT_BUTTON_DOWN, 0},
                          {ACTION_CLICK_ONE_INSIDE, ELEMENT_BOX, ELEMENT_BOX, 1},
                          {ACTION_SPACE_HLS, ELEMENT_BUTTON, ELEMENT_BUTTON, 5}};
    for (const Case& one : cases) {
        gui::left_action[5] = static_cast<std::int16_t>(one.action);
        gui::type[5] = static_cast<std::int16_t>(one.type_before);
        click_at(110, 52);
        EXPECT_EQ(gui::type[5], one.type_after) << one.action << " from " << one.type_before;
        EXPECT_EQ(take_click(5), one.click) << one.action << " from " << one.type_before;
    }
}

TEST_F(GuiTest, TogglesFlipTheOptionThatTheyName) {
    const ScratchFolder folder;
    UA_log_open();
    add(5, ELEMENT_BUTTON, 100, 50, 39, 9);
    const auto press = [](Action action, int row, int option) {
        gui::left_action[5] = static_cast<std::int16_t>(action);
        gui::toggle_number[at(5)] = static_cast<std::int16_t>(row);
        gui::toggle_option[at(5)] = static_cast<std::int16_t>(option);
        click_at(110, 52);
    };
    press(ACTION_TOGGLE_TOOL, TOOL_SPLINE, OPTION_CLOSED);
    EXPECT_EQ(tool_option(TOOL_SPLINE, OPTION_CLOSED), 1);
    EXPECT_EQ(gui::type[5], ELEMENT_BUTTON_DOWN);
    press(ACTION_TOGGLE_TOOL, TOOL_SPLINE, OPTION_CLOSED);
    EXPECT_EQ(tool_option(TOOL_SPLINE, OPTION_CLOSED), 0);
    EXPECT_EQ(gui::type[5], ELEMENT_BUTTON);
    ink_option(INK_HGRAD, OPTION_REPEAT) = -1;
    press(ACTION_TOGGLE_INK, INK_HGRAD, OPTION_REPEAT);
    EXPECT_EQ(ink_option(INK_HGRAD, OPTION_REPEAT), 1);
    for (const auto& [action, row, option] : {std::tuple{ACTION_TOGGLE_TOOL, 50, 0},
                                              {ACTION_TOGGLE_TOOL, 1, 8},
                                              {ACTION_TOGGLE_INK, -1, 0},
                                              {ACTION_TOGGLE_INK, 1, 9}})
        press(action, row, option);
    UA_log_close();
    EXPECT_EQ(log_text(), "[ ERROR ] : Tool slot OOB in case 25. Tool = 50\n"
                          "[ ERROR ] : Option slot OOB in case 25. Slot = 8\n"
                          "[ ERROR ] : Ink slot OOB in case 25. Tool = -1\n"
                          "[ ERROR ] : Ink slot OOB in case 25. Slot = 9\n");
}

TEST_F(GuiTest, ARadioButtonStoresItsValueAndTurnsTheOthersOff) {
    static Word value = 0;
    for (const int slot : {5, 6, 7}) {
        add(slot, ELEMENT_RADIO_OFF, 20 * slot, 50, 19, 9);
        gui::left_action[at(slot)] = ACTION_RADIO;
        gui::radio_value[at(slot)] = static_cast<std::int16_t>(slot * 10);
        gui::value_ptr[at(slot)] = &value;
        for (int i = 0, other = 5; other <= 7; ++other)
            if (other != slot) radio_other_of(slot, i++) = other;
    }
    for (const int slot : {6, 7, 5}) {
        click_at(20 * slot + 3, 52);
        EXPECT_EQ(value, slot * 10);
        for (const int other : {5, 6, 7})
            EXPECT_EQ(gui::type[at(other)], other == slot ? ELEMENT_RADIO_ON : ELEMENT_RADIO_OFF) << slot;
    }
}

TEST_F(GuiTest, ATooltipComesAfterARestAndGoesWithTheMouse) {
    add(5, ELEMENT_BUTTON, 100, 50, 39, 9);
    add(6, ELEMENT_BUTTON, 150, 50, 39, 9);
    gui::tooltip[5] = MESSAGE_UNDO_REDO;
    gui::tooltip[6] = MESSAGE_PIC_MENU;
    mouse_at(110, 52);  // the tick that finds it, from which 50 are counted; the one after the 50th shows it
    tick(50);
    EXPECT_EQ(tooltip_element, -1);
    tick();
    EXPECT_EQ(tooltip_element, 5);
    tick(100);
    EXPECT_EQ(tooltip_element, 5);
    mouse_at(160, 52);
    EXPECT_EQ(tooltip_element, -1);
    tick(51);
    EXPECT_EQ(tooltip_element, 6);
    mouse_at(10, 10);
    EXPECT_EQ(tooltip_element, -1);
}

}  // namespace
}  // namespace nubo
