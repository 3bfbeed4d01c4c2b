// Every window of the drawing menu, as it stands when it is opened: on the screen, readable, each element reachable.
#include "framework/outline_font.h"
#include "menus_kit.h"
#include "state/texts_labels.h"
#include "windows/shape_windows.h"
#include "windows/text_window.h"
#include "workspace/preferred_font.h"
#include <string>

namespace nubo {
namespace {

constexpr int letter_w = 6;

bool shows_label(int slot) {
    const int type = gui::type[at(slot)];
    return type == ELEMENT_TITLE || type == ELEMENT_CAPTION || type == ELEMENT_BUTTON || type == ELEMENT_BUTTON_DOWN ||
           type == ELEMENT_BUTTON_LIT || type == ELEMENT_BUTTON_LIT_DARK;
}

bool takes_press(int slot) {
    const std::size_t s = at(slot);
    return gui::left_action[s] != 0 || gui::right_action[s] != 0 || gui::has_slider[s] != 0 || gui::rows[s] != 0 ||
           gui::type[s] == ELEMENT_TIP_CELL;
}

bool overlap(int a, int b) {
    const std::size_t i = at(a), j = at(b);
    return gui::x[i] < gui::x[j] + gui::w[j] && gui::x[j] < gui::x[i] + gui::w[i] &&
           gui::y[i] < gui::y[j] + gui::h[j] && gui::y[j] < gui::y[i] + gui::h[i];
}

void check_element(int slot, const std::string& where) {
    const std::size_t s = at(slot);
    const int border = slot == slot_window ? 1 : 0;  // of a window, at x + w and y + h
    EXPECT_TRUE(gui::x[s] >= 0 && gui::x[s] + gui::w[s] + border <= view_w) << where;
    EXPECT_TRUE(gui::y[s] >= 0 && gui::y[s] + gui::h[s] + border <= view_h) << where;
    if (shows_label(slot)) {
        const auto text = label_text[at(gui::label[s])];
        EXPECT_NE(text, spare_text) << where;
        EXPECT_LE(static_cast<int>(text.size()) * letter_w, gui::w[s]) << where << ' ' << text;
    }
    if (!takes_press(slot)) return;
    EXPECT_LT(slot, gui::child_count[slot_window]) << where;  // else the window leaves it behind
    for (int other = slot + 1; other < gui_slots; ++other)
        EXPECT_FALSE(gui::active[at(other)] != 0 && takes_press(other) && overlap(slot, other))
            << where << " and " << other;
}

/// All elements of the window on screen.
void check_window(const char* name) {
    int count = 0;
    for (int slot = 0; slot < gui_slots; ++slot) {
        if (gui::active[at(slot)] == 0) continue;
        ++count;
        check_element(slot, std::string(name).append(1, ' ').append(std::to_string(slot)));
    }
    EXPECT_GT(count, slot_content) << name;
}

TEST_F(MenuTest, EveryElementIsOnTheScreenReadableAndReachable) {
    play_on(menu_loop, [](User& user) -> Script {
        check_window("drawing menu");
        for (const int button : {int{DRAWING_FRAME}, int{DRAWING_PIC}, int{DRAWING_CEL}, int{DRAWING_USER}}) {
            co_await click(user, button);
            check_window("activity menu");
            co_await click(user, slot_of(LABEL_BACK));
        }
        co_await click(user, DRAWING_TIP);
        check_window("tips");
        co_await right_click_outside(user);
        co_await click(user, DRAWING_BRUSH, right_button);
        check_window("colors");
        co_await right_click_outside(user);
        for (int tool = TOOL_BOX; tool < TOOL_COUNT; ++tool) {
            tool_slots[0] = tool;
            co_await click(user, DRAWING_TOOL_FIRST, right_button);
            check_window("tools");
            co_await right_click_outside(user);
        }
        for (int ink = INK_ADD; ink < INK_COUNT; ++ink) {
            ink_slots[0] = ink;
            co_await click(user, DRAWING_INK_FIRST, right_button);
            check_window("inks");
            co_await right_click_outside(user);
        }
        co_await click(user, DRAWING_FRAME);
        co_await click(user, slot_of(LABEL_RESIZE));
        check_window("resize");
        co_await click(user, slot_of(LABEL_CANCEL));
        co_await click(user, DRAWING_PIC);
        co_await click(user, slot_of(LABEL_PIC_SHEET));
        check_window("sprite sheet");
        co_await click(user, slot_of(LABEL_CANCEL));
        co_await click(user, DRAWING_USER);
        co_await click(user, slot_of(LABEL_WORKSPACE));
        check_window("workspace");
        co_await click(user, slot_of(LABEL_WORKSPACE_NEW));
        check_window("question");
        co_await click(user, slot_of(LABEL_CANCEL));
        check_window("drawing menu again");
    });
}

TEST_F(MenuTest, EveryElementOfTheToolsWindowsIsToo) {
    ASSERT_EQ(font_system_init(), 0);
    ASSERT_EQ(load_preferred_font(NUBO_FOLDER "/fonts/system.ttf"), 1);
    const auto loop = [] {
        build_drawing_menu();
        for (const BrushTool tool : {TOOL_RPOLY, TOOL_SSHAPE, TOOL_SPIRAL}) run_shape_window(tool);
        text_tool();
        wait_loop();
    };
    play_on(loop, [](User& user) -> Script {
        for (const char* name : {"R.POLY", "SSHAPE", "SPIRAL", "TEXT"}) {
            co_await user.wait(4);
            check_window(name);
            co_await click(user, slot_of(LABEL_CANCEL));
        }
    });
    font_system_exit();
}

}  // namespace
}  // namespace nubo
