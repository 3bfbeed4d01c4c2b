#include "windows/kit/choice_slots.h"

#include "gui/elements.h"

namespace nubo {

void show_choice_slots(int first_button, Label first_label, const std::array<int, choice_slots>& choices, int active) {
    for (int i = 0; i < choice_slots; ++i) {
        gui::label[at(first_button + i)] = first_label + choices[at(i)];
        GUI_light_button(first_button + i, i == active);
    }
}

}  // namespace nubo
