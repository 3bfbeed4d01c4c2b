#include "windows/choice_window.h"

#include "gui/columns.h"
#include "gui/presses.h"
#include "state/mouse.h"
#include "windows/kit/choice_slots.h"
#include "windows/kit/option_widgets.h"
#include "windows/kit/run_window.h"
#include <algorithm>

namespace nubo {
namespace {

enum ChoiceSlot : int {
    CHOICE_LIST = slot_content,
    CHOICE_BUTTON_FIRST,  // six
    CHOICE_PANEL = CHOICE_BUTTON_FIRST + choice_slots,
    CHOICE_DESCRIPTION,
    CHOICE_OPTIONS_CAPTION,
    CHOICE_DESCRIPTION_CAPTION,
    CHOICE_SLOTS
};
static_assert(CHOICE_SLOTS == first_option_slot);

// clang-format off
constexpr std::array<ElementRow, CHOICE_SLOTS - slot_content> rows{{
    // slot                      type                   x   y    w   h  label       left          right        tooltip                  fill
    {CHOICE_LIST,                ELEMENT_LIST,          2, 12,  72, 65, LABEL_NONE, ACTION_NONE,  ACTION_NONE, MESSAGE_NONE,            &ui_background},
    {CHOICE_BUTTON_FIRST,        ELEMENT_BUTTON,       75,  2,  39,  9, LABEL_NONE, ACTION_CLICK, ACTION_NONE, MESSAGE_EDIT_TOOL_SLOT,  &ui_background},
    {CHOICE_BUTTON_FIRST + 1,    ELEMENT_BUTTON,      115,  2,  39,  9, LABEL_NONE, ACTION_CLICK, ACTION_NONE, MESSAGE_EDIT_TOOL_SLOT,  &ui_background},
    {CHOICE_BUTTON_FIRST + 2,    ELEMENT_BUTTON,      155,  2,  39,  9, LABEL_NONE, ACTION_CLICK, ACTION_NONE, MESSAGE_EDIT_TOOL_SLOT,  &ui_background},
    {CHOICE_BUTTON_FIRST + 3,    ELEMENT_BUTTON,       75, 12,  39,  9, LABEL_NONE, ACTION_CLICK, ACTION_NONE, MESSAGE_EDIT_TOOL_SLOT,  &ui_background},
    {CHOICE_BUTTON_FIRST + 4,    ELEMENT_BUTTON,      115, 12,  39,  9, LABEL_NONE, ACTION_CLICK, ACTION_NONE, MESSAGE_EDIT_TOOL_SLOT,  &ui_background},
    {CHOICE_BUTTON_FIRST + 5,    ELEMENT_BUTTON,      155, 12,  39,  9, LABEL_NONE, ACTION_CLICK, ACTION_NONE, MESSAGE_EDIT_TOOL_SLOT,  &ui_background},
    {CHOICE_PANEL,               ELEMENT_BOX,          75, 22, 119, 55, LABEL_NONE, ACTION_NONE,  ACTION_NONE, MESSAGE_NONE,            &ui_background},
    {CHOICE_DESCRIPTION,         ELEMENT_DESCRIPTION, 195,  2, 123, 75, LABEL_NONE, ACTION_NONE,  ACTION_NONE, MESSAGE_NONE,            &ui_background},
    {CHOICE_OPTIONS_CAPTION,     ELEMENT_BUTTON,       77, 24, 115,  9, LABEL_NONE, ACTION_NONE,  ACTION_NONE, MESSAGE_NONE,            &ui_border},
    {CHOICE_DESCRIPTION_CAPTION, ELEMENT_BUTTON,      197,  4, 119,  9, LABEL_NONE, ACTION_NONE,  ACTION_NONE, MESSAGE_NONE,            &ui_border},
}};
// clang-format on
static_assert(rows_in_order(rows, &ElementRow::slot, slot_content));

constexpr ListLayout list_layout{.rows = 9, .row_h = 7, .font = FONT_WIDE, .row_w = 59};
constexpr int list_slider_x = 62, list_wheel_step = 2;

int& choice_in(const ChoiceWindow& kind, int slot) { return (*kind.slots)[at(slot)]; }

/// Shows all that follows from the slot being edited, and makes it the one in use.
void edit_slot(const ChoiceWindow& kind, int slot) {
    *kind.active = slot;
    show_choice_slots(CHOICE_BUTTON_FIRST, kind.label_of_zero, *kind.slots, slot);
    description_of(CHOICE_DESCRIPTION) = kind.description_of_zero + choice_in(kind, slot);
    kind.build_options(choice_in(kind, slot));
}

WindowRow window_of(const ChoiceWindow& kind) {
    return {.id = kind.id,
            .place = POS_TOOL_AND_INK,
            .y = 161,
            .w = 319,
            .h = 78,
            .child_count = 30,  // room for the options
            .title = kind.title,
            .title_w = 72,
            .elements = rows,
            .key = kind.key,
            .outside = OUTSIDE_CANCELS,
            .gives_way = true};
}

void finish_window(const ChoiceWindow& kind, int slot) {
    gui::label[at(CHOICE_OPTIONS_CAPTION)] = kind.options_caption;
    gui::label[at(CHOICE_DESCRIPTION_CAPTION)] = kind.description_caption;
    GUI_set_list(CHOICE_LIST, list_layout, static_cast<Label>(kind.label_of_zero + kind.first_choice),
                 kind.choice_count);
    GUI_set_vertical_slider(CHOICE_LIST, list_slider_x, 0, kind.choice_count - list_layout.rows + 1, list_wheel_step);
    const int active = *kind.active;
    edit_slot(kind, slot);
    *kind.active = active;  // opening the window doesn't choose the slot yet
}

/// A press on a row puts its choice into the slot being edited.
void serve_list(const ChoiceWindow& kind, int slot) {
    const int row = pressed_row(CHOICE_LIST);
    if (row == -1) return;
    const int choice = gui::slider_value[at(CHOICE_LIST)] + kind.first_choice + row;
    choice_in(kind, slot) = std::clamp(choice, kind.first_choice, kind.first_choice + kind.choice_count - 1);
    edit_slot(kind, slot);
    wait_while_down(mouse_left);
}

/// The slot that is edited from now on.
int serve_buttons(const ChoiceWindow& kind, int slot) {
    for (int i = 0; i < choice_slots; ++i) {
        if (take_click(CHOICE_BUTTON_FIRST + i) <= 0) continue;
        slot = i;
        edit_slot(kind, slot);
    }
    return slot;
}

}  // namespace

void run_choice_window(const ChoiceWindow& kind, int slot) {
    const auto serve = [&] {
        serve_list(kind, slot);
        slot = serve_buttons(kind, slot);
        return kind.serve_options(choice_in(kind, slot)) ? WINDOW_DONE : WINDOW_STAYS;
    };
    if (run_window(window_of(kind), {.built = [&] { finish_window(kind, slot); }, .serve = serve}) == WINDOW_DONE)
        kind.run_option(choice_in(kind, slot));
}

}  // namespace nubo
