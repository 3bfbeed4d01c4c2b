#include "windows/sheet_tool.h"

#include "gui/text_field.h"
#include "windows/colors/color_window.h"
#include "windows/kit/number_field.h"
#include "windows/kit/run_window.h"
#include "workspace/resize_frame.h"
#include <array>

namespace nubo {
namespace {

enum SheetSlot : int {
    SHEET_CAPTION_FIRST = slot_content,  // nine, of the fields and the swatches
    SHEET_FIELD_FIRST = SHEET_CAPTION_FIRST + 9,
    SHEET_SWATCH_FIRST = SHEET_FIELD_FIRST + 6,
    SHEET_OKAY = SHEET_SWATCH_FIRST + 3,
    SHEET_CANCEL,
    SHEET_SLOTS
};

constexpr int row_y(int row) { return 13 + 12 * row; }

// ---- Numbers -------------------------------------------------------------------------------------------------------

struct NumberRow {
    Label label;
    int SpriteSheet::*value;
    int lowest;  // up to 256
};
constexpr int number_max = 256;
constexpr std::array<NumberRow, 6> numbers{{
    {LABEL_SPRITE_W, &SpriteSheet::sprite_w, 1},
    {LABEL_SPRITE_H, &SpriteSheet::sprite_h, 1},
    {LABEL_X_SPACING, &SpriteSheet::x_spacing, 0},
    {LABEL_Y_SPACING, &SpriteSheet::y_spacing, 0},
    {LABEL_TOTAL_ROWS, &SpriteSheet::rows, 1},
    {LABEL_TOTAL_COLUMNS, &SpriteSheet::columns, 1},
}};

struct SwatchRow {
    Label label;
    Color SpriteSheet::*value;
    Message tooltip;
};
constexpr std::array<SwatchRow, 3> swatches{{
    {LABEL_SPRITE_COLOR, &SpriteSheet::sprite, MESSAGE_SPRITE_COLOR},
    {LABEL_SHEET_COLOR, &SpriteSheet::sheet, MESSAGE_SHEET_COLOR},
    {LABEL_BORDER_COLOR, &SpriteSheet::border, MESSAGE_BORDER_COLOR},
}};

constexpr int number_count = static_cast<int>(numbers.size()), swatch_count = static_cast<int>(swatches.size());

// ---- Building ------------------------------------------------------------------------------------------------------

constexpr ElementRow caption_row(int row, Label label) {
    return {.slot = SHEET_CAPTION_FIRST + row, .x = 2, .y = row_y(row), .w = 95, .label = label, .fill = &ui_border};
}
constexpr ElementRow control_row(int slot, int row, ElementType type, Action left, Message tooltip) {
    return {.slot = slot,
            .type = type,
            .x = 98,
            .y = row_y(row),
            .w = 29,
            .left = left,
            .tooltip = tooltip,
            .fill = &ui_shadow};
}
constexpr ElementRow answer_row(SheetSlot slot, int x, Label label) {
    return {.slot = slot, .type = ELEMENT_BUTTON_LIT, .x = x, .y = 121, .w = 61, .label = label, .left = ACTION_CLICK};
}

constexpr auto rows = [] {
    std::array<ElementRow, SHEET_SLOTS - slot_content> all{};
    const auto put = [&](const ElementRow& row) { all[at(row.slot - slot_content)] = row; };
    for (int i = 0; i < number_count; ++i) {
        put(caption_row(i, numbers[at(i)].label));
        put(control_row(SHEET_FIELD_FIRST + i, i, ELEMENT_TEXT_FIELD, ACTION_FOCUS, MESSAGE_NONE));
    }
    for (int i = 0; i < swatch_count; ++i) {
        put(caption_row(number_count + i, swatches[at(i)].label));
        put(control_row(SHEET_SWATCH_FIRST + i, number_count + i, ELEMENT_SWATCH, ACTION_CLICK,
                        swatches[at(i)].tooltip));
    }
    put(answer_row(SHEET_OKAY, 2, LABEL_OKAY));
    put(answer_row(SHEET_CANCEL, 66, LABEL_CANCEL));
    return all;
}();
static_assert(rows_in_order(rows, &ElementRow::slot, slot_content));

constexpr WindowRow window{.id = WINDOW_SPRITE_SHEET,
                           .place = POS_SPRITE_SHEET,
                           .x = 70,
                           .y = 80,
                           .w = 128,
                           .h = 131,
                           .child_count = SHEET_SLOTS,
                           .title = LABEL_SPRITE_SHEET_TOOL,
                           .title_w = 125,
                           .elements = rows,
                           .cancel = SHEET_CANCEL,
                           .outside = OUTSIDE_HIDES,
                           .focus = SHEET_FIELD_FIRST,
                           .pans = true};

/// Also when the window comes back from the colour window: with what had been typed.
void fill(const SpriteSheet& sheet) {
    for (int i = 0; i < number_count; ++i) set_number(SHEET_FIELD_FIRST + i, sheet.*numbers[at(i)].value);
    for (int i = 0; i < swatch_count; ++i)
        gui::color[at(SHEET_SWATCH_FIRST + i)] = static_cast<int>(sheet.*swatches[at(i)].value);
}

// ---- The window ----------------------------------------------------------------------------------------------------

/// Reads the fields and marks those out of range; true if all are valid.
bool read_fields(SpriteSheet& sheet) {
    bool valid = true;
    for (int i = 0; i < number_count; ++i) {
        const int slot = SHEET_FIELD_FIRST + i, number = read_number(slot);
        const bool fits = number >= numbers[at(i)].lowest && number <= number_max;
        sheet.*numbers[at(i)].value = number;
        gui::invalid[at(slot)] = fits ? 0 : 1;
        valid = valid && fits;
    }
    return valid;
}

/// ENTER goes on to the next field, as TAB does.
void serve_enter() {
    for (int i = 0; i < number_count; ++i)
        if (take_click(SHEET_FIELD_FIRST + i) > 0) GUI_set_key_focus(SHEET_FIELD_FIRST + (i + 1) % number_count, true);
}

void serve_swatches(SpriteSheet& sheet) {
    for (int i = 0; i < swatch_count; ++i) {
        if (take_click(SHEET_SWATCH_FIRST + i) <= 0) continue;
        Color& color = sheet.*swatches[at(i)].value;
        color = color_window(EDIT_GIVEN_COLOR, color);
        gui::color[at(SHEET_SWATCH_FIRST + i)] = static_cast<int>(color);
    }
}

}  // namespace

void sheet_tool() {
    SpriteSheet sheet{.sprite = ui_highlight_fore, .sheet = ui_white, .border = ui_black};
    bool valid = false;
    const auto serve = [&] {
        serve_enter();
        serve_swatches(sheet);
        return take_click(SHEET_OKAY) > 0 && valid && make_sprite_sheet(sheet) ? WINDOW_DONE : WINDOW_STAYS;
    };
    run_window(window, {.built = [&] { fill(sheet); }, .show = [&] { valid = read_fields(sheet); }, .serve = serve});
}

}  // namespace nubo
