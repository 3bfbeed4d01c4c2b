// The tool and ink windows: choosing what a slot holds, and the options of each tool and ink.
#include "gui/sliders.h"
#include "menus_kit.h"
#include "state/gui.h"
#include "windows/kit/option_widgets.h"
#include <span>

namespace nubo {
namespace {

constexpr int list_slot = 2, button_first = 3, description_slot = 10;
constexpr int list_row_h = 7;

/// The options that the user can set, by hand from what each tool and ink does. A largest value of 1 is a toggle.
struct OptionCase {
    int number, option, lowest, highest;
};
constexpr OptionCase tool_cases[] = {
    {TOOL_BOX, 0, 0, 1},     {TOOL_CIRCLE, 0, 0, 1}, {TOOL_OVAL, 0, 0, 1},   {TOOL_POLY, 0, 0, 1},
    {TOOL_RPOLY, 0, 0, 1},   {TOOL_FSHAPE, 0, 0, 1}, {TOOL_SSHAPE, 0, 0, 1}, {TOOL_DRIZ, 0, 0, 32},
    {TOOL_DRIZ, 1, 0, 32},   {TOOL_EDGE, 0, 0, 255}, {TOOL_FILL, 0, 0, 255}, {TOOL_SEP, 0, 0, 255},
    {TOOL_MOVE, 0, 0, 1},    {TOOL_SPLINE, 0, 0, 1}, {TOOL_SPLINE, 1, 0, 1}, {TOOL_SPLINE, 2, 0, 100},
    {TOOL_SPRAY, 0, 0, 255}, {TOOL_SPRAY, 1, 0, 31}, {TOOL_TEXT, 0, 0, 1},
};
constexpr OptionCase ink_cases[] = {
    {INK_ADD, 0, 0, 255},    {INK_BRIGHT, 0, 0, 255}, {INK_CLOSE, 0, 0, 255},  {INK_DARK, 0, 0, 255},
    {INK_EMBOSS, 0, 0, 255}, {INK_GLASS, 0, 0, 255},  {INK_GLOW, 0, 0, 255},   {INK_GLOW, 1, 0, 31},
    {INK_GRAIN, 0, 0, 255},  {INK_GRAIN, 1, 0, 100},  {INK_GRAY, 0, 0, 255},   {INK_HGRAD, 0, 0, 1},
    {INK_HGRAD, 2, 0, 255},  {INK_HOLLOW, 0, 0, 255}, {INK_JUMBLE, 0, 1, 5},   {INK_LGRAD, 0, 0, 1},
    {INK_LGRAD, 2, 0, 255},  {INK_PULL, 0, 0, 255},   {INK_RGRAD, 0, 0, 1},    {INK_RGRAD, 2, 0, 255},
    {INK_SCRAPE, 0, 0, 255}, {INK_SPARK, 0, 0, 255},  {INK_SOFTEN, 0, 0, 255}, {INK_SUB, 0, 0, 255},
    {INK_SWEEP, 0, 0, 255},  {INK_UNZAG, 0, 0, 100},  {INK_VGRAD, 0, 0, 1},    {INK_VGRAD, 2, 0, 255},
};

/// The control of an option on screen, or -1.
int control_of(const OptionCase& one, Word& option) {
    for (int slot = first_option_slot; slot < gui_slots; ++slot) {
        if (gui::active[at(slot)] == 0) continue;
        if (one.highest > 1 && gui::value_write[at(slot)] == &option) return slot;
        const bool toggle =
            gui::left_action[at(slot)] == ACTION_TOGGLE_TOOL || gui::left_action[at(slot)] == ACTION_TOGGLE_INK;
        if (one.highest == 1 && toggle && gui::toggle_option[at(slot)] == one.option) return slot;
    }
    return -1;
}

/// Where a press sets a slider to its first or last value.
int slider_end_x(int slot, bool last) {
    const int stop = last ? gui::slider_stops[at(slot)] - 1 : 0;
    return slider_places(slot).stop_at(stop) + (last ? 3 : 1);
}

/// The two windows that choose: where each begins in the drawing menu, and what it writes.
struct ChoiceKind {
    std::span<const OptionCase> cases;
    int first_button;
    std::array<int, choice_slots>& slots;
    decltype(tool_options)& options;
};

TEST_F(MenuTest, EachToolsAndInksOptionsGoFromEndToEnd) {
    play_on(menu_loop, [](User& user) -> Script {
        for (const ChoiceKind& kind : {ChoiceKind{tool_cases, DRAWING_TOOL_FIRST, tool_slots, tool_options},
                                       ChoiceKind{ink_cases, DRAWING_INK_FIRST, ink_slots, ink_options}})
            for (const OptionCase& one : kind.cases) {
                kind.slots[0] = one.number;
                Word& option = kind.options[at(one.number)][at(one.option)];
                co_await click(user, kind.first_button, right_button);
                const int slot = control_of(one, option);
                EXPECT_NE(slot, -1) << one.number << ' ' << one.option;
                for (const bool last : {true, false}) {
                    if (slot == -1) continue;
                    const int x = one.highest > 1 ? slider_end_x(slot, last) : middle_x(slot);
                    co_await click_place(user, x, middle_y(slot));
                    EXPECT_EQ(option, last ? one.highest : one.lowest) << one.number << ' ' << one.option;
                }
                co_await right_click_outside(user);
            }
    });
}

TEST_F(MenuTest, ARowFillsTheSlotAndAnotherButtonTakesTheEditing) {
    play_on(menu_loop, [](User& user) -> Script {
        co_await click(user, DRAWING_TOOL_FIRST + 1, right_button);
        EXPECT_EQ(active_tool_slot, 0);  // as long as nothing is chosen
        const int x = gui::x[list_slot] + 20, y = gui::y[list_slot] + 3;
        co_await click_place(user, x, y + 6 * list_row_h);
        EXPECT_EQ(tool_slots[1], TOOL_LINE);  // the seventh
        EXPECT_EQ(active_tool_slot, 1);
        EXPECT_EQ(gui::label[button_first + 1], TOOL_LINE);
        EXPECT_EQ(gui::label[description_slot], TOOL_LINE);
        const int knob_x = gui::x[list_slot] + 66, knob_y = slider_places(list_slot).stop_at(0) + 2;
        co_await user.press_left(knob_x, knob_y);
        co_await user.drag_to(knob_x - 20, knob_y);  // over the first row
        co_await user.release_left();
        EXPECT_EQ(tool_slots[1], TOOL_LINE);
        co_await user.move_to(x, y);
        for (int notch = 0; notch < 6; ++notch) co_await user.turn_wheel(-1);  // by 2 a notch, 9 at most
        co_await click_place(user, x, y + 8 * list_row_h);
        EXPECT_EQ(tool_slots[1], TOOL_TEXT);  // the last
        co_await click(user, button_first + 5);
        EXPECT_EQ(active_tool_slot, 5);
        EXPECT_EQ(gui::type[button_first + 5], ELEMENT_BUTTON_DOWN);
        EXPECT_EQ(gui::type[button_first + 1], ELEMENT_BUTTON);
        EXPECT_EQ(gui::label[description_slot], TOOL_FSHAPE);
        co_await right_click_outside(user);
        EXPECT_EQ(gui::label[DRAWING_TOOL_FIRST + 1], TOOL_TEXT);

        co_await click(user, DRAWING_INK_FIRST + 3, right_button);
        co_await click_place(user, x, y);
        EXPECT_EQ(ink_slots[3], INK_ADD);
        EXPECT_EQ(gui::label[description_slot], 30 + INK_ADD);
        co_await user.move_to(x, y);
        for (int notch = 0; notch < 10; ++notch) co_await user.turn_wheel(-1);
        co_await click_place(user, x, y + 8 * list_row_h);
        EXPECT_EQ(ink_slots[3], INK_XOR);
        co_await right_click_outside(user);
    });
}

TEST_F(MenuTest, PositionEndsTheInkWindow) {
    ink_slots[0] = INK_LGRAD;
    play_on(menu_loop, [](User& user) -> Script {
        co_await click(user, DRAWING_INK_FIRST, right_button);
        co_await click(user, slot_of(LABEL_POSITION));
        co_await right_click_outside(user);  // ends the placing, if it runs
        EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
        EXPECT_EQ(slot_of(LABEL_UNDO), DRAWING_UNDO);
    });
}

}  // namespace
}  // namespace nubo
