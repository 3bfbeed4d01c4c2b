#pragma once
// The file browser as rows: its slots, its elements, what its filter buttons let through.
#include "gui/text_field.h"
#include "gui/window.h"
#include "platform/places.h"
#include "state/files.h"
#include "state/run.h"
#include <array>
#include <string_view>

namespace nubo {

inline constexpr int filter_count = 9, places_shown = static_cast<int>(place_max);
enum BrowserSlot : int {
    BROWSER_PLACE_FIRST = slot_content,
    BROWSER_PATH_LABEL = BROWSER_PLACE_FIRST + places_shown,
    BROWSER_FILE_LABEL,
    BROWSER_PATH,
    BROWSER_FILE,
    BROWSER_LIST,
    BROWSER_FILTER_FIRST,
    BROWSER_PREVIEW = BROWSER_FILTER_FIRST + filter_count,
    BROWSER_OKAY,
    BROWSER_HOME,
    BROWSER_CANCEL,
    BROWSER_EXTRA,  // one button over the last places, for what only some look for; none is there without
    BROWSER_SLOTS
};

constexpr ElementRow browser_place_row(int place) {
    constexpr int first_x = 64, pitch = 15, width = 14;
    return {.slot = BROWSER_PLACE_FIRST + place, .x = first_x + pitch * place, .y = 2, .w = width};
}

/// What the extra button does: shows the previous Workspaces, loads a picture as the Cel, saves with clear pixels.
enum BrowserExtra : int { EXTRA_PREVIOUS, EXTRA_CUT_OUT, EXTRA_CLEAR, EXTRA_NONE };

struct ExtraRow {
    BrowserExtra extra;
    int places;  // which it covers, from the last one on
    ElementRow element;
};
inline constexpr std::array<ExtraRow, EXTRA_NONE> browser_extras{{
    {EXTRA_PREVIOUS,
     4,
     {.slot = BROWSER_EXTRA,
      .type = ELEMENT_BUTTON_LIT,
      .w = 59,
      .label = LABEL_PREVIOUS_WORKSPACE,
      .left = ACTION_CLICK,
      .tooltip = MESSAGE_PREVIOUS_WORKSPACE}},
    {EXTRA_CUT_OUT,
     3,
     {.slot = BROWSER_EXTRA,
      .type = ELEMENT_BUTTON_LIT,
      .w = 44,
      .left = ACTION_CLICK,
      .tooltip = MESSAGE_CUT_OUT,
      .text = "CUT-OUT"}},
    {EXTRA_CLEAR,
     3,
     {.slot = BROWSER_EXTRA, .w = 44, .left = ACTION_FLIP_CLICK, .tooltip = MESSAGE_CLEAR_GROUND, .text = "CLEAR"}},
}};
static_assert(rows_in_order(browser_extras, &ExtraRow::extra));

constexpr int places_beside(BrowserExtra extra) {
    return extra == EXTRA_NONE ? places_shown : places_shown - browser_extras[at(extra)].places;
}

constexpr ElementRow browser_extra_row(BrowserExtra extra) {
    ElementRow row = browser_extras[at(extra)].element;
    const ElementRow place = browser_place_row(places_beside(extra));
    row.x = place.x, row.y = place.y;
    return row;
}

constexpr ElementRow browser_filter_row(int filter) {
    constexpr int first_x = 199, first_y = 12, pitch_x = 40, pitch_y = 10, columns = 3;
    return {.slot = BROWSER_FILTER_FIRST + filter,
            .x = first_x + pitch_x * (filter % columns),
            .y = first_y + pitch_y * (filter / columns),
            .label = static_cast<Label>(LABEL_GIF + filter),
            .left = ACTION_FLIP_CLICK,
            .tooltip = static_cast<Message>(MESSAGE_FILTER_GIF + filter)};
}

using BrowserRows = std::array<ElementRow, BROWSER_EXTRA - slot_content>;

consteval BrowserRows browser_rows() {
    BrowserRows rows{};
    const auto add = [&](const ElementRow& row) { rows[at(row.slot - slot_content)] = row; };
    for (int i = 0; i < places_shown; ++i) add(browser_place_row(i));
    for (int i = 0; i < filter_count; ++i) add(browser_filter_row(i));
    constexpr int field_w = 166, caption_w = 29, button_y = 114;
    add({.slot = BROWSER_PATH_LABEL, .x = 2, .y = 12, .w = caption_w, .label = LABEL_PATH, .fill = &ui_border});
    add({.slot = BROWSER_FILE_LABEL, .x = 2, .y = 22, .w = caption_w, .label = LABEL_FILE, .fill = &ui_border});
    add({.slot = BROWSER_PATH, .type = ELEMENT_TEXT_FIELD, .x = 32, .y = 12, .w = field_w, .fill = &ui_shadow});
    add({.slot = BROWSER_FILE, .type = ELEMENT_TEXT_FIELD, .x = 32, .y = 22, .w = field_w, .fill = &ui_shadow});
    add({.slot = BROWSER_LIST, .type = ELEMENT_FILE_LIST, .x = 2, .y = 32, .w = 196, .h = 81});
    add({.slot = BROWSER_PREVIEW,
         .type = ELEMENT_PREVIEW,
         .x = 199,
         .y = 42,
         .w = preview_w + 2,
         .h = preview_h + 2,
         .left = ACTION_CLICK});
    const auto add_button = [&](int slot, int x, Label label) {
        constexpr int width = 59;
        add({.slot = slot,
             .type = ELEMENT_BUTTON_LIT,
             .x = x,
             .y = button_y,
             .w = width,
             .label = label,
             .left = ACTION_CLICK});
    };
    add_button(BROWSER_OKAY, 2, LABEL_OKAY);
    add_button(BROWSER_HOME, 71, LABEL_HOME);
    add_button(BROWSER_CANCEL, 139, LABEL_CANCEL);
    return rows;
}
inline constexpr BrowserRows browser_elements = browser_rows();
static_assert(rows_in_order(browser_elements, &ElementRow::slot, slot_content));

inline constexpr WindowRow browser_window{.id = WINDOW_FILE_BROWSER,
                                          .place = POS_FILE_BROWSER,
                                          .x = 0,
                                          .y = 115,
                                          .w = 319,
                                          .h = 124,
                                          .child_count = BROWSER_EXTRA,
                                          .title = LABEL_LOAD_FILE,
                                          .title_w = 61,
                                          .elements = browser_elements,
                                          .cancel = BROWSER_CANCEL,
                                          .outside = OUTSIDE_CANCELS,
                                          .keys = KEYS_ESCAPE};
inline constexpr FieldLayout field_layout{.visible = 25, .max = 254, .font = FONT_WIDE};

/// The kind of files that each filter button lets through; that of the OTF fonts has no type.
inline constexpr std::array<FileType, filter_count> filter_types{FILE_GIF, FILE_PCX, FILE_BMP,     FILE_PNG, FILE_JPG,
                                                                 FILE_LBM, FILE_TTF, FILE_UNKNOWN, FILE_WSP};
inline constexpr std::string_view otf_ending = "OTF";
inline constexpr int workspace_filter = filter_count - 1;

}  // namespace nubo
