// Every window of the drawing menu, as it stands when it is opened: on the screen, readable, each element reachable.
#include "gui/shapes.h"
#include "harness/windows.h"
#include "menus_kit.h"
#include "state/texts_table.h"

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

/// An entry of a list lies wholly on it, and takes the press.
bool is_entry_of(int list, int slot) {
    const std::size_t l = at(list), s = at(slot);
    return gui::rows[l] != 0 && gui::x[s] >= gui::x[l] && gui::x[s] + gui::w[s] <= gui::x[l] + gui::w[l] &&
           gui::y[s] >= gui::y[l] && gui::y[s] + gui::h[s] <= gui::y[l] + gui::h[l];
}

void check_element(int slot, const std::string& where) {
    const std::size_t s = at(slot);
    const int border = slot == slot_window ? 1 : 0;  // of a window, at x + w and y + h
    EXPECT_TRUE(gui::x[s] >= 0 && gui::x[s] + gui::w[s] + border <= view_w) << where;
    EXPECT_TRUE(gui::y[s] >= 0 && gui::y[s] + gui::h[s] + border <= view_h) << where;
    const bool is_spare = text_of(slot).empty() && gui::type[s] == ELEMENT_BUTTON && !takes_press(slot);
    if (shows_label(slot) && !is_spare) {
        const auto text = text_of(slot);
        EXPECT_NE(text, spare_text) << where;
        EXPECT_LE(static_cast<int>(text.size()) * letter_w, gui::w[s]) << where << ' ' << text;
    }
    if (!takes_press(slot)) return;
    EXPECT_LT(slot, gui::child_count[slot_window]) << where;  // else the window leaves it behind
    for (int other = slot + 1; other < gui_slots; ++other)
        EXPECT_FALSE(gui::active[at(other)] != 0 && takes_press(other) && overlap(slot, other) &&
                     !is_entry_of(slot, other))
            << where << " and " << other;
}

/// All elements of the window on screen.
void check_window(const std::string& name) {
    int count = 0;
    for (int slot = 0; slot < gui_slots; ++slot) {
        if (gui::active[at(slot)] == 0) continue;
        ++count;
        check_element(slot, name + ' ' + std::to_string(slot));
    }
    EXPECT_GT(count, slot_content) << name;
}

std::vector<WindowOpener> windows = all_windows();
std::size_t opened = 0;

TEST_F(AllWindowsTest, EveryElementIsOnTheScreenReadableAndReachable) {
    windows.push_back({"DRAWING MENU", IS_WINDOW, wait_loop});
    const auto loop = [] {
        zoom = zoom_min;
        build_drawing_menu();
        windows[opened].open();
    };
    for (opened = 0; opened < windows.size(); ++opened)
        if ((windows[opened].traits & (IS_WINDOW | IS_BOX_OVER_OTHERS)) == IS_WINDOW)
            play_on(loop, [](User& user) -> Script {
                co_await user.wait(4);
                check_window(windows[opened].name);
                exit_requested = 1;
            });
}

}  // namespace
}  // namespace nubo
