#include "gui/elements.h"

#include "base/utf8.h"
#include "framework/traps.h"
#include <algorithm>
#include <string_view>

namespace nubo {
namespace {

constexpr int title_h = 9;

void clear_shape(std::size_t slot) {
    gui::type[slot] = gui::x[slot] = gui::y[slot] = gui::w[slot] = gui::h[slot] = 0;
    gui::hidden[slot] = gui::reserved[slot] = 0;
    gui::hot[slot] = 1;
    gui::left_action[slot] = gui::right_action[slot] = gui::middle_action[slot] = ACTION_NONE;
    gui::click[slot] = 0;
}

void clear_content(std::size_t slot) {
    gui::color[slot] = gui::label[slot] = 0;
    gui::value_text[slot] = nullptr;
    gui::value_ptr[slot] = nullptr;
    for (auto& letter : gui::panel_text[slot]) letter = '\0';
    gui::tooltip[slot] = gui::child_count[slot] = gui::border_style[slot] = gui::drag_id[slot] = 0;
    gui::source_x[slot] = gui::source_y[slot] = 0;
    for (std::size_t i = 0; i < gui::aux_parameters; ++i) gui::aux[slot * gui::aux_parameters + i] = -1;
}

void clear_list(std::size_t slot) {
    constexpr int row_h_default = 14;
    gui::rows[slot] = gui::row_top[slot] = gui::row_left[slot] = gui::row_w[slot] = 0;
    gui::row_h[slot] = row_h_default;
    gui::row_font[slot] = FONT_NARROW;
    for (auto& id : gui::row_ids[slot]) id = 0;
    for (auto& value : gui::row_values[slot]) value = 0;
    gui::hover_row[slot] = -1;
}

void clear_own_columns(std::size_t slot) {
    gui::toggle_number[slot] = gui::toggle_option[slot] = gui::radio_value[slot] = 0;
    gui::shown_number[slot] = gui::progress[slot] = gui::arrow_direction[slot] = gui::tip[slot] = 0;
}

void clear_slider(std::size_t slot) {
    constexpr int arrow_default = 10;
    gui::has_slider[slot] = gui::slider_horizontal[slot] = gui::slider_stops[slot] = 0;
    gui::slider_min[slot] = gui::slider_max[slot] = gui::slider_value[slot] = 0;
    gui::slider_ox[slot] = gui::slider_oy[slot] = gui::slider_len[slot] = 0;
    gui::wheel_step[slot] = 1;
    gui::knob_rect[slot] = {};
    gui::arrow_rect[slot] = {};
    gui::arrow_w[slot] = gui::arrow_h[slot] = arrow_default;
    gui::value_show[slot] = nullptr;
    gui::value_write[slot] = nullptr;
    gui::value_write_on[slot] = 0;
}

void clear_field(std::size_t slot) {
    gui::invalid[slot] = 0;
    for (auto& letter : gui::text[slot]) letter = '\0';
    gui::cursor[slot] = gui::field_visible[slot] = gui::field_max[slot] = gui::field_scroll[slot] = 0;
    gui::field_font[slot] = FONT_NARROW;
    gui::field_selects[slot] = SELECTS_ALL;
    gui::field_anchor[slot] = -1;
    gui::field_blink[slot] = 0;
}

void place(int slot, ElementType type, int x, int y, int w, int h) {
    const std::size_t s = at(slot);
    gui::type[s] = static_cast<std::int16_t>(type);
    gui::x[s] = static_cast<std::int16_t>(x);
    gui::y[s] = static_cast<std::int16_t>(y);
    gui::w[s] = static_cast<std::int16_t>(w);
    gui::h[s] = static_cast<std::int16_t>(h);
    gui::hidden[s] = 0;
}

/// Bytes of as many of the text's characters as fit into a field that takes `max` of them.
std::size_t size_of_characters(std::string_view text, int max) {
    std::size_t size = 0;
    for (; max > 0 && size < text.size(); --max) {
        const std::size_t end = size + first_character(text.substr(size)).size;
        if (end >= field_size) break;
        size = end;
    }
    return size;
}

/// Shows the slot: last, so that the handler meets no element that is half built.
void activate(int slot) {
    gui::reserved[at(slot)] = 1;
    gui::active[at(slot)] = 1;
}

}  // namespace

// ---- Slots ---------------------------------------------------------------------------------------------------------

int GUI_clear_element(int slot) {
    if (!GUI_check_window(slot, "GUI_clear_element")) return slot;
    gui::active[at(slot)] = 0;  // first, so that the handler leaves the slot alone
    clear_shape(at(slot));
    clear_content(at(slot));
    clear_list(at(slot));
    clear_own_columns(at(slot));
    clear_slider(at(slot));
    clear_field(at(slot));
    return slot;
}

int GUI_find_free(bool from_top) {
    const auto is_free = [](int slot) { return gui::active[at(slot)] == 0 && gui::reserved[at(slot)] == 0; };
    if (from_top) {
        for (int slot = free_slot_top; slot > slot_window; --slot)
            if (is_free(slot)) return slot;
    } else {
        for (int slot = slot_window + 1; slot < gui_slots; ++slot)
            if (is_free(slot)) return slot;
    }
    return -1;
}

void GUI_close_window() {
    const int count = std::clamp<int>(gui::child_count[slot_window], 0, gui_slots);
    for (int slot = 0; slot < count; ++slot) GUI_clear_element(slot);
}

// ---- Builders ------------------------------------------------------------------------------------------------------

void GUI_add_window(int x, int y, int w, int h, int count, int base) {
    if (!GUI_check_window(base, "GUI_add_window")) return;
    place(base, ELEMENT_WINDOW, x, y, w, h);
    gui::color[at(base)] = static_cast<int>(ui_background);
    gui::child_count[at(base)] = static_cast<std::int16_t>(count);
    activate(base);
}

void GUI_add_title(int x, int y, int w, Label label, int base) {
    const int slot = base + slot_title;
    if (!GUI_check_window(slot, "GUI_add_title")) return;
    place(slot, ELEMENT_TITLE, x, y, w, title_h);
    gui::left_action[at(slot)] = ACTION_DRAG;
    gui::tooltip[at(slot)] = MESSAGE_DRAG_TITLE;
    gui::color[at(slot)] = static_cast<int>(ui_shadow);
    gui::label[at(slot)] = label;
    activate(slot);
}

void GUI_add_button(int slot, int x, int y, Color color, Label label) {
    if (!GUI_check_window(slot, "GUI_add_button")) return;
    place(slot, ELEMENT_BUTTON, x, y, button_w, button_h);
    gui::color[at(slot)] = static_cast<int>(color);
    gui::label[at(slot)] = label;
    activate(slot);
}

void GUI_light_button(int slot, bool is_on) { gui::type[at(slot)] = is_on ? ELEMENT_BUTTON_DOWN : ELEMENT_BUTTON; }

void GUI_add_label(int slot, int x, int y, int w, Label label) {
    if (!GUI_check_window(slot, "GUI_add_label")) return;
    place(slot, ELEMENT_BUTTON, x, y, w, button_h);
    gui::color[at(slot)] = static_cast<int>(ui_border);
    gui::label[at(slot)] = label;
    activate(slot);
}

void GUI_add_slider(int slot, int x, int y, int w, int stops) {
    if (!GUI_check_window(slot, "GUI_add_slider")) return;
    const std::size_t s = at(slot);
    place(slot, ELEMENT_BOX, x, y, w, button_h);
    gui::color[s] = static_cast<int>(ui_background);
    gui::slider_horizontal[s] = 1;
    GUI_set_range(slot, {.highest = stops - 1});
    gui::slider_value[s] = 0;
    gui::value_show[s] = &gui::slider_value[s];
    GUI_set_slider_sprites(slot);
    gui::has_slider[s] = 1;
    activate(slot);
}

void GUI_set_slider_sprites(int slot) {
    if (!GUI_check_window(slot, "GUI_set_slider_sprites")) return;
    constexpr int arrow_side = 7;
    const std::size_t s = at(slot);
    gui::arrow_w[s] = gui::arrow_h[s] = arrow_side;
    if (gui::slider_horizontal[s] != 0) {
        gui::knob_rect[s] = {32, 125, 5, 9};
        gui::arrow_rect[s] = {3, 141, 20, 141};
    } else {
        gui::knob_rect[s] = {31, 112, 9, 7};
        gui::arrow_rect[s] = {4, 114, 19, 114};
    }
}

// ---- More for lists, sliders and fields ----------------------------------------------------------------------------

void GUI_set_range(int slot, const SliderRange& range) {
    if (!GUI_check_window(slot, "GUI_set_range")) return;
    const std::size_t s = at(slot);
    const int stops = std::min(range.highest - range.lowest + 1, slider_stop_max);
    gui::slider_min[s] = range.lowest;
    gui::slider_max[s] = range.highest + 1;
    gui::slider_stops[s] = static_cast<std::int16_t>(stops);
    gui::wheel_step[s] = static_cast<std::int16_t>(range.step);
}

void GUI_set_vertical_slider(int slot, int ox, int oy, int stops, int wheel_step) {
    if (!GUI_check_window(slot, "GUI_set_vertical_slider")) return;
    const std::size_t s = at(slot);
    gui::slider_horizontal[s] = 0;
    gui::slider_ox[s] = static_cast<std::int16_t>(ox);
    gui::slider_oy[s] = static_cast<std::int16_t>(oy);
    GUI_set_range(slot, {.highest = stops - 1, .step = wheel_step});
    GUI_set_slider_sprites(slot);
    gui::has_slider[s] = 1;
}

void GUI_set_list(int slot, const ListLayout& layout, Label first, int count) {
    if (!GUI_check_window(slot, "GUI_set_list")) return;
    const std::size_t s = at(slot);
    for (int row = 0; row < list_row_max; ++row)
        gui::row_ids[s][at(row)] = static_cast<std::int16_t>(row < count ? first + row : LABEL_NONE);
    gui::row_h[s] = static_cast<std::int16_t>(layout.row_h);
    gui::row_font[s] = static_cast<std::int16_t>(layout.font);
    gui::row_w[s] = static_cast<std::int16_t>(layout.row_w);
    gui::row_top[s] = static_cast<std::int16_t>(layout.row_top);
    gui::row_left[s] = static_cast<std::int16_t>(layout.row_left);
    gui::rows[s] = static_cast<std::int16_t>(layout.rows);
}

void GUI_link_slider(int slot, Word* value) {
    if (!GUI_check_window(slot, "GUI_link_slider")) return;
    const std::size_t s = at(slot);
    gui::slider_value[s] = *value;
    gui::value_write[s] = value;
    gui::value_write_on[s] = 1;
}

void GUI_set_field(int slot, const FieldLayout& layout, const char* text) {
    if (!GUI_check_window(slot, "GUI_set_field")) return;
    const std::size_t s = at(slot);
    const std::size_t length = size_of_characters(text, layout.max);
    for (std::size_t i = 0; i < field_size; ++i) gui::text[s][i] = i < length ? text[i] : '\0';
    gui::cursor[s] = gui::field_scroll[s] = 0;
    gui::field_anchor[s] = -1;
    gui::field_selects[s] = layout.selects;
    gui::field_visible[s] = layout.visible;
    gui::field_max[s] = layout.max;
    gui::field_font[s] = layout.font;
    gui::left_action[s] = ACTION_FOCUS;
}

void GUI_read_field(int slot, std::span<char> text) {
    if (!GUI_check_window(slot, "GUI_read_field") || text.empty()) return;
    for (std::size_t i = 0; i + 1 < text.size(); ++i) text[i] = i < field_size ? char{gui::text[at(slot)][i]} : '\0';
    text.back() = '\0';
}

}  // namespace nubo
