#include "windows/kit/option_widgets.h"

#include "gui/window.h"
#include "state/choices.h"
#include "state/gui.h"
#include "state/tools.h"
#include <algorithm>

namespace nubo {
namespace {

// ---- Where the controls stand: offsets from the window's corner ----------------------------------------------------

constexpr int panel_x = 77, panel_w = 115;   // of captions and sliders
constexpr int slider_below = 10;             // its caption
constexpr int pair_pitch = 58, pair_w = 57;  // two buttons share a row

/// A slider, or the buttons in a row, alone in the panel or above and below another.
enum PanelRow : int { ROW_SINGLE, ROW_UPPER, ROW_LOWER };
constexpr std::array<int, 3> caption_y{48, 35, 56}, button_y{52, 34};  // buttons are never the lower row

bool has_control(const ChoiceOption& option) { return option.kind != KIND_NONE && option.label != LABEL_NONE; }

/// The options of one tool or ink, and what its toggles tell `GUI_tick`.
struct Target {
    const ChoiceOptions& options;
    std::array<Word, option_slots>& values;
    Action toggle;
    int number;
};

// ---- Building ------------------------------------------------------------------------------------------------------

/// Fills two slots; the option takes a value in the slider's range at once.
void build_slider(const ChoiceOption& option, Word& value, PanelRow row, int slot) {
    const int y = caption_y[row];
    build_element({.slot = slot, .x = panel_x, .y = y, .w = panel_w, .label = option.label, .fill = &ui_border},
                  window_x(), window_y());
    build_element({.slot = slot + 1,
                   .type = ELEMENT_BOX,
                   .x = panel_x,
                   .y = y + slider_below,
                   .w = panel_w,
                   .tooltip = option.tooltip,
                   .range = {option.lowest, option.highest}},
                  window_x(), window_y());
    value = std::clamp<int>(value, option.lowest, option.highest);
    GUI_link_slider(slot + 1, &value);
}

/// A toggle, or the button that moves a gradient's nodes: alone in the middle of the panel, or number `index` of a
/// pair.
void build_button(const ChoiceOption& option, const Target& target, PanelRow row, int index, int slot) {
    const bool toggles = option.kind == KIND_TOGGLE, alone = row == ROW_SINGLE;
    const int w = alone ? option.toggle_w : pair_w;
    build_element({.slot = slot,
                   .type = toggles && target.values[at(option.slot)] != 0 ? ELEMENT_BUTTON_DOWN : ELEMENT_BUTTON,
                   .x = panel_x + (alone ? (panel_w - w) / 2 : index * pair_pitch),
                   .y = button_y[row],
                   .w = w,
                   .label = option.label,
                   .left = toggles ? target.toggle : ACTION_CLICK,
                   .tooltip = option.tooltip},
                  window_x(), window_y());
    if (!toggles) return;
    gui::toggle_number[at(slot)] = static_cast<std::int16_t>(target.number);
    gui::toggle_option[at(slot)] = static_cast<std::int16_t>(option.slot);
}

void build_controls(const Target& target) {
    for (int slot = first_option_slot; slot < gui_slots; ++slot) GUI_clear_element(slot);
    const auto count = std::ranges::count_if(target.options, has_control);
    int slot = first_option_slot, buttons = 0, sliders = 0;
    for (const ChoiceOption& option : target.options) {
        if (!has_control(option)) continue;
        if (option.kind == KIND_SLIDER) {
            const PanelRow below = buttons + sliders > 0 ? ROW_LOWER : ROW_UPPER;
            build_slider(option, target.values[at(option.slot)], count == 1 ? ROW_SINGLE : below, slot);
            slot += 2;
            ++sliders;
        } else {
            build_button(option, target, count == 1 ? ROW_SINGLE : ROW_UPPER, buttons++, slot++);
        }
    }
}

}  // namespace

void build_tool_options(int tool) {
    build_controls({tools[at(tool)].options, tool_options[at(tool)], ACTION_TOGGLE_TOOL, tool});
}

void build_ink_options(int ink) {
    build_controls({inks[at(ink)].options, ink_options[at(ink)], ACTION_TOGGLE_INK, ink});
}

}  // namespace nubo
