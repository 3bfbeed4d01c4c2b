#include "windows/guides_window.h"

#include "gui/columns.h"
#include "gui/text_field.h"
#include "paint/image_maps.h"
#include "state/frames.h"
#include "state/guides.h"
#include "view/view.h"
#include "windows/axis_handle.h"
#include "windows/guide_switches.h"
#include "windows/kit/number_field.h"
#include "windows/kit/run_window.h"
#include "windows/kit/window_rows.h"
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace nubo {
namespace {

// ---- The window as rows ---------------------------------------------------------------------------------------------

enum GuideSlot : int {
    GUIDE_SYMMETRY_CAPTION = slot_content,
    GUIDE_AXIS_CAPTION,
    GUIDE_TILES_CAPTION,
    GUIDE_GHOST_CAPTION,
    GUIDE_BEFORE_CAPTION,
    GUIDE_AFTER_CAPTION,
    GUIDE_STRENGTH_CAPTION,
    GUIDE_GRID_CAPTION,
    GUIDE_CELL_CAPTION,
    GUIDE_GHOST_FIRST,  // one for each Ghost
    GUIDE_BEFORE = GUIDE_GHOST_FIRST + GHOST_COUNT,
    GUIDE_AFTER,
    GUIDE_STRENGTH,
    GUIDE_PIN,
    GUIDE_PIXELS,
    GUIDE_CELLS,
    GUIDE_SNAP,
    GUIDE_CHECKER,
    GUIDE_TILES_FIRST,  // one for each Tiling
    GUIDE_RIM = GUIDE_TILES_FIRST + TILES_COUNT,
    GUIDE_SYMMETRY_FIRST,  // one for each Symmetry
    GUIDE_AXIS_X_CAPTION = GUIDE_SYMMETRY_FIRST + SYMMETRY_COUNT,
    GUIDE_AXIS_X,
    GUIDE_AXIS_Y_CAPTION,
    GUIDE_AXIS_Y,
    GUIDE_CENTER,
    GUIDE_CELL_FIRST,  // a caption and a field for each of the cell's four numbers
    GUIDE_OKAY = GUIDE_CELL_FIRST + 8,
    GUIDE_CANCEL,
    GUIDE_SLOTS
};

/// One of a group: the number it stands for tells its column, too.
constexpr ElementRow choice_row(int first, int choice, int y, Message tooltip, const char* text) {
    return button_row(first + choice, choice, y, tooltip, text);
}
constexpr ElementRow field_row(int slot, int x, int y, int w, Message tooltip) {
    return {.slot = slot,
            .type = ELEMENT_TEXT_FIELD,
            .x = x,
            .y = y,
            .w = w,
            .left = ACTION_FOCUS,
            .tooltip = tooltip,
            .fill = &ui_shadow};
}
constexpr ElementRow end_row(int slot, int x, Label label) {
    return {.slot = slot, .type = ELEMENT_BUTTON_LIT, .x = x, .y = 106, .w = 64, .label = label, .left = ACTION_CLICK};
}

/// Where a letter and the field behind it stand.
constexpr int pair_x(int pair) { return 58 + 64 * pair; }
/// Of the cell's four numbers.
constexpr ElementRow cell_caption(int number, const char* text) {
    return caption_row(GUIDE_CELL_FIRST + 2 * number, pair_x(number), 82, 11, text);
}
constexpr ElementRow cell_field(int number) {
    return field_row(GUIDE_CELL_FIRST + 2 * number + 1, pair_x(number) + 12, 82, 51, MESSAGE_GUIDE_CELL);
}

constexpr SliderRange ghosts_range{0, ghost_frames_max, 1}, strength_range{0, ghost_strength_max, 10};

constexpr std::array<ElementRow, GUIDE_SLOTS - slot_content> rows{{
    caption_row(GUIDE_SYMMETRY_CAPTION, row_caption_x, 12, row_caption_w, "SYMMETRY"),
    caption_row(GUIDE_AXIS_CAPTION, row_caption_x, 22, row_caption_w, "AXIS"),
    caption_row(GUIDE_TILES_CAPTION, row_caption_x, 32, row_caption_w, "TILES"),
    caption_row(GUIDE_GHOST_CAPTION, row_caption_x, 42, row_caption_w, "GHOST"),
    caption_row(GUIDE_BEFORE_CAPTION, row_caption_x, 52, row_caption_w, "BEFORE"),
    caption_row(GUIDE_AFTER_CAPTION, column_x(2), 52, column_w, "AFTER"),
    caption_row(GUIDE_STRENGTH_CAPTION, row_caption_x, 62, row_caption_w, "STRENGTH"),
    caption_row(GUIDE_GRID_CAPTION, row_caption_x, 72, row_caption_w, "GRID"),
    caption_row(GUIDE_CELL_CAPTION, row_caption_x, 82, row_caption_w, "CELL"),
    choice_row(GUIDE_SYMMETRY_FIRST, SYMMETRY_OFF, 12, MESSAGE_GUIDE_SYMMETRY, "OFF"),
    choice_row(GUIDE_SYMMETRY_FIRST, SYMMETRY_ACROSS, 12, MESSAGE_GUIDE_SYMMETRY, "ACROSS"),
    choice_row(GUIDE_SYMMETRY_FIRST, SYMMETRY_DOWN, 12, MESSAGE_GUIDE_SYMMETRY, "DOWN"),
    choice_row(GUIDE_SYMMETRY_FIRST, SYMMETRY_BOTH, 12, MESSAGE_GUIDE_SYMMETRY, "BOTH"),
    choice_row(GUIDE_SYMMETRY_FIRST, SYMMETRY_TURN_2, 12, MESSAGE_GUIDE_SYMMETRY, "TURN 2"),
    choice_row(GUIDE_SYMMETRY_FIRST, SYMMETRY_TURN_4, 12, MESSAGE_GUIDE_SYMMETRY, "TURN 4"),
    caption_row(GUIDE_AXIS_X_CAPTION, pair_x(0), 22, 11, "X"),
    field_row(GUIDE_AXIS_X, pair_x(0) + 12, 22, 51, MESSAGE_GUIDE_AXIS),
    caption_row(GUIDE_AXIS_Y_CAPTION, pair_x(1), 22, 11, "Y"),
    field_row(GUIDE_AXIS_Y, pair_x(1) + 12, 22, 51, MESSAGE_GUIDE_AXIS),
    push_row(GUIDE_CENTER, pair_x(2), 22, 63, MESSAGE_GUIDE_CENTER, "CENTER"),
    choice_row(GUIDE_TILES_FIRST, TILES_OFF, 32, MESSAGE_GUIDE_TILES, "OFF"),
    choice_row(GUIDE_TILES_FIRST, TILES_BOTH, 32, MESSAGE_GUIDE_TILES, "BOTH"),
    choice_row(GUIDE_TILES_FIRST, TILES_ACROSS, 32, MESSAGE_GUIDE_TILES, "ACROSS"),
    choice_row(GUIDE_TILES_FIRST, TILES_DOWN, 32, MESSAGE_GUIDE_TILES, "DOWN"),
    button_row(GUIDE_RIM, TILES_COUNT, 32, MESSAGE_GUIDE_RIM, "RIM"),
    choice_row(GUIDE_GHOST_FIRST, GHOST_OFF, 42, MESSAGE_GUIDE_GHOST, "OFF"),
    choice_row(GUIDE_GHOST_FIRST, GHOST_BEHIND, 42, MESSAGE_GUIDE_GHOST, "BEHIND"),
    choice_row(GUIDE_GHOST_FIRST, GHOST_OVER, 42, MESSAGE_GUIDE_GHOST, "OVER"),
    slider_row(GUIDE_BEFORE, column_x(0), 52, 85, MESSAGE_GUIDE_GHOST_FRAMES, ghosts_range),
    slider_row(GUIDE_AFTER, column_x(3), 52, 85, MESSAGE_GUIDE_GHOST_FRAMES, ghosts_range),
    slider_row(GUIDE_STRENGTH, column_x(0), 62, columns_w, MESSAGE_GUIDE_GHOST_STRENGTH, strength_range),
    button_row(GUIDE_PIN, 5, 52, MESSAGE_GUIDE_GHOST_PIN, "PIN"),
    button_row(GUIDE_PIXELS, 0, 72, MESSAGE_GUIDE_GRID_PIXELS, "PIXELS"),
    button_row(GUIDE_CELLS, 1, 72, MESSAGE_GUIDE_GRID_CELLS, "CELLS"),
    button_row(GUIDE_SNAP, 2, 72, MESSAGE_GUIDE_SNAP, "SNAP"),
    button_row(GUIDE_CHECKER, 3, 72, MESSAGE_GUIDE_CHECKER, "CHECKER"),
    cell_caption(0, "W"),
    cell_field(0),
    cell_caption(1, "H"),
    cell_field(1),
    cell_caption(2, "X"),
    cell_field(2),
    cell_caption(3, "Y"),
    cell_field(3),
    end_row(GUIDE_OKAY, 2, LABEL_OKAY),
    end_row(GUIDE_CANCEL, 254, LABEL_CANCEL),
}};
// Rows that have their places by pairs stand in any order; each slot has one.
static_assert([] {
    for (int slot = slot_content; slot < GUIDE_SLOTS; ++slot)
        if (std::ranges::count(rows, slot, &ElementRow::slot) != 1) return false;
    return true;
}());

constexpr WindowRow window{.id = WINDOW_BOX,
                           .place = POS_HOTKEYS_AND_OPTIONS,
                           .x = 0,
                           .y = 123,
                           .w = 319,
                           .h = 116,
                           .child_count = GUIDE_SLOTS,
                           .title_text = "GUIDES",
                           .title_w = 51,
                           .elements = rows,
                           .okay = GUIDE_OKAY,
                           .cancel = GUIDE_CANCEL,
                           .key = HOTKEY_GUIDES,
                           .outside = OUTSIDE_HIDES,
                           .pans = true};

// ---- Its elements and the guides ------------------------------------------------------------------------------------

/// Buttons of which one is lit; their first one stands for 0.
struct ChoiceGroup {
    int first, count;
    int (*chosen)();
    void (*choose)(int);
};
constexpr std::array<ChoiceGroup, 3> choices{{
    {GUIDE_SYMMETRY_FIRST, SYMMETRY_COUNT, [] { return guides.symmetry; }, choose_symmetry},
    {GUIDE_TILES_FIRST, TILES_COUNT, [] { return int{guides.tiles}; }, choose_tiles},
    {GUIDE_GHOST_FIRST, GHOST_COUNT, [] { return guides.ghost; }, choose_ghost},
}};

/// A button that is lit or not.
struct Switch {
    int slot;
    int Guides::*flag;
    int lit = 1;  // the flag's value where it is
};
constexpr std::array<Switch, 5> switches{{
    {GUIDE_RIM, &Guides::hides_rim, 0},
    {GUIDE_PIXELS, &Guides::pixel_grid},
    {GUIDE_CELLS, &Guides::cell_grid},
    {GUIDE_SNAP, &Guides::snap},
    {GUIDE_CHECKER, &Guides::checker},
}};

struct NumberField {
    int slot;
    int Guides::*number;
    int lowest;
};
constexpr std::array<NumberField, 4> numbers{{
    {GUIDE_CELL_FIRST + 1, &Guides::cell_w, 1},
    {GUIDE_CELL_FIRST + 3, &Guides::cell_h, 1},
    {GUIDE_CELL_FIRST + 5, &Guides::cell_x, 0},
    {GUIDE_CELL_FIRST + 7, &Guides::cell_y, 0},
}};

/// An axis in pixels and halves: 15.5 lies between the pixels 15 and 16.
struct AxisField {
    int slot;
    int Guides::*axis;
    const Shared<int>* extent;  // of the Frame
    int middle_of() const { return axis_of(guides.*axis, *extent); }
};
constexpr std::array<AxisField, 2> axes{{
    {GUIDE_AXIS_X, &Guides::axis_x, &frame_w},
    {GUIDE_AXIS_Y, &Guides::axis_y, &frame_h},
}};

void show_axis(const AxisField& field) {
    const int s = field.middle_of();
    std::array<char, 16> text;
    std::snprintf(text.data(), text.size(), s % 2 == 0 ? "%d" : "%d.5", s / 2);
    constexpr int letters = 7;
    GUI_set_field(field.slot, {.visible = letters, .max = letters, .font = FONT_WIDE}, text.data());
}

/// The field's text in half pixels; -1 if that isn't what it holds.
int read_axis(const AxisField& field) {
    std::array<char, 16> text{};
    GUI_read_field(field.slot, text);
    char* end = nullptr;
    const double place = std::strtod(text.data(), &end);
    const bool is_place = end != text.data() && *end == '\0' && place >= 0 && 2 * place < axis_max;
    return is_place ? static_cast<int>(std::lround(2 * place)) : -1;
}

/// A slider writes a word of its own.
struct Slid {
    int slot;
    int Guides::*number;
};
constexpr std::array<Slid, 3> slid{{
    {GUIDE_BEFORE, &Guides::ghosts_before},
    {GUIDE_AFTER, &Guides::ghosts_after},
    {GUIDE_STRENGTH, &Guides::ghost_strength},
}};
constinit std::array<Word, slid.size()> slid_words{};

void fill_window() {
    for (std::size_t i = 0; i < slid.size(); ++i) {
        slid_words[i] = guides.*slid[i].number;
        GUI_link_slider(slid[i].slot, &slid_words[i]);
    }
    for (const NumberField& field : numbers) set_number(field.slot, guides.*field.number);
    for (const AxisField& field : axes) show_axis(field);
}

void light_buttons() {
    for (const ChoiceGroup& group : choices)
        for (int i = 0; i < group.count; ++i) GUI_light_button(group.first + i, group.chosen() == i);
    for (const Switch& one : switches) GUI_light_button(one.slot, guides.*one.flag == one.lit);
    GUI_light_button(GUIDE_PIN, guides.pinned_frame != 0);
}

/// What is typed counts at once, as far as it makes sense; a field that is left shows what has come of it.
void follow_fields() {
    for (const NumberField& field : numbers) {
        int& number = guides.*field.number;
        const int typed = read_number(field.slot);
        if (key_focus == field.slot && typed >= field.lowest && typed <= cell_side_max) number = typed;
        if (key_focus != field.slot && typed != number) set_number(field.slot, number);
    }
    for (const AxisField& field : axes) {
        const int typed = read_axis(field);
        if (key_focus == field.slot && typed >= 0 && typed != field.middle_of()) guides.*field.axis = typed + 1;
        if (key_focus != field.slot && typed != field.middle_of()) show_axis(field);
    }
}

void follow_window() {
    for (std::size_t i = 0; i < slid.size(); ++i) guides.*slid[i].number = slid_words[i];
    follow_fields();
    light_buttons();
}

WindowPass serve_window() {
    for (const ChoiceGroup& group : choices)
        for (int i = 0; i < group.count; ++i)
            if (take_click(group.first + i) > 0) group.choose(i);
    for (const Switch& one : switches)
        if (take_click(one.slot) > 0) guides.*one.flag = guides.*one.flag == 0 ? 1 : 0;
    if (take_click(GUIDE_PIN) > 0) guides.pinned_frame = guides.pinned_frame == 0 ? frame_index + 1 : 0;
    for (const NumberField& field : numbers)
        if (take_click(field.slot) > 0) key_focus = -1;  // by ENTER
    for (const AxisField& field : axes)
        if (take_click(field.slot) > 0) key_focus = -1;
    if (take_click(GUIDE_CENTER) > 0) {
        key_focus = -1;  // what a field holds doesn't count any more
        guides.axis_x = guides.axis_y = axis_in_the_middle;
    }
    serve_axis_handles();
    keep_last_grids();
    return WINDOW_STAYS;
}

}  // namespace

void guides_window() {
    Guides before;
    before = guides;
    const AxisHandles handles;
    const WindowPass end = run_window(window, {.built = fill_window, .show = follow_window, .serve = serve_window});
    if (end != WINDOW_CANCELLED) return;
    view_to_frame();  // as long as there are the tiles that it may have gone along
    guides = before;
    view_clamp();
}

}  // namespace nubo
