// Captions, titles, buttons, and the elements that show one value as text.
#include "framework/text.h"
#include "gui/draw_elements.h"
#include "gui/key_names.h"
#include "gui/shapes.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "state/tools.h"
#include <array>
#include <cstdio>
#include <string>

namespace nubo {
namespace {

constexpr int value_length = 16;

/// A rounded box with the label in its middle.
void labeled_box(int slot, Color fill, TextColor text) {
    GUI_box(slot, fill, ui_border);
    GUI_center_label(slot, text);
}

}  // namespace

void draw_nothing(int) {}

// ---- Text without a box --------------------------------------------------------------------------------------------

/// The string at `value_text`; `color` is a text colour.
void draw_value_text(int slot) {
    const char* const text = gui::value_text[at(slot)];
    if (text != nullptr) GUI_center_text(slot, text, static_cast<TextColor>(static_cast<int>(gui::color[at(slot)])));
}

/// The label; `color` is a text colour.
void draw_caption(int slot) { GUI_center_label(slot, static_cast<TextColor>(static_cast<int>(gui::color[at(slot)]))); }

void draw_frame_count(int slot) {
    std::array<char, value_length> text{};
    std::snprintf(text.data(), text.size(), "%02d / %d", static_cast<int>(frame_count), frame_slots);
    set_font(FONT_WIDE, TEXT_SELECTED);
    constexpr int left = 3, top = 2;
    UA_text(screen_buffer, gui::x[at(slot)] + left, gui::y[at(slot)] + top, text.data());
}

/// `row_ids[0]`, of three digits at most.
void draw_number(int slot) {
    constexpr int too_large = 1000;
    const int number = gui::row_ids[at(slot)][0];
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

/// The key combination in `label`; red where another action has the same one.
void draw_hotkey(int slot) {
    const bool lit = is_lit(slot), doubled = color_of(slot) == ui_red;
    GUI_box(slot, lit ? ui_highlight_back : color_of(slot), ui_border);
    GUI_center_text(slot, key_name(gui::label[at(slot)]),
                    lit       ? TEXT_LIGHT_ALT
                    : doubled ? TEXT_RED_BUTTON
                              : TEXT_BUTTON);
}

void draw_file_name(int slot) {
    constexpr std::size_t length_shown = 21;
    std::string name(font_name.data(), strnlen(font_name.data(), font_name.size()));
    if (name.size() > length_shown) name = name.substr(0, length_shown) + "...";
    const bool lit = is_lit(slot);
    GUI_box(slot, lit ? ui_highlight_back : color_of(slot), ui_border);
    GUI_center_text(slot, name, lit ? TEXT_RED : TEXT_BUTTON);
}

/// `row_ids[0]` 0: up, 2: down.
void draw_arrow(int slot) {
    constexpr int up = 0, down = 2, side = 7, sheet_y = 114, up_x = 4, down_x = 19;
    const bool lit = is_lit(slot);
    GUI_box(slot, lit ? ui_highlight_back : color_of(slot), ui_border);
    const int direction = gui::row_ids[at(slot)][0];
    if (direction != up && direction != down) return;
    GUI_sprite(direction == up ? up_x : down_x, lit ? sheet_y + side : sheet_y, side, side,
               gui::x[at(slot)] + (gui::w[at(slot)] - side) / 2, gui::y[at(slot)] + (gui::h[at(slot)] - side) / 2);
}

// ---- Descriptions --------------------------------------------------------------------------------------------------

/// The lines of the tool or ink whose description has the number `label`.
void draw_description(int slot) {
    GUI_box(slot, color_of(slot), ui_border);
    const Description* const description = find_description(gui::label[at(slot)]);
    if (description == nullptr) return;
    constexpr int left = 2, top = 13, line_h = 6;
    set_font(FONT_WIDE, TEXT_HIGHLIGHT);
    int y = gui::y[at(slot)] + top;
    for (const std::string_view line : *description) {
        UA_text(screen_buffer, gui::x[at(slot)] + left, y, line);
        y += line_h;
    }
}

}  // namespace nubo
