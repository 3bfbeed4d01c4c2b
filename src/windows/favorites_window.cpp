#include "windows/favorites_window.h"

#include "base/keys.h"
#include "state/gui.h"
#include "windows/colors/color_window.h"
#include "windows/files/file_browser.h"
#include "windows/kit/confirm_box.h"
#include "windows/kit/run_window.h"
#include <algorithm>
#include <allegro.h>
#include <array>

namespace nubo {
namespace {

constexpr int rows_shown = 4, favorites_shown = rows_shown * favorites_row;
constexpr int page_last = 10, page_last_by_arrow = 8;  // the wheel reaches further than the arrow
enum FavoritesSlot : int {
    FAVORITES_SAVE = slot_content,
    FAVORITES_LOAD,
    FAVORITES_NUKE,
    FAVORITES_UP,
    FAVORITES_DOWN,
    FAVORITES_FIXED_SLOTS,
    FAVORITES_COLOR_FIRST = FAVORITES_FIXED_SLOTS,  // ten
    FAVORITES_FIRST = FAVORITES_COLOR_FIRST + color_slot_count,
    FAVORITES_WINDOW_SLOTS = FAVORITES_FIRST + favorites_shown
};

// clang-format off
constexpr std::array<ElementRow, FAVORITES_FIXED_SLOTS - slot_content> rows{{
    // slot          type                  x   y   w   h  label                 left          right        tooltip
    {FAVORITES_SAVE, ELEMENT_BUTTON_LIT,   2, 12, 30,  9, LABEL_WORKSPACE_SAVE, ACTION_CLICK, ACTION_NONE, MESSAGE_FAVORITES_SAVE},
    {FAVORITES_LOAD, ELEMENT_BUTTON_LIT,  33, 12, 30,  9, LABEL_WORKSPACE_LOAD, ACTION_CLICK, ACTION_NONE, MESSAGE_FAVORITES_LOAD},
    {FAVORITES_NUKE, ELEMENT_BUTTON_LIT, 266,  2, 52,  9, LABEL_NUKE,           ACTION_CLICK, ACTION_NONE, MESSAGE_FAVORITES_NUKE},
    {FAVORITES_UP,   ELEMENT_ARROW,      266, 12, 52, 14, LABEL_NONE,           ACTION_CLICK, ACTION_NONE, MESSAGE_FAVORITES_SCROLL},
    {FAVORITES_DOWN, ELEMENT_ARROW,      266, 27, 52, 14, LABEL_NONE,           ACTION_CLICK, ACTION_NONE, MESSAGE_FAVORITES_SCROLL},
}};
// clang-format on
static_assert(rows_in_order(rows, &ElementRow::slot, slot_content));

constexpr WindowRow window{.id = WINDOW_FAVORITES,
                           .place = POS_FAVORITES,
                           .x = 0,
                           .y = 197,
                           .w = 319,
                           .h = 42,
                           .child_count = FAVORITES_WINDOW_SLOTS,
                           .title = LABEL_FAVORITES,
                           .title_w = 61,
                           .elements = rows,
                           .key = HOTKEY_FAVORITES,
                           .outside = OUTSIDE_CANCELS,
                           .gives_way = true};

void build_swatch(int slot, int x, int y) {
    constexpr int swatch_w = 10, swatch_h = 9;
    build_element({.slot = slot,
                   .type = ELEMENT_SWATCH,
                   .x = x,
                   .y = y,
                   .w = swatch_w,
                   .h = swatch_h,
                   .left = ACTION_CLICK,
                   .right = ACTION_CLICK_RIGHT,
                   .tooltip = MESSAGE_FAVORITE},
                  window_x(), window_y());
}

void finish_window() {
    constexpr int pitch_x = 11, pitch_y = 10, colors_x = 2, colors_y = 22, colors_row = 5, grid_x = 66, grid_y = 2;
    gui::arrow_direction[at(FAVORITES_UP)] = ARROW_UP;
    gui::arrow_direction[at(FAVORITES_DOWN)] = ARROW_DOWN;
    for (int i = 0; i < color_slot_count; ++i)
        build_swatch(FAVORITES_COLOR_FIRST + i, colors_x + pitch_x * (i % colors_row),
                     colors_y + pitch_y * (i / colors_row));
    for (int i = 0; i < favorites_shown; ++i)
        build_swatch(FAVORITES_FIRST + i, grid_x + pitch_x * (i % favorites_row),
                     grid_y + pitch_y * (i / favorites_row));
}

/// The colour behind a swatch, null beyond the last favourite.
Color* color_of_swatch(int slot) {
    if (slot < FAVORITES_FIRST) return &color_slots[at(slot - FAVORITES_COLOR_FIRST)];
    const int index = favorites_page * favorites_row + slot - FAVORITES_FIRST;
    return index < favorite_count ? &favorites[at(index)] : nullptr;
}

void show_colors() {
    for (int slot = FAVORITES_COLOR_FIRST; slot < FAVORITES_WINDOW_SLOTS; ++slot) {
        const Color* const color = color_of_swatch(slot);
        gui::color[at(slot)] = static_cast<int>(color != nullptr ? *color : ui_background);
    }
}

void serve_swatches() {
    for (int slot = FAVORITES_COLOR_FIRST; slot < FAVORITES_WINDOW_SLOTS; ++slot) {
        const int click = take_click(slot);
        Color* const color = color_of_swatch(slot);
        if (click == 0 || color == nullptr) continue;
        if (click == click_right)
            *color = color_window(EDIT_GIVEN_COLOR, *color);
        else if (shift_is_down())
            *color = brush_color;
        else
            brush_color = *color;
    }
}

void nuke() {
    if (confirm(LABEL_CLEAR_FAVORITES, LABEL_CANT_BE_UNDONE)) favorites.fill(color_scheme[SCHEME_BACKGROUND]);
}

/// The arrows and the wheel move by rows.
void serve_scrolling(int& wheel) {
    const int turned = ::mouse_z - wheel;
    wheel += turned;
    if (take_click(FAVORITES_UP) != 0) favorites_page = std::max(favorites_page - 1, 0);
    if (take_click(FAVORITES_DOWN) != 0 && favorites_page < page_last_by_arrow) ++favorites_page;
    if (turned != 0 && hover != -1) favorites_page = std::clamp(favorites_page + (turned > 0 ? -1 : 1), 0, page_last);
}

}  // namespace

void favorites_window() {
    favorites_page = std::clamp(favorites_page, 0, page_last);
    int wheel = ::mouse_z;
    const auto serve = [&] {
        serve_swatches();
        serve_scrolling(wheel);
        if (take_click(FAVORITES_SAVE) != 0) file_browser(BROWSE_TO_SAVE, PURPOSE_FAVORITES);
        if (take_click(FAVORITES_LOAD) != 0) file_browser(BROWSE_TO_LOAD, PURPOSE_FAVORITES);
        if (take_click(FAVORITES_NUKE) != 0) nuke();
        return WINDOW_STAYS;
    };
    run_window(window, {.built = finish_window, .show = show_colors, .serve = serve});
}

}  // namespace nubo
