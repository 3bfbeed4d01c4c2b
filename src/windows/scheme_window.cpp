#include "windows/scheme_window.h"

#include "windows/colors/color_window.h"
#include "windows/files/file_browser.h"
#include "windows/kit/drawing_menu.h"
#include "windows/kit/run_window.h"
#include <array>

namespace nubo {
namespace {

using Scheme = std::array<Color, SCHEME_COUNT>;

// ---- The window as rows ---------------------------------------------------------------------------------------------

/// The colours of surfaces stand in a block above those of texts.
constexpr int color_row_y(int index) {
    constexpr int surfaces_y = 12, texts_y = 68, pitch = 10;
    return index < SCHEME_TEXT_LIGHT ? surfaces_y + pitch * index : texts_y + pitch * (index - SCHEME_TEXT_LIGHT);
}

constexpr ElementRow label_row(int index) {
    return {.slot = SCHEME_LABEL_FIRST + index,
            .x = 2,
            .y = color_row_y(index),
            .w = 88,
            .label = static_cast<Label>(LABEL_SCHEME_BACKGROUND + index),
            .fill = &ui_border};
}

constexpr ElementRow swatch_row(int index) {
    return {.slot = SCHEME_SWATCH_FIRST + index,
            .type = ELEMENT_BOX,
            .x = 91,
            .y = color_row_y(index),
            .w = 29,
            .left = ACTION_CLICK,
            .right = ACTION_CLICK_RIGHT,
            .tooltip = MESSAGE_SCHEME_COLOR,
            .fill = &color_scheme[static_cast<std::size_t>(index)]};
}

constexpr ElementRow command_row(int slot, int x, Label label) {
    return {.slot = slot, .type = ELEMENT_BUTTON_LIT, .x = x, .y = 121, .w = 61, .label = label, .left = ACTION_CLICK};
}

constexpr int sample_x = 124, sample_w = 129, half_w = 64;
constexpr ElementRow sample_row(int slot, ElementType type, int y, Label label) {
    return {.slot = slot, .type = type, .x = sample_x, .y = y, .w = sample_w, .label = label};
}

using SchemeRows = std::array<ElementRow, SCHEME_SLOTS - slot_content>;

consteval SchemeRows scheme_rows() {
    constexpr int header_x = 122, header_w = 133;
    SchemeRows rows{};
    std::size_t next = 0;
    const auto add = [&](const ElementRow& row) { rows[next++] = row; };
    for (int i = 0; i < SCHEME_COUNT; ++i) add(label_row(i));
    for (int i = 0; i < SCHEME_COUNT; ++i) add(swatch_row(i));
    add(command_row(SCHEME_OKAY, 2, LABEL_OKAY));
    add(command_row(SCHEME_SAVE, 66, LABEL_PIC_SAVE));
    add(command_row(SCHEME_LOAD, 130, LABEL_PIC_LOAD));
    add(command_row(SCHEME_CANCEL, 194, LABEL_CANCEL));
    add({.slot = SCHEME_PREVIEW_HEADER,
         .x = header_x,
         .y = 12,
         .w = header_w,
         .label = LABEL_SCHEME_PREVIEW,
         .fill = &ui_border});
    add({.slot = SCHEME_PREVIEW_PANEL, .type = ELEMENT_SCHEME_PANEL, .x = header_x, .y = 22, .w = header_w, .h = 95});
    add(sample_row(SCHEME_PREVIEW_TITLE, ELEMENT_SCHEME_SHADOW, 24, LABEL_TITLE));
    ElementRow list = sample_row(SCHEME_PREVIEW_LIST, ELEMENT_SCHEME_LIST, 34, LABEL_NONE);
    list.h = 42;
    add(list);
    add(sample_row(SCHEME_PREVIEW_CAPTION, ELEMENT_SCHEME_BORDER, 77, LABEL_OPTIONS));
    add(sample_row(SCHEME_PREVIEW_FIELD, ELEMENT_SCHEME_FIELD, 87, LABEL_NONE));
    ElementRow slider = sample_row(SCHEME_PREVIEW_SLIDER, ELEMENT_SCHEME_PANEL, 97, LABEL_NONE);
    slider.range = {.highest = 255};
    add(slider);
    ElementRow button = sample_row(SCHEME_PREVIEW_BUTTON, ELEMENT_SCHEME_BUTTON, 107, LABEL_WORKSPACE_RETURN);
    button.w = half_w;
    add(button);
    button = sample_row(SCHEME_PREVIEW_BUTTON_DARK, ELEMENT_SCHEME_BUTTON_DARK, 107, LABEL_FRAME);
    button.x += half_w + 1;
    button.w = half_w;
    add(button);
    return rows;
}

constexpr SchemeRows rows = scheme_rows();
static_assert(rows_in_order(rows, &ElementRow::slot, slot_content));

constexpr WindowRow window{.id = WINDOW_COLOR_SCHEME,
                           .place = POS_COLOR_SCHEME,
                           .x = 31,
                           .y = 70,
                           .w = 256,
                           .h = 131,
                           .child_count = SCHEME_SLOTS,
                           .title = LABEL_COLOR_SCHEME,
                           .title_w = 253,
                           .elements = rows,
                           .okay = SCHEME_OKAY,
                           .cancel = SCHEME_CANCEL,
                           .outside = OUTSIDE_HIDES};

/// The sample's texts, and the swatches as `color_scheme` has them.
void finish_window() {
    constexpr ListLayout list{.rows = 4, .row_h = 10};
    constexpr FieldLayout field{.visible = 20, .max = 20};
    GUI_set_list(SCHEME_PREVIEW_LIST, list, LABEL_PREVIEW_SELECTED, 3);
    gui::row_ids[at(SCHEME_PREVIEW_LIST)][3] = LABEL_PREVIEW_REGULAR;
    GUI_set_field(SCHEME_PREVIEW_FIELD, field, "TEXT INPUT WINDOW");
    apply_scheme(SCHEME_TO_SWATCHES);
}

// ---- Serving the clicks ---------------------------------------------------------------------------------------------

void paint_sheet(const Scheme& scheme) {
    recolor_gui_sheet(scheme[SCHEME_BACKGROUND], scheme[SCHEME_BORDER], scheme[SCHEME_SHADOW],
                      scheme[SCHEME_BACKGROUND]);
}

/// The colour window shows itself in the interface's own colours, sprites included.
void choose_color(int index, const Scheme& kept) {
    paint_sheet(kept);
    color_scheme[at(index)] = color_window(EDIT_GIVEN_COLOR, color_scheme[at(index)]);
    apply_scheme(SCHEME_TO_SWATCHES);
}

void serve_swatches(const Scheme& kept) {
    for (int i = 0; i < SCHEME_COUNT; ++i) {
        const int slot = SCHEME_SWATCH_FIRST + i, click = take_click(slot);
        if (click == click_right) gui::color[at(slot)] = static_cast<int>(default_scheme[at(i)]);
        if (click > 0) choose_color(i, kept);
    }
}

/// The browser shows itself in the interface's own colours, too.
void serve_files(const Scheme& kept) {
    const bool saves = take_click(SCHEME_SAVE) > 0, loads = take_click(SCHEME_LOAD) > 0;
    if (!saves && !loads) return;
    paint_sheet(kept);
    file_browser(saves ? BROWSE_TO_SAVE : BROWSE_TO_LOAD, PURPOSE_SCHEME);
    apply_scheme(SCHEME_TO_SWATCHES);
}

}  // namespace

void scheme_window() {
    const Scheme kept = color_scheme;
    const auto serve = [&] {
        serve_swatches(kept);
        paint_sheet(color_scheme);
        serve_files(kept);
        return WINDOW_STAYS;
    };
    const auto take_swatches = [] { apply_scheme(SCHEME_FROM_SWATCHES); };
    const WindowPass end = run_window(window, {.built = finish_window, .show = take_swatches, .serve = serve});
    if (end == WINDOW_CANCELLED) color_scheme = kept;
    wear_scheme();
    build_drawing_menu();  // in the new colours
}

}  // namespace nubo
