#include "windows/colors/color_window.h"

#include "gui/columns.h"
#include "gui/presses.h"
#include "paint/spectrum.h"
#include "state/mouse.h"
#include "state/run.h"
#include "windows/colors/color_elements.h"
#include "windows/colors/free_color.h"
#include "windows/colors/hex_field.h"
#include "windows/colors/screen_pick.h"
#include "windows/kit/run_window.h"
#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>

namespace nubo {
namespace {

// ---- The window as rows --------------------------------------------------------------------------------------------

constexpr int slider_count = 3, variant_count = 14, variant_steps = 7, swatch_w = 10, swatch_pitch = 11;
constexpr int row_pitch = 10;
constexpr SliderRange component_range{.highest = 255}, vga_range{.highest = 63, .step = 3};

constexpr int space_slot(Colorspace space) { return COLOR_SPACE_FIRST + static_cast<int>(space); }

constexpr ElementRow space_row(Colorspace space, int x, int y, Label label, Action action, Message tooltip) {
    return {.slot = space_slot(space), .x = x, .y = y, .label = label, .left = action, .tooltip = tooltip};
}

constexpr ElementRow color_slot_row(int index) {
    constexpr int left = 104, top = 2, columns = 5;
    return {.slot = COLOR_SLOT_FIRST + index,
            .type = ELEMENT_SWATCH,
            .x = left + swatch_pitch * (index % columns),
            .y = top + row_pitch * (index / columns),
            .w = swatch_w,
            .left = ACTION_CLICK,
            .right = ACTION_CLICK_RIGHT,
            .tooltip = MESSAGE_COLOR_SLOT};
}

constexpr ElementRow spectrum_button_row(int slot, int x, Label label, Action right, Message tooltip) {
    constexpr int y = 22;
    return {.slot = slot,
            .type = ELEMENT_BUTTON_LIT_DARK,
            .x = x,
            .y = y,
            .w = swatch_w,
            .label = label,
            .left = ACTION_CLICK,
            .right = right,
            .tooltip = tooltip};
}

constexpr ElementRow name_row(int index) {
    return {.slot = COLOR_NAME_FIRST + index, .x = 159, .y = 2 + row_pitch * index, .w = 19, .fill = &ui_border};
}

constexpr ElementRow slider_row(int index) {
    return {.slot = COLOR_SLIDER_FIRST + index,
            .type = ELEMENT_BOX,
            .x = 179,
            .y = 2 + row_pitch * index,
            .w = 139,
            .tooltip = MESSAGE_COLOR_SLIDER,
            .range = component_range};
}

constexpr ElementRow caption_row(int slot, int y, Label label, int w = 156) {
    return {.slot = slot, .x = 2, .y = y, .w = w, .label = label, .fill = &ui_border};
}

/// The steps stand in two halves, beside the middle. Their number is the cell's label.
constexpr ElementRow variant_row(int first, ElementType type, int index, int y) {
    constexpr int left = 2, right_half = 82, half = variant_count / 2;
    const int rising = index < half ? index - variant_steps : index - half + 1;
    return {.slot = first + index,
            .type = type,
            .x = index < half ? left + swatch_pitch * index : right_half + swatch_pitch * (index - half),
            .y = y,
            .w = swatch_w,
            .label = static_cast<Label>(type == ELEMENT_VARIANT_HUE ? rising : -rising),
            .left = ACTION_CLICK_ONE,
            .tooltip = MESSAGE_COLOR_VARIATION};
}

/// Beside the first caption.
constexpr ElementRow digits_row{.slot = COLOR_HEX,
                                .type = ELEMENT_TEXT_FIELD,
                                .x = 114,
                                .y = 32,
                                .w = 44,
                                .left = ACTION_FOCUS,
                                .tooltip = MESSAGE_HEX_COLOR,
                                .fill = &ui_shadow};

using ColorRows = std::array<ElementRow, COLOR_SLOTS - slot_content>;

consteval ColorRows color_rows() {
    ColorRows rows{};
    std::size_t next = 0;
    const auto add = [&](const ElementRow& row) { rows[next++] = row; };
    add(space_row(SPACE_VGA, 2, 12, LABEL_VGA, ACTION_SPACE_VGA, MESSAGE_SPACE_VGA));
    add(space_row(SPACE_RGB, 42, 12, LABEL_RGB, ACTION_SPACE_RGB, MESSAGE_SPACE_RGB));
    add(space_row(SPACE_HLS, 2, 22, LABEL_HLS, ACTION_SPACE_HLS, MESSAGE_SPACE_HLS));
    add(space_row(SPACE_HSV, 42, 22, LABEL_HSV, ACTION_SPACE_HSV, MESSAGE_SPACE_HSV));
    add({.slot = COLOR_BRUSH, .type = ELEMENT_BOX, .x = 82, .y = 12, .w = 21});
    add({.slot = COLOR_MASK, .type = ELEMENT_SWATCH_MASK, .x = 82, .y = 2, .w = 21});
    for (int i = 0; i < color_slot_count; ++i) add(color_slot_row(i));
    add(spectrum_button_row(COLOR_FOLD, 82, LABEL_FOLD, ACTION_CLICK_RIGHT, MESSAGE_FOLD_SPECTRUM));
    add(spectrum_button_row(COLOR_INVERT, 93, LABEL_INVERT, ACTION_CLICK, MESSAGE_INVERT_SPECTRUM));
    for (int i = 0; i < slider_count; ++i) add(name_row(i));
    for (int i = 0; i < slider_count; ++i) add(slider_row(i));
    add({.slot = COLOR_SPECTRUM,
         .type = ELEMENT_SPECTRUM,
         .x = 104,
         .y = 22,
         .w = 54,
         .left = ACTION_CLICK,
         .right = ACTION_CLICK_RIGHT,
         .tooltip = MESSAGE_SPECTRUM});
    add(caption_row(COLOR_CAPTION_HUE, 32, LABEL_VARIANCE_HUE, 111));  // the field of digits beside it
    add(caption_row(COLOR_CAPTION_LIGHT, 52, LABEL_VARIANCE_LIGHT));
    add(caption_row(COLOR_CAPTION_SATURATION, 72, LABEL_VARIANCE_SATURATION));
    for (int i = 0; i < variant_count; ++i) add(variant_row(COLOR_HUE_FIRST, ELEMENT_VARIANT_HUE, i, 42));
    for (int i = 0; i < variant_count; ++i) add(variant_row(COLOR_LIGHT_FIRST, ELEMENT_VARIANT_LIGHT, i, 62));
    for (int i = 0; i < variant_count; ++i) add(variant_row(COLOR_SATURATION_FIRST, ELEMENT_VARIANT_SAT, i, 82));
    add({.slot = COLOR_MAP,
         .type = ELEMENT_MAP_RGB,
         .x = 159,
         .y = 32,
         .w = 159,
         .h = 59,
         .left = ACTION_CLICK_ONE_INSIDE,
         .tooltip = MESSAGE_COLOR_MAP});
    add(digits_row);
    return rows;
}

constexpr ColorRows rows = color_rows();
static_assert(rows_in_order(rows, &ElementRow::slot, slot_content));

constexpr WindowRow window{.id = WINDOW_COLOR,
                           .place = POS_COLOR,
                           .x = 0,
                           .y = 147,
                           .w = 319,
                           .h = 92,
                           .child_count = COLOR_SLOTS,
                           .title = LABEL_COLORSPACE,
                           .title_w = 79,
                           .elements = rows,
                           .key = HOTKEY_COLOR_MENU,
                           .outside = OUTSIDE_CANCELS};

// ---- The colour in work --------------------------------------------------------------------------------------------

/// The edited colour stands where it belongs, and the sliders are a view of it. As long as they stand where they
/// started, the colour is the one of the start to the bit: not every colour has a place on the sliders of every space.
struct Edit {
    Color& color;
    Color start_color;
    std::array<int, slider_count> start_sliders{};
    std::string digits{};               // as last seen in the field
    std::optional<Color> free_color{};  // as last taken for the mask colour
};

bool edits_mask(const Edit& edit) { return &edit.color == &mask_color; }

Colorspace space_shown() { return static_cast<Colorspace>(colorspace); }

std::array<int, slider_count> sliders_shown() {
    std::array<int, slider_count> sliders{};
    for (int i = 0; i < slider_count; ++i) sliders[at(i)] = gui::slider_value[at(COLOR_SLIDER_FIRST + i)];
    return sliders;
}

void move_sliders(const std::array<int, slider_count>& sliders) {
    for (int i = 0; i < slider_count; ++i) gui::slider_value[at(COLOR_SLIDER_FIRST + i)] = sliders[at(i)];
}

void start_sliders(Edit& edit) {
    edit.start_color = edit.color;
    edit.start_sliders = color_to_sliders(space_shown(), edit.color);
    move_sliders(edit.start_sliders);
}

/// A colour from a swatch or the screen goes by way of the sliders, so that it is one of the space.
void take_color(Color color) { move_sliders(color_to_sliders(space_shown(), color)); }

void follow_sliders(Edit& edit) {
    const auto sliders = sliders_shown();
    edit.color = sliders == edit.start_sliders ? edit.start_color
                                               : sliders_to_color(space_shown(), sliders[0], sliders[1], sliders[2]);
}

/// The colour that the user has typed, to the bit, or else the edited one in the field.
void follow_digits(Edit& edit) {
    const bool types = key_focus == COLOR_HEX;
    const std::string digits = read_hex_field(COLOR_HEX);
    const auto typed = digits == edit.digits ? std::nullopt : color_of_digits(digits);
    edit.digits = digits;
    if (typed) {
        edit.color = *typed;
        start_sliders(edit);
    } else if (color_of_digits(digits) != edit.color && (digits.size() == hex_digit_count || !types)) {
        edit.digits = show_hex_color(COLOR_HEX, edit.color);
    }
    if (take_click(COLOR_HEX) > 0) key_focus = -1;  // ENTER
}

Color& color_to_edit(int mode, Color& given) {
    if (mode == EDIT_BRUSH_COLOR) return brush_color;
    return mode == EDIT_MASK_COLOR ? mask_color : given;
}

// ---- Showing -------------------------------------------------------------------------------------------------------

/// What a space looks like in the window.
struct SpaceRow {
    Colorspace space;
    ElementType map;
    std::array<Label, slider_count> names;
    SliderRange range;
};
constexpr std::array<SpaceRow, SPACE_COUNT> spaces{{
    {SPACE_VGA, ELEMENT_MAP_VGA, {LABEL_RED, LABEL_GREEN, LABEL_BLUE}, vga_range},
    {SPACE_RGB, ELEMENT_MAP_RGB, {LABEL_RED, LABEL_GREEN, LABEL_BLUE}, component_range},
    {SPACE_HLS, ELEMENT_MAP_HLS, {LABEL_HLS_HUE, LABEL_HLS_LIGHT, LABEL_HLS_SATURATION}, component_range},
    {SPACE_HSV, ELEMENT_MAP_HSV, {LABEL_HSV_HUE, LABEL_HSV_SATURATION, LABEL_HSV_VALUE}, component_range},
}};
static_assert(rows_in_order(spaces, &SpaceRow::space));

void show_space(const SpaceRow& space) {
    for (const SpaceRow& each : spaces) GUI_light_button(space_slot(each.space), each.space == space.space);
    for (int i = 0; i < slider_count; ++i) {
        gui::label[at(COLOR_NAME_FIRST + i)] = space.names[at(i)];
        GUI_set_range(COLOR_SLIDER_FIRST + i, space.range);
    }
    gui::type[at(COLOR_MAP)] = static_cast<std::int16_t>(space.map);
}

/// The sliders keep the colour, not their numbers, which mean something else in another space.
void enter_space(Edit& edit, Colorspace space) {
    colorspace = space;
    show_space(spaces[at(space)]);
    start_sliders(edit);
}

void finish_window(Edit& edit) {
    for (int i = 0; i < slider_count; ++i)
        map_slider_of(COLOR_MAP, i) = static_cast<std::int16_t>(COLOR_SLIDER_FIRST + i);
    border_color_of(COLOR_SPECTRUM) = static_cast<int>(ui_border);
    colorspace = std::clamp<int>(colorspace, SPACE_VGA, SPACE_COUNT - 1);
    enter_space(edit, space_shown());
    if (!edits_mask(edit)) return;
    gui::left_action[at(COLOR_MASK)] = ACTION_CLICK;
    gui::tooltip[at(COLOR_MASK)] = MESSAGE_COLOR_FREE;
}

/// The field of the brush colour shows a colour handed in, in its place.
void refresh_swatches(const Edit& edit) {
    gui::color[at(COLOR_BRUSH)] = static_cast<int>(edits_mask(edit) ? brush_color : edit.color);
    for (int i = 0; i < color_slot_count; ++i)
        gui::color[at(COLOR_SLOT_FIRST + i)] = static_cast<int>(color_slots[at(i)]);
    for (int slot = COLOR_HUE_FIRST; slot < COLOR_MAP; ++slot) variant_middle_of(slot) = static_cast<int>(edit.color);
}

// ---- Serving the clicks --------------------------------------------------------------------------------------------

void serve_spaces(Edit& edit) {
    for (const SpaceRow& space : spaces)
        if (take_click(space_slot(space.space)) != 0) enter_space(edit, space.space);
}

/// The slot waits, visibly, for the user's pick.
void pick_for_slot(int index) {
    const std::size_t slot = at(COLOR_SLOT_FIRST + index);
    gui::type[slot] = ELEMENT_SWATCH_WAIT;
    const int color = pick_screen_color(false);
    gui::type[slot] = ELEMENT_SWATCH;
    if (color != pick_cancelled) color_slots[at(index)] = static_cast<Color>(color);
}

void serve_color_slots() {
    for (int i = 0; i < color_slot_count; ++i) {
        const int click = take_click(COLOR_SLOT_FIRST + i);
        if (click == click_right) pick_for_slot(i);
        if (click > 0) take_color(color_slots[at(i)]);
    }
}

void serve_spectrum() {
    constexpr int folds_max = 3;
    const int fold = take_click(COLOR_FOLD), strip = take_click(COLOR_SPECTRUM);
    if (fold != 0) spectrum_fold = std::clamp(spectrum_fold + (fold == click_right ? -1 : 1), 0, folds_max);
    if (take_click(COLOR_INVERT) != 0) std::swap(spectrum_start, spectrum_end);
    if (strip == click_right) pick_spectrum();
    if (strip > 0) take_color(pressed_spectrum_color(COLOR_SPECTRUM));
}

void serve_variants_and_map() {
    for (int slot = COLOR_HUE_FIRST; slot < COLOR_MAP; ++slot)
        if (take_click(slot) > 0) take_color(variant_color_of(slot));
    if (take_click(COLOR_MAP) > 0) map_to_sliders(space_shown(), COLOR_MAP);
}

/// The search runs in this window's place, which is then built again: the sliders start at the colour found.
void serve_mask_field(Edit& edit) {
    if (take_click(COLOR_MASK) <= 0) return;
    const std::optional<Color> found = free_color();
    if (!found) return;
    edit.color = *found;
    edit.free_color = found;
    start_sliders(edit);
}

void serve_press_on_screen() {
    if (!pressed_outside(mouse_left)) return;
    take_color(static_cast<Color>(pick_screen_color(true)));
    wait_while_down(mouse_left);
}

}  // namespace

Color color_window(int mode, Color color) {
    Edit edit{.color = color_to_edit(mode, color), .start_color = 0};
    const auto follow = [&] {
        follow_sliders(edit);
        follow_digits(edit);
    };
    const auto show = [&] {
        follow();
        refresh_swatches(edit);
    };
    const auto serve = [&] {
        serve_spaces(edit);
        serve_color_slots();
        serve_mask_field(edit);
        serve_spectrum();
        serve_variants_and_map();
        serve_press_on_screen();
        follow();
        return WINDOW_STAYS;
    };
    const Color before = edit.color;
    run_window(window, {.built = [&] { finish_window(edit); }, .show = show, .serve = serve});
    const bool is_free_mask = edits_mask(edit) && edit.free_color == edit.color && edit.color != before;
    if (is_free_mask && exit_requested == 0) ask_to_carry_mask(before, edit.color);
    return edit.color;
}

}  // namespace nubo
