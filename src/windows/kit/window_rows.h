#pragma once
// Rows of elements as several windows have them.
#include "gui/window.h"

namespace nubo {

// ---- Columns -------------------------------------------------------------------------------------------------------
// A caption at the left, and six buttons behind it.

inline constexpr int row_caption_x = 2, row_caption_w = 55, column_w = 42, columns_w = 257;
constexpr int column_x(int column) { return 58 + 43 * column; }

// ---- Rows ----------------------------------------------------------------------------------------------------------

constexpr ElementRow caption_row(int slot, int x, int y, int w, const char* text) {
    return {.slot = slot, .x = x, .y = y, .w = w, .fill = &ui_border, .text = text};
}

constexpr ElementRow push_row(int slot, int x, int y, int w, Message tooltip, const char* text) {
    return {.slot = slot, .x = x, .y = y, .w = w, .left = ACTION_CLICK, .tooltip = tooltip, .text = text};
}
constexpr ElementRow button_row(int slot, int column, int y, Message tooltip, const char* text) {
    return push_row(slot, column_x(column), y, column_w, tooltip, text);
}

constexpr ElementRow slider_row(int slot, int x, int y, int w, Message tooltip, SliderRange range) {
    return {.slot = slot, .type = ELEMENT_BOX, .x = x, .y = y, .w = w, .tooltip = tooltip, .range = range};
}

}  // namespace nubo
