#pragma once
// The window that fills the six slots of tools or of inks: a list of all choices, the slots, the description and the
// options of the one being edited. What differs between the two is a `ChoiceWindow`.
#include "state/hotkeys.h"
#include "state/labels.h"
#include "state/tools.h"
#include "state/windows.h"
#include <array>

namespace nubo {

struct ChoiceWindow {
    Window id;
    Label title, options_caption, description_caption;
    Label label_of_zero;  // label of choice 0
    int first_choice;     // the first row of the list
    int choice_count;
    int description_of_zero;  // group of description lines of choice 0
    Hotkey key;               // opens the window, and closes it
    std::array<int, choice_slots>* slots;
    int* active;
    void (*build_options)(int choice);  // fills the slots from `first_option_slot` on
    bool (*serve_options)(int choice);  // true: an option ends the window
    void (*run_option)(int choice);     // what that option does then
};

/// Runs the window with `slot`, 0 to 5, as the one being edited. Main flow only.
void run_choice_window(const ChoiceWindow& kind, int slot);

}  // namespace nubo
