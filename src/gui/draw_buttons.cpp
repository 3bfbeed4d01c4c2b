// Captions, titles, buttons.
#include "gui/columns.h"
#include "gui/draw_elements.h"
#include "gui/shapes.h"
#include <array>
#include <cstdio>

namespace nubo {
namespace {

constexpr int value_length = 16;

TextColor text_color_in(int slot) { return static_cast<TextColor>(int{text_color_of(slot)}); }

/// A rounded box with the label in its middle.
void labeled_box(int slot, Color fill, TextColor text) {
    GUI_box(slot, fill, ui_border);
    GUI_center_text_of(slot, text);
}

}  // namespace

// ---- Text without a box --------------------------------------------------------------------------------------------

void draw_caption(int slot) { GUI_center_text_of(slot, text_color_in(slot)); }

void draw_number(int slot) {
    constexpr int too_large = 1000;
    const int number = gui::shown_number[at(slot)];
    if (number >= too_large) return;
    std::array<char, value_length> text{};
    std::snprintf(text.data(), text.size(), "%03d", number);
    GUI_center_text(slot, text.data(), TEXT_SELECTED);
}

// ---- Boxes with a label --------------------------------------------------------------------------------------------

void draw_title(int slot) { labeled_box(slot, color_of(slot), TEXT_LIGHT_ALT); }

void draw_button(int slot) { labeled_box(slot, color_of(slot), TEXT_BUTTON); }

void draw_button_down(int slot) { labeled_box(slot, ui_highlight_back, TEXT_LIGHT_ALT); }

void draw_button_lit(int slot) {
    if (is_lit(slot))
        draw_button_down(slot);
    else
        draw_button(slot);
}

void draw_button_lit_dark(int slot) {
    if (is_lit(slot))
        labeled_box(slot, ui_shadow, TEXT_LIGHT);
    else
        labeled_box(slot, color_of(slot), TEXT_HIGHLIGHT);
}

void draw_radio_on(int slot) { labeled_box(slot, ui_highlight_back, TEXT_LIGHT_ALT); }

void draw_radio_off(int slot) {
    if (is_lit(slot))
        labeled_box(slot, ui_shadow, TEXT_GRAY);
    else
        labeled_box(slot, color_of(slot), TEXT_HIGHLIGHT);
}

void draw_arrow(int slot) {
    constexpr int side = 7, sheet_y = 114, up_x = 4, down_x = 19;
    const bool lit = is_lit(slot);
    GUI_box(slot, lit ? ui_highlight_back : color_of(slot), ui_border);
    const int direction = gui::arrow_direction[at(slot)];
    if (direction != ARROW_UP && direction != ARROW_DOWN) return;
    GUI_sprite(direction == ARROW_UP ? up_x : down_x, lit ? sheet_y + side : sheet_y, side, side,
               gui::x[at(slot)] + (gui::w[at(slot)] - side) / 2, gui::y[at(slot)] + (gui::h[at(slot)] - side) / 2);
}

}  // namespace nubo
