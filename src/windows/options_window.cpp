#include "windows/options_window.h"

#include "gui/columns.h"
#include "paint/undo.h"
#include "state/flow.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "windows/kit/run_window.h"
#include <algorithm>
#include <array>

namespace nubo {
namespace {

// ---- Values ---------------------------------------------------------------------------------------------------------

using OptionValues = std::array<int, user_options.size()>;

OptionValues read_options() {
    OptionValues values{};
    for (std::size_t i = 0; i < user_options.size(); ++i)
        if (user_options[i].word != nullptr) values[i] = *user_options[i].word;
    return values;
}

void write_options(const OptionValues& values) {
    for (std::size_t i = 0; i < user_options.size(); ++i)
        if (user_options[i].word != nullptr) *user_options[i].word = values[i];
}

// ---- The window ----------------------------------------------------------------------------------------------------

constexpr int rows_shown = 9, choices_max = option_choices_max;
enum OptionSlot : int {
    OPTION_LIST = slot_content,
    OPTION_ITEM_CAPTION,
    OPTION_SETTINGS_CAPTION,
    OPTION_OKAY,
    OPTION_DEFAULTS,
    OPTION_CANCEL,
    OPTION_FIXED_SLOTS,
    OPTION_CONTROL_FIRST = OPTION_FIXED_SLOTS,  // for each row shown as many slots as a group may have
    OPTION_WINDOW_SLOTS = OPTION_CONTROL_FIRST + rows_shown * choices_max
};

// clang-format off
constexpr std::array<ElementRow, OPTION_FIXED_SLOTS - slot_content> rows{{
    // slot                   type                  x    y    w   h  label                left          right        tooltip       fill
    {OPTION_LIST,             ELEMENT_LIST,         2,  12, 316, 93, LABEL_NONE,          ACTION_NONE},
    {OPTION_ITEM_CAPTION,     ELEMENT_BUTTON,      54,   2, 107,  9, LABEL_ITEM,          ACTION_NONE,  ACTION_NONE, MESSAGE_NONE, &ui_border},
    {OPTION_SETTINGS_CAPTION, ELEMENT_BUTTON,     162,   2, 156,  9, LABEL_SETTINGS,      ACTION_NONE,  ACTION_NONE, MESSAGE_NONE, &ui_border},
    {OPTION_OKAY,             ELEMENT_BUTTON_LIT,   2, 106,  64,  9, LABEL_KEYS_OKAY,     ACTION_CLICK},
    {OPTION_DEFAULTS,         ELEMENT_BUTTON_LIT, 128, 106,  64,  9, LABEL_KEYS_DEFAULTS, ACTION_CLICK},
    {OPTION_CANCEL,           ELEMENT_BUTTON_LIT, 254, 106,  64,  9, LABEL_KEYS_CANCEL,   ACTION_CLICK},
}};
// clang-format on
static_assert(rows_in_order(rows, &ElementRow::slot, slot_content));

constexpr WindowRow window{.id = WINDOW_OPTIONS,
                           .place = POS_HOTKEYS_AND_OPTIONS,
                           .x = 0,
                           .y = 123,
                           .w = 319,
                           .h = 116,
                           .child_count = OPTION_WINDOW_SLOTS,
                           .title = LABEL_OPTIONS,
                           .title_w = 51,
                           .elements = rows,
                           .okay = OPTION_OKAY,
                           .cancel = OPTION_CANCEL,
                           .outside = OUTSIDE_CANCELS};
constexpr ListLayout list_layout{.rows = rows_shown, .row_h = 10, .font = FONT_WIDE, .row_w = -1, .row_top = 1};
constexpr int list_slider_x = 306, list_stops = static_cast<int>(user_options.size()) - rows_shown + 1, list_wheel = 2;

// ---- The controls of the rows in view ------------------------------------------------------------------------------

constexpr int control_x = 162, control_y = 14, row_h = 10, slider_w = 141;

struct GroupColumns {
    std::array<int, choices_max> x, w;
};
constexpr GroupColumns two_buttons{{162, 233, 0}, {70, 70, 0}}, three_buttons{{162, 209, 256}, {46, 46, 47}};

int control_slot(int row, int choice) { return OPTION_CONTROL_FIRST + row * choices_max + choice; }

void build_radio(int row, const UserOption& option) {
    const int count = option.choices[2].label == LABEL_NONE ? 2 : 3;
    const GroupColumns& columns = count == 2 ? two_buttons : three_buttons;
    for (int i = 0; i < count; ++i) {
        const OptionChoice& choice = option.choices[at(i)];
        const int slot = control_slot(row, i);
        build_element({.slot = slot,
                       .type = *option.word == choice.value ? ELEMENT_RADIO_ON : ELEMENT_RADIO_OFF,
                       .x = columns.x[at(i)],
                       .y = control_y + row * row_h,
                       .w = columns.w[at(i)],
                       .label = choice.label,
                       .left = ACTION_RADIO,
                       .tooltip = option_message(option.label)},
                      window_x(), window_y());
        gui::radio_value[at(slot)] = static_cast<std::int16_t>(choice.value);
        gui::value_ptr[at(slot)] = option.word;
        for (int other = 0; other < choices_max; ++other)
            radio_other_of(slot, other) = other < count && other != i ? control_slot(row, other) : 0;
    }
}

void build_slider(int row, const UserOption& option) {
    const int slot = control_slot(row, 0);
    build_element({.slot = slot,
                   .type = ELEMENT_BOX,
                   .x = control_x,
                   .y = control_y + row * row_h,
                   .w = slider_w,
                   .tooltip = option_message(option.label),
                   .range = {option.lowest, option.highest, option.step},
                   .text = option.label == LABEL_OPTION_UNDO_DEPTH ? "ALL" : nullptr},
                  window_x(), window_y());
    GUI_link_slider(slot, option.word);
}

/// Only the rows in view have controls; they are built anew when the list has moved.
void build_controls(int first) {
    for (int slot = OPTION_CONTROL_FIRST; slot < OPTION_WINDOW_SLOTS; ++slot) GUI_clear_element(slot);
    for (int row = 0; row < rows_shown; ++row) {
        const UserOption& option = user_options[at(std::min<int>(first + row, user_options.size() - 1))];
        if (option.word == nullptr) continue;
        if (option.has_choices())
            build_radio(row, option);
        else
            build_slider(row, option);
    }
}

/// What is said of a row of the list, -1 for none, that begins with the option `first`.
Message message_of_row(int first, int row) {
    const std::size_t index = at(first + row);
    const bool is_option = row >= 0 && index < user_options.size() && user_options[index].word != nullptr;
    return is_option ? option_message(user_options[index].label) : MESSAGE_NONE;
}

void finish_window() {
    GUI_set_list(OPTION_LIST, list_layout, LABEL_OPTION_CEL_MASKING, static_cast<int>(user_options.size()));
    GUI_set_vertical_slider(OPTION_LIST, list_slider_x, 0, list_stops, list_wheel);
}

}  // namespace

void set_option_defaults() {
    for (const UserOption& option : user_options)
        if (option.word != nullptr) *option.word = option.defaults;
}

void options_window() {
    const OptionValues before = read_options();
    const int depth = opt_undo_depth;
    constexpr int none_built = -1;
    int built = none_built;
    const auto show = [&] {
        const int first = gui::slider_value[OPTION_LIST];
        if (first != built) build_controls(built = first);
        gui::tooltip[OPTION_LIST] = static_cast<std::int16_t>(message_of_row(first, gui::hover_row[OPTION_LIST]));
    };
    const auto serve = [&] {
        if (take_click(OPTION_DEFAULTS) > 0) {
            set_option_defaults();
            built = none_built;
        }
        return WINDOW_STAYS;
    };
    const WindowPass end = run_window(window, {.built = finish_window, .show = show, .serve = serve});
    if (end == WINDOW_CANCELLED) write_options(before);
    if (opt_undo_depth != depth) renew_undo_reach();
}

}  // namespace nubo
