#include "gui/actions.h"

#include "base/jobs.h"
#include "base/log.h"
#include "gui/columns.h"
#include "gui/hit_test.h"
#include "gui/text_field.h"
#include "state/tools.h"
#include "state/windows.h"

namespace nubo {
namespace {

void set_type(int slot, ElementType type) { gui::type[at(slot)] = static_cast<std::int16_t>(type); }

/// Swaps the button between up and down.
void flip(int slot) {
    const int type = gui::type[at(slot)];
    if (type == ELEMENT_BUTTON) set_type(slot, ELEMENT_BUTTON_DOWN);
    if (type == ELEMENT_BUTTON_DOWN) set_type(slot, ELEMENT_BUTTON);
}

/// A button that is up goes down and reports; one that is down stays and says nothing.
void push_in(int slot) {
    if (gui::type[at(slot)] != ELEMENT_BUTTON) return;
    set_type(slot, ELEMENT_BUTTON_DOWN);
    gui::click[at(slot)] = slot;
}

/// True when the numbers that a toggle holds name an option; both lines of a tool and of an ink speak of the same case.
bool names_option(int row, int option, const char* row_line, const char* option_line) {
    if (row < 0 || row >= option_rows) {
        UA_log(row_line, row);
        return false;
    }
    if (option < 0 || option >= option_slots) {
        UA_log(option_line, option);
        return false;
    }
    return true;
}

/// What is below 0 counts as off.
void toggle(Word& option) { option = option > 0 ? 0 : 1; }

void toggle_tool(int slot) {
    const int tool = gui::toggle_number[at(slot)], option = gui::toggle_option[at(slot)];
    if (!names_option(tool, option, "[ ERROR ] : Tool slot OOB in case 25. Tool = %d",
                      "[ ERROR ] : Option slot OOB in case 25. Slot = %d"))
        return;
    toggle(tool_options[at(tool)][at(option)]);
    if (press_in_element(slot)) flip(slot);
}

void toggle_ink(int slot) {
    const int ink = gui::toggle_number[at(slot)], option = gui::toggle_option[at(slot)];
    if (!names_option(ink, option, "[ ERROR ] : Ink slot OOB in case 25. Tool = %d",
                      "[ ERROR ] : Ink slot OOB in case 25. Slot = %d"))
        return;
    toggle(ink_options[at(ink)][at(option)]);
    if (press_in_element(slot)) flip(slot);
}

void light_radio(int slot) {
    set_type(slot, ELEMENT_RADIO_ON);
    Word* const value = gui::value_ptr[at(slot)];
    if (value != nullptr) *value = int{gui::radio_value[at(slot)]};
    for (int i = 0; i < radio_others; ++i) {
        const int other = radio_other_of(slot, i);
        if (other > slot_window && is_slot(other)) set_type(other, ELEMENT_RADIO_OFF);
    }
}

}  // namespace

void pick_up_window(int title, WindowHold hold) {
    const int window = title - slot_title;  // it stands in the slot before its title
    if (!is_slot(window)) return;
    const int drag_row = gui::drag_id[at(title)];
    push_to_job(JOB_WINDOW_DRAG, drag_row != 0 ? drag_row : static_cast<int>(menu_id), press_x - gui::x[at(window)],
                press_y - gui::y[at(window)], window, hold, 0, 0, -1, 0);
}

void run_action(int action, int slot) {
    const bool inside = press_in_element(slot);
    switch (static_cast<Action>(action)) {
    case ACTION_NONE:
    case ACTION_ROW: return;
    case ACTION_SPACE_VGA:
    case ACTION_SPACE_RGB:
    case ACTION_SPACE_HLS:
    case ACTION_SPACE_HSV: gui::click[at(slot)] = slot; return;
    case ACTION_CLICK_ONE: gui::click[at(slot)] = 1; return;
    case ACTION_FOCUS: GUI_set_key_focus(slot, false); return;
    case ACTION_TOGGLE_TOOL: toggle_tool(slot); return;
    case ACTION_TOGGLE_INK: toggle_ink(slot); return;
    case ACTION_CLICK_ONE_INSIDE:
        if (inside) gui::click[at(slot)] = 1;
        return;
    case ACTION_CLICK:
        if (inside) gui::click[at(slot)] = slot;
        return;
    case ACTION_CLICK_RIGHT:
        if (inside) gui::click[at(slot)] = click_right;
        return;
    case ACTION_FLIP:
        if (inside) flip(slot);
        return;
    case ACTION_DRAG:
        if (inside) pick_up_window(slot, HELD_BY_MOUSE);
        return;
    case ACTION_FLIP_CLICK:
        if (!inside) return;
        flip(slot);
        gui::click[at(slot)] = slot;
        return;
    case ACTION_PUSH_IN:
        if (inside) push_in(slot);
        return;
    case ACTION_RADIO:
        if (inside) light_radio(slot);
        return;
    }
}

}  // namespace nubo
