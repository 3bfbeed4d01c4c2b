#include "windows/tool_window.h"

#include "windows/choice_window.h"
#include "windows/kit/option_widgets.h"

namespace nubo {
namespace {

constexpr ChoiceWindow window{.id = WINDOW_TOOL,
                              .title = LABEL_BRUSHES,
                              .options_caption = LABEL_TOOL_OPTIONS,
                              .description_caption = LABEL_TOOL_DESCRIPTION,
                              .label_of_zero = LABEL_TOOL_FIRST,
                              .first_choice = TOOL_BOX,
                              .choice_count = TOOL_COUNT - TOOL_BOX,
                              .description_of_zero = 0,
                              .key = HOTKEY_BRUSH_TOOL,
                              .slots = &tool_slots,
                              .active = &active_tool_slot,
                              .build_options = build_tool_options,
                              .serve_options = [](int) { return false; },
                              .run_option = nullptr};

}  // namespace

void tool_window(int slot) { run_choice_window(window, slot); }

}  // namespace nubo
