#pragma once
// The activity menus FRAME, PIC, CEL and USER. Each takes the place of the drawing menu, which stays dimly visible
// behind it, until one of its items is pressed. Main flow only.
#include "state/labels.h"
#include "state/messages.h"
#include "state/windows.h"
#include <span>

namespace nubo {

// ---- The menus -----------------------------------------------------------------------------------------------------

/// Opens the menu at the button that called it, whose corner is (x, y), and runs the command that the user chooses, on
/// a cleared screen; then the drawing menu comes back.
void frame_menu(int x, int y);
void pic_menu(int x, int y);
void cel_menu(int x, int y);
void user_menu(int x, int y);

// ---- What a menu is made of ----------------------------------------------------------------------------------------

struct MenuItem {
    Label label = LABEL_NONE;
    Message tooltip = MESSAGE_NONE;
    void (*run)() = nullptr;
    const char* text = nullptr;  // where no label has it
};
inline constexpr MenuItem empty_row{};  // stays free, and can become an item: nothing else moves

/// A column of buttons with BACK at its foot, which covers the button that has called it; one whose button stands too
/// high on the screen for that opens downward from it.
struct ActivityMenu {
    Window id = WINDOW_FRAME_MENU;
    Label title = LABEL_NONE;
    int left_of_button = 10;  // the menu's corner from the button's
    int downward_within = 0;  // rows more in which it opens downward already
    std::span<const MenuItem> items{};
};

/// Runs a menu from its opening to the drawing menu's return.
void run_activity_menu(const ActivityMenu& menu, int x, int y);

}  // namespace nubo
