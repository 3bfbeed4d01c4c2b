#include "windows/option_slider.h"

#include "base/keys.h"
#include "base/log.h"
#include "state/mouse.h"
#include "state/run.h"
#include "state/tools.h"
#include "windows/colors/gradient_nodes.h"
#include "windows/kit/run_window.h"
#include "workspace/notices.h"
#include <algorithm>

namespace nubo {
namespace {

constexpr int window_w = 319, window_h = 22, element_w = 316, above_mouse = 16;
enum OptionSliderSlot : int { OPTION_SLIDER = slot_content, OPTION_SLIDER_SLOTS };

/// The option that the key changes; null if there is none.
const ChoiceOption* option_of_key(const ChoiceOptions& options) {
    const auto* const found = std::ranges::find_if(options, [](const ChoiceOption& option) {
        return option.key.title != LABEL_NONE || option.key.told[0] != MESSAGE_NONE;
    });
    return found == options.end() ? nullptr : found;
}

void flip_option(const ChoiceOption& option, Word& value) {
    value = value <= 0 ? 1 : 0;
    flash_message(option.key.told[at(value)]);
}

}  // namespace

void option_slider(OptionOwner owner, int number) {
    const bool is_tool = owner == OWNER_TOOL;
    const ChoiceOption* const option = option_of_key(is_tool ? tools[at(number)].options : inks[at(number)].options);
    if (option == nullptr || option->key.title == LABEL_NONE) return;
    const std::array<ElementRow, 1> rows{{{.slot = OPTION_SLIDER,
                                           .type = ELEMENT_BOX,
                                           .x = 2,
                                           .y = 12,
                                           .w = element_w,
                                           .tooltip = option->tooltip,
                                           .range = {.highest = option->key.highest}}}};
    const WindowRow window{.y = std::clamp<int>(mouse_y - above_mouse, 0, view_h - window_h),
                           .w = window_w,
                           .h = window_h,
                           .child_count = OPTION_SLIDER_SLOTS,
                           .title = option->key.title,
                           .title_w = element_w,
                           .elements = rows};
    // A value beyond the slider's end stays as it is until the slider is moved.
    Word& value = (is_tool ? tool_options : ink_options)[at(number)][at(option->slot)];
    const auto link = [&] { GUI_link_slider(OPTION_SLIDER, &value); };
    // A knob in the hand holds the window, since its press would be a stroke behind it.
    const Hotkey key = is_tool ? HOTKEY_TOOL_OPTION : HOTKEY_INK_OPTION;
    const auto serve = [key] { return hotkey_held(key) || mouse_left != 0 ? WINDOW_STAYS : WINDOW_DONE; };
    run_window(window, {.built = link, .serve = serve});
}

void toggle_tool_option() {
    if (active_tool_slot < 0 || active_tool_slot >= choice_slots) {
        UA_log("[ ERROR ] : Current brush slot value is OOB in brush option tweak. Slot = %d", active_tool_slot);
        return;
    }
    const BrushTool tool = active_tool();
    if (tool < TOOL_NONE || tool >= TOOL_COUNT) {
        UA_log("[ ERROR ] : Current brush value is OOB in brush option tweak. Brush = %d", int{tool});
        return;
    }
    const ChoiceOption* const option = option_of_key(tools[at(tool)].options);
    if (option == nullptr) return;
    if (option->kind == KIND_TOGGLE)
        flip_option(*option, tool_options[at(tool)][at(option->slot)]);
    else
        option_slider(OWNER_TOOL, tool);
}

void toggle_ink_option() {
    if (active_ink_slot < 0 || active_ink_slot >= choice_slots) {
        UA_log("[ ERROR ] : Current ink slot value is OOB in ink option tweak. Slot = %d", active_ink_slot);
        return;
    }
    const Ink ink = active_ink();
    if (has_nodes(ink))
        reposition_gradient(ink);
    else
        option_slider(OWNER_INK, ink);
}

}  // namespace nubo
