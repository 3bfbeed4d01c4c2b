// The keys that change the main option of the tool or the ink in use.
#include "gui/sliders.h"
#include "menus_kit.h"
#include "windows/option_slider.h"

namespace nubo {
namespace {

constexpr int slider = slot_content;
using OptionSliderTest = MenuTest;

TEST_F(OptionSliderTest, TheToolKeyFlipsWhatItTellsAndLeavesTheOthersAlone) {
    struct Case {
        BrushTool tool;
        Message told_off, told_on;  // MESSAGE_NONE: the key does nothing
    };
    constexpr Message hollow = MESSAGE_BRUSH_HOLLOW, filled = MESSAGE_BRUSH_FILLED, none = MESSAGE_NONE;
    for (const Case& one :
         {Case{TOOL_BOX, hollow, filled}, Case{TOOL_CIRCLE, hollow, filled}, Case{TOOL_OVAL, hollow, filled},
          Case{TOOL_POLY, hollow, filled}, Case{TOOL_FSHAPE, hollow, filled}, Case{TOOL_SSHAPE, hollow, filled},
          Case{TOOL_TEXT, MESSAGE_BRUSH_ROUGH, MESSAGE_BRUSH_ANTIALIASED}, Case{TOOL_RPOLY, none, none},
          Case{TOOL_SPLINE, none, none}, Case{TOOL_MOVE, none, none}, Case{TOOL_DRAW, none, none},
          Case{TOOL_LINE, none, none}, Case{TOOL_SPIRAL, none, none}}) {
        take_tool(one.tool);
        for (const bool on : {true, false}) {
            status_message = 0;
            toggle_tool_option();
            EXPECT_EQ(status_message, on ? one.told_on : one.told_off) << one.tool;
            EXPECT_EQ(tool_options[one.tool][0], on && one.told_on != none ? 1 : 0) << one.tool;
        }
    }
}

TEST_F(OptionSliderTest, TheSliderLastsAsLongAsTheKeyAndTheDrawingMenuComesBack) {
    play([](User& user) -> Script {
        struct Case {
            BrushTool tool;
            Ink ink;
            Label title;
            int highest;
        };
        for (const Case one : {Case{TOOL_DRIZ, INK_COUNT, LABEL_SET_TOOL_RADIUS, 32},
                               Case{TOOL_FILL, INK_COUNT, LABEL_SET_TOOL_TOLERANCE, 255},
                               Case{TOOL_SPRAY, INK_COUNT, LABEL_SET_TOOL_DENSITY, 32},
                               Case{TOOL_NONE, INK_GLOW, LABEL_SET_INK_STRENGTH, 255},
                               Case{TOOL_NONE, INK_HOLLOW, LABEL_SET_INK_TOLERANCE, 255},
                               Case{TOOL_NONE, INK_JUMBLE, LABEL_SET_INK_STRENGTH, 5},
                               Case{TOOL_NONE, INK_UNZAG, LABEL_SET_INK_STRENGTH, 100}}) {
            const bool is_tool = one.ink == INK_COUNT;
            if (is_tool) tool_slots[0] = one.tool;
            if (!is_tool) ink_slots[0] = one.ink;
            Word& option = is_tool ? tool_options[at(one.tool)][0] : ink_options[at(one.ink)][0];
            const int code = is_tool ? KEY_INSERT : KEY_PGUP;
            co_await user.move_to(100, 100);
            co_await user.hold_key(code);
            EXPECT_EQ(gui::label[slot_title], one.title);
            EXPECT_EQ(gui::y[slot_window], 100 - 16);
            const int end = slider_places(slider).stop_at(slider_last_stop(slider));
            co_await user.press_left(end + 3, middle_y(slider));
            EXPECT_EQ(option, one.highest) << one.title;
            co_await user.release_key(code);  // with the knob in the hand
            co_await user.release_left();
            EXPECT_EQ(slot_of(LABEL_UNDO), DRAWING_UNDO);
            EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
        }
        EXPECT_EQ(count_pixels(0), view_w * view_h) << "the press on the knob is no stroke";
    });
}

TEST_F(OptionSliderTest, AValueBeyondTheEndStaysUntilItIsMovedAndTheWindowOnTheScreen) {
    take_tool(TOOL_SPRAY);
    tool_option(TOOL_SPRAY, OPTION_SPRAY_DENSITY) = 100;
    play([](User& user) -> Script {
        toggle_window();  // hidden: it comes back
        co_await user.move_to(100, 239);
        co_await user.hold_key(KEY_INSERT);
        EXPECT_EQ(gui::y[slot_window], 239 - 16 - 5) << "22 rows, of which the lowest is the screen's";
        co_await user.release_key(KEY_INSERT);
        EXPECT_EQ(tool_option(TOOL_SPRAY, OPTION_SPRAY_DENSITY), 100);
        EXPECT_EQ(gui::hidden[DRAWING_UNDO], 0);
        co_await user.move_to(100, 4);
        co_await user.hold_key(KEY_INSERT);
        EXPECT_EQ(gui::y[slot_window], 0);
        co_await user.move_to(100, middle_y(slider));
        co_await user.turn_wheel(-1);
        EXPECT_EQ(tool_option(TOOL_SPRAY, OPTION_SPRAY_DENSITY), 32);
        co_await user.release_key(KEY_INSERT);
    });
}

TEST_F(OptionSliderTest, ASlotOrAToolBeyondTheTableIsLogged) {
    const ScratchFolder folder;
    UA_log_open();
    active_tool_slot = choice_slots;
    toggle_tool_option();
    EXPECT_NE(log_text().find("brush option tweak. Slot = 6"), std::string::npos);
    active_tool_slot = 0;
    tool_slots[0] = TOOL_COUNT;
    toggle_tool_option();
    EXPECT_NE(log_text().find("brush option tweak. Brush = 19"), std::string::npos);
    UA_log_close();
}

}  // namespace
}  // namespace nubo
