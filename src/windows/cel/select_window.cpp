// The window SELECT. The hand selects on the Frame behind it, and it is hidden meanwhile.
#include "gui/presses.h"
#include "state/flow.h"
#include "state/guides.h"
#include "state/mouse.h"
#include "state/view.h"
#include "view/view.h"
#include "windows/cel/select.h"
#include "windows/kit/run_window.h"
#include "windows/kit/window_rows.h"
#include <cstdio>
#include <string>

namespace nubo {
namespace {

// ---- The window as rows --------------------------------------------------------------------------------------------

enum SelectSlot : int {
    SELECT_TOLERANCE_CAPTION = slot_content,
    SELECT_QUALITY_CAPTION,
    SELECT_COUNT,
    SELECT_LASSO,
    SELECT_WAND,
    SELECT_GLOBAL,
    SELECT_TOLERANCE,
    SELECT_FAST,
    SELECT_CLEAN,
    SELECT_OKAY,
    SELECT_MOVE,
    SELECT_CANCEL,
    SELECT_SLOTS
};

constexpr ElementRow end_row(int slot, int x, Message tooltip, Label label, const char* text = nullptr) {
    return {.slot = slot,
            .type = ELEMENT_BUTTON_LIT,
            .x = x,
            .y = 32,
            .w = 64,
            .label = label,
            .left = ACTION_CLICK,
            .tooltip = tooltip,
            .text = text};
}

constexpr std::array<ElementRow, SELECT_SLOTS - slot_content> rows{{
    caption_row(SELECT_TOLERANCE_CAPTION, row_caption_x, 12, row_caption_w, "TOLERANCE"),
    caption_row(SELECT_QUALITY_CAPTION, row_caption_x, 22, row_caption_w, "QUALITY"),
    caption_row(SELECT_COUNT, column_x(2), 22, 171, ""),
    button_row(SELECT_LASSO, 0, 2, MESSAGE_SELECT_LASSO, "LASSO"),
    button_row(SELECT_WAND, 1, 2, MESSAGE_SELECT_WAND, "WAND"),
    button_row(SELECT_GLOBAL, 2, 2, MESSAGE_SELECT_GLOBAL, "GLOBAL"),
    slider_row(SELECT_TOLERANCE, column_x(0), 12, columns_w, MESSAGE_SELECT_TOLERANCE, {0, wand_tolerance_max, 1}),
    button_row(SELECT_FAST, 0, 22, MESSAGE_SELECT_QUALITY, "FAST"),
    button_row(SELECT_CLEAN, 1, 22, MESSAGE_SELECT_QUALITY, "CLEAN"),
    end_row(SELECT_OKAY, 2, MESSAGE_SELECT_OKAY, LABEL_OKAY),
    end_row(SELECT_MOVE, 128, MESSAGE_SELECT_MOVE, LABEL_NONE, "MOVE"),
    end_row(SELECT_CANCEL, 254, MESSAGE_NONE, LABEL_CANCEL),
}};
static_assert(rows_in_order(rows, &ElementRow::slot, slot_content));

constexpr WindowRow window{.x = 0,
                           .y = 197,
                           .w = 319,
                           .h = 42,
                           .child_count = SELECT_SLOTS,
                           .title_text = "SELECT",
                           .title_w = 55,
                           .elements = rows,
                           .okay = SELECT_OKAY,
                           .cancel = SELECT_CANCEL,
                           .pans = true};

// ---- What it shows and does ----------------------------------------------------------------------------------------

constinit Word tolerance = 0;                 // where the slider stands
constinit std::array<char, 40> count_text{};  // what the row of the pixels says

void build_rest() {
    tolerance = guides.wand_tolerance;
    GUI_link_slider(SELECT_TOLERANCE, &tolerance);
    gui::value_text[at(SELECT_COUNT)] = count_text.data();
}

void show_window(SelectionInHand& selection) {
    selection.follow_frame();
    guides.wand_tolerance = tolerance;
    GUI_light_button(SELECT_LASSO, select_tool == SELECT_BY_LASSO);
    GUI_light_button(SELECT_WAND, select_tool == SELECT_BY_WAND);
    GUI_light_button(SELECT_GLOBAL, wand_is_global);
    GUI_light_button(SELECT_FAST, guides.clean_cel == 0);
    GUI_light_button(SELECT_CLEAN, guides.clean_cel != 0);
    const std::size_t count = selection.shape().count();
    std::snprintf(count_text.data(), count_text.size(), "%zu PIXEL%s IN HAND", count, count == 1 ? "" : "S");
}

void take_choices() {
    if (take_click(SELECT_LASSO) > 0) select_tool = SELECT_BY_LASSO;
    if (take_click(SELECT_WAND) > 0) select_tool = SELECT_BY_WAND;
    if (take_click(SELECT_GLOBAL) > 0) {
        wand_is_global = !wand_is_global;
        if (wand_is_global) select_tool = SELECT_BY_WAND;
    }
    if (take_click(SELECT_FAST) > 0) guides.clean_cel = 0;
    if (take_click(SELECT_CLEAN) > 0) guides.clean_cel = 1;
}

void select_behind_window(SelectionInHand& selection) {
    hide_window();
    {
        Waiting wait({.prompt = MESSAGE_TOLD, .hotkeys = HOTKEYS_MODAL});
        view_update_pixel();
        selection.take_from(wait, {pixel_x, pixel_y});
    }
    toggle_window();
}

SelectEnd serve_window(SelectionInHand& selection) {
    take_choices();
    if (take_click(SELECT_MOVE) > 0 && !selection.shape().empty()) return SELECT_IS_MOVED;
    if (pressed_outside(mouse_left)) select_behind_window(selection);
    if (right_press_outside()) return selection.shape().empty() ? SELECT_IS_LEFT : SELECT_IS_CEL;
    return selection.asked_by_keys();
}

}  // namespace

void select_window() {
    const int tolerance_before = guides.wand_tolerance, quality_before = guides.clean_cel;
    SelectEnd end = SELECT_GOES_ON;
    PixelSet shape;
    {
        SelectionInHand selection;
        const auto serve = [&] {
            end = serve_window(selection);
            if (end == SELECT_GOES_ON) return WINDOW_STAYS;
            return end == SELECT_IS_LEFT ? WINDOW_CANCELLED : WINDOW_DONE;
        };
        const WindowPass pass =
            run_window(window, {.built = build_rest, .show = [&] { show_window(selection); }, .serve = serve});
        shape = selection.give();
        if (pass == WINDOW_CANCELLED) {
            guides.wand_tolerance = tolerance_before;
            guides.clean_cel = quality_before;
            return;
        }
    }
    end_selection(shape, end == SELECT_IS_MOVED ? end : SELECT_IS_CEL);
}

}  // namespace nubo
