#include "windows/ink_window.h"

#include "gui/window.h"
#include "windows/choice_window.h"
#include "windows/colors/gradient_nodes.h"
#include "windows/kit/option_widgets.h"

namespace nubo {
namespace {

/// The nodes of a gradient are placed on the Frame.
bool serve_position(int ink) { return has_nodes(ink) && take_click(option_slot_position) > 0; }

constexpr ChoiceWindow window{.id = WINDOW_INK,
                              .title = LABEL_INK,
                              .options_caption = LABEL_INK_OPTIONS,
                              .description_caption = LABEL_INK_DESCRIPTION,
                              .label_of_zero = LABEL_INK_FIRST,
                              .first_choice = INK_ADD,
                              .choice_count = INK_COUNT,
                              .description_of_zero = ink_description_first,
                              .key = HOTKEY_INK,
                              .slots = &ink_slots,
                              .active = &active_ink_slot,
                              .build_options = build_ink_options,
                              .serve_options = serve_position,
                              .run_option = reposition_gradient};

}  // namespace

void ink_window(int slot) { run_choice_window(window, slot); }

}  // namespace nubo
