#include "windows/tip_window.h"

#include "gui/presses.h"
#include "state/gui.h"
#include "state/mouse.h"
#include "state/stroke.h"
#include "windows/cel/custom_tip.h"
#include "windows/kit/run_window.h"

namespace nubo {
namespace {

enum TipSlot : int { TIP_CUSTOM = slot_content, TIP_CELL_FIRST, TIP_SLOTS = TIP_CELL_FIRST + tip_count };

constexpr ElementRow custom_row{.slot = TIP_CUSTOM,
                                .type = ELEMENT_CUSTOM_TIP,
                                .x = 2,
                                .y = 12,
                                .w = 52,
                                .h = 49,
                                .left = ACTION_CLICK,
                                .right = ACTION_CLICK_RIGHT,
                                .tooltip = MESSAGE_CUSTOM_TIP};
constexpr int cell_w = 21, cell_h = 19, first_cell_x = 55, first_cell_y = 2, cell_step_x = 22, cell_step_y = 20;
constexpr int border_ants = 2;

void build_cell(int tip) {
    const int column = tip % tip_columns, row = tip / tip_columns;
    build_element({.slot = TIP_CELL_FIRST + tip,
                   .type = ELEMENT_TIP_CELL,
                   .x = first_cell_x + cell_step_x * column,
                   .y = first_cell_y + cell_step_y * row,
                   .w = cell_w,
                   .h = cell_h,
                   .tooltip = MESSAGE_SELECT_TIP},
                  window_x(), window_y());
    const std::size_t slot = at(TIP_CELL_FIRST + tip);
    gui::tip[at(TIP_CELL_FIRST + tip)] = static_cast<std::int16_t>(tip);
    gui::source_x[slot] = static_cast<std::int16_t>(tip_w * column);
    gui::source_y[slot] = static_cast<std::int16_t>(tip_h * row);
}

constexpr WindowRow window{.id = WINDOW_TIP,
                           .place = POS_TIP,
                           .y = 177,
                           .w = 319,
                           .h = 62,
                           .child_count = TIP_SLOTS,
                           .title = LABEL_BRUSHIE,
                           .title_w = 52,
                           .elements = {&custom_row, 1},
                           .key = HOTKEY_BRUSH_TIP,
                           .outside = OUTSIDE_CANCELS,
                           .gives_way = true};

void build_cells() {
    for (int tip = 0; tip < tip_count; ++tip) build_cell(tip);
}

/// A cell answers the press itself.
void serve_cells() {
    const int slot = press_slot;
    if (mouse_left == 0 || slot < TIP_CELL_FIRST || slot >= TIP_SLOTS) return;
    brush_tip = slot - TIP_CELL_FIRST;
    wait_while_down(mouse_left);
}

void serve_custom() {
    const int click = take_click(TIP_CUSTOM);
    if (click > 0) brush_tip = tip_custom;
    if (click != click_right) return;
    gui::border_style[at(TIP_CUSTOM)] = border_ants;
    set_custom_tip();
    gui::border_style[at(TIP_CUSTOM)] = 0;
}

}  // namespace

void tip_window() {
    const auto serve = [] {
        serve_cells();
        serve_custom();
        return WINDOW_STAYS;
    };
    run_window(window, {.built = build_cells, .serve = serve});
}

}  // namespace nubo
