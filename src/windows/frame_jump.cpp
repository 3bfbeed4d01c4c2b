#include "windows/frame_jump.h"

#include "base/keys.h"
#include "codecs/blend.h"
#include "framework/text.h"
#include "gui/columns.h"
#include "gui/hit_test.h"
#include "gui/shapes.h"
#include "gui/window.h"
#include "state/flow.h"
#include "state/frames.h"
#include "state/mouse.h"
#include "state/run.h"
#include "state/windows.h"
#include "windows/kit/draw_elements.h"
#include "windows/kit/drawing_menu.h"
#include "workspace/frame_store.h"
#include "workspace/nail.h"
#include <algorithm>
#include <allegro.h>
#include <array>
#include <cstdio>

namespace nubo {
namespace {

constexpr int board_rows = 5, board_columns = 7, board_slots = board_rows * board_columns;
constexpr int focus_slot = board_slots / 2;  // the middle of the board
constexpr int board_x = 10, board_y = 12, thumbnail_side = 42, pitch = 43;
constexpr int hold_ticks = 100;  // of the 500 Hz clock: a shorter press of the key jumps nowhere
constexpr int no_frame = -1;     // of an empty thumbnail

int frame_of_slot(int slot, int focus) { return focus + slot - focus_slot; }

bool is_frame(int frame) { return frame >= 0 && frame < frame_count; }

void clear_elements() {
    for (int slot = 0; slot < gui_slots; ++slot) GUI_clear_element(slot);
}

void build_board() {
    menu_id = WINDOW_BOX;  // so that no zoom preview is built over it
    for (int slot = 0; slot < board_slots; ++slot)
        build_element({.slot = slot,
                       .type = ELEMENT_THUMBNAIL,
                       .x = pitch * (slot % board_columns),
                       .y = pitch * (slot / board_columns),
                       .w = thumbnail_side,
                       .h = thumbnail_side,
                       .left = ACTION_CLICK_ONE},
                      board_x, board_y);
}

void show_board(int focus, int marked) {
    for (int slot = 0; slot < board_slots; ++slot) {
        const int frame = frame_of_slot(slot, focus);
        thumbnail_frame_of(slot) = is_frame(frame) ? frame : no_frame;
        gui::border_style[at(slot)] = slot == marked ? border_ants : 0;
    }
}

/// The wheel moves the board by a row, a press brings its thumbnail into the middle.
int move_focus(int focus, int wheel) {
    if (wheel != 0) focus = std::clamp(focus + (wheel > 0 ? -board_columns : board_columns), 0, frame_count - 1);
    for (int slot = 0; slot < board_slots; ++slot)
        if (take_click(slot) > 0 && is_frame(frame_of_slot(slot, focus))) return frame_of_slot(slot, focus);
    return focus;
}

struct Choice {
    int focus = 0, marked = -1;
};

/// The thumbnail of a Frame that the hand has moved the mouse to, or else the one marked before. By the mouse's place:
/// `hover` may still tell of what stood here before the board.
int touched_thumbnail(const Choice& choice, int start_x, int start_y) {
    if (mouse_x == start_x && mouse_y == start_y) return choice.marked;
    for (int slot = 0; slot < board_slots; ++slot)
        if (mouse_in_element(slot) && is_frame(frame_of_slot(slot, choice.focus))) return slot;
    return choice.marked;
}

Choice choose_while_held() {
    Choice choice{.focus = frame_index};
    int wheel = ::mouse_z;
    const int start_x = mouse_x, start_y = mouse_y;
    while (hotkey_held(HOTKEY_FRAME_JUMP) && exit_requested == 0) {
        show_board(choice.focus, choice.marked);
        update_screen(UPDATE_NORMAL);
        choice.marked = touched_thumbnail(choice, start_x, start_y);
        const int turned = ::mouse_z - wheel;
        wheel += turned;
        choice.focus = move_focus(choice.focus, turned);
    }
    return choice;
}

}  // namespace

void draw_thumbnail(int slot) {
    const int frame = thumbnail_frame_of(slot);
    if (frame < 0 || frame >= frame_slots) {
        GUI_box(slot, fixed_black, ui_shadow);
        return;
    }
    const Color border = slot == focus_slot ? ui_red : ui_border;
    const int x = gui::x[at(slot)], y = gui::y[at(slot)];
    GUI_box(slot, fixed_black, border);
    if (nail_sheet != nullptr)
        blit(nail_sheet, screen_buffer, frame % nail_columns * nail_tile, frame / nail_columns * nail_tile, x + 1,
             y + 1, nail_tile, nail_tile);
    if (slot == focus_slot) trans_rectfill(screen_buffer, x + 1, y + 1, nail_tile, nail_tile, fixed_white, pulse / 2);
    constexpr int number_dx = 32, number_dy = 3, outlined = 1;
    std::array<char, 8> number{};
    std::snprintf(number.data(), number.size(), "%02d", frame);
    UA_set_font(FONT_NARROW, TEXT_YELLOW, 0, 0, 0, outlined, 0, 0);
    UA_text(screen_buffer, x + number_dx, y + number_dy, number.data());
    GUI_corner_dots(slot, border);
}

void frame_jump() {
    const int start = UA_clock_ticks;
    make_nail_tile(current_frame, frame_index);  // as it is now: else the tile is of when the Frame came in
    clear_elements();
    build_board();
    const Choice choice = choose_while_held();
    clear_elements();
    build_drawing_menu();
    const int frame = frame_of_slot(choice.marked, choice.focus);
    const bool meant = choice.marked >= 0 && UA_clock_ticks - start > hold_ticks;
    if (meant && is_frame(frame) && frame != frame_index) fetch_frame(frame_index, frame);
}

}  // namespace nubo
