#include "windows/resize_window.h"

#include "codecs/blend.h"
#include "gui/columns.h"
#include "gui/draw.h"
#include "gui/shapes.h"
#include "gui/text_field.h"
#include "state/frames.h"
#include "state/run.h"
#include "windows/cel/corners.h"
#include "windows/kit/draw_elements.h"
#include "windows/kit/number_field.h"
#include "windows/kit/run_window.h"
#include "workspace/resize_frame.h"
#include <algorithm>
#include <array>

namespace nubo {
namespace {

enum ResizeSlot : int {
    RESIZE_PREVIEW = slot_content,
    RESIZE_ANCHOR_CAPTION,
    RESIZE_ANCHOR_FIRST,  // nine
    RESIZE_SCALE = RESIZE_ANCHOR_FIRST + anchor_count,
    RESIZE_CROP,
    RESIZE_WIDTH_CAPTION,
    RESIZE_HEIGHT_CAPTION,
    RESIZE_WIDTH,
    RESIZE_HEIGHT,
    RESIZE_OKAY,
    RESIZE_CANCEL,
    RESIZE_SLOTS
};

constexpr ElementRow anchor_row(int anchor) {
    constexpr int left = 86, top = 22, step_x = 14, step_y = 10, button_wide = 13, middle = 4;
    return {.slot = RESIZE_ANCHOR_FIRST + anchor,
            .x = left + step_x * (anchor % anchors_a_row),
            .y = top + step_y * (anchor / anchors_a_row),
            .w = button_wide,
            .label = anchor == middle ? LABEL_ANCHOR_CENTER : LABEL_ANCHOR_PLUS,
            .left = ACTION_CLICK,
            .tooltip = MESSAGE_RESIZE_ANCHOR};
}

// clang-format off
constexpr std::array<ElementRow, RESIZE_SLOTS - slot_content> rows{{
    // slot                 type                     x    y   w   h  label                left          right        tooltip                fill
    {RESIZE_PREVIEW,        ELEMENT_ANCHOR_PREVIEW,  2,  12, 83, 62, LABEL_NONE,          ACTION_NONE,  ACTION_NONE, MESSAGE_NONE,          &ui_shadow},
    {RESIZE_ANCHOR_CAPTION, ELEMENT_BUTTON,         86,  12, 41,  9, LABEL_ANCHOR,        ACTION_NONE,  ACTION_NONE, MESSAGE_NONE,          &ui_border},
    anchor_row(0), anchor_row(1), anchor_row(2),
    anchor_row(3), anchor_row(4), anchor_row(5),
    anchor_row(6), anchor_row(7), anchor_row(8),
    {RESIZE_SCALE,          ELEMENT_BUTTON,         86,  55, 41,  9, LABEL_SCALE_QUESTION,ACTION_FLIP,  ACTION_NONE, MESSAGE_RESIZE_SCALE,  &ui_background},
    {RESIZE_CROP,           ELEMENT_BUTTON_LIT,     86,  65, 41,  9, LABEL_QUICK_CROP,    ACTION_CLICK, ACTION_NONE, MESSAGE_RESIZE_CROP,   &ui_background},
    {RESIZE_WIDTH_CAPTION,  ELEMENT_BUTTON,          2,  77, 89,  9, LABEL_WIDTH,         ACTION_NONE,  ACTION_NONE, MESSAGE_NONE,          &ui_border},
    {RESIZE_HEIGHT_CAPTION, ELEMENT_BUTTON,          2,  87, 89,  9, LABEL_HEIGHT,        ACTION_NONE,  ACTION_NONE, MESSAGE_NONE,          &ui_border},
    {RESIZE_WIDTH,          ELEMENT_TEXT_FIELD,     92,  77, 35,  9, LABEL_NONE,          ACTION_FOCUS, ACTION_NONE, MESSAGE_NONE,          &ui_shadow},
    {RESIZE_HEIGHT,         ELEMENT_TEXT_FIELD,     92,  87, 35,  9, LABEL_NONE,          ACTION_FOCUS, ACTION_NONE, MESSAGE_NONE,          &ui_shadow},
    {RESIZE_OKAY,           ELEMENT_BUTTON_LIT,      2, 101, 61,  9, LABEL_OKAY,          ACTION_CLICK, ACTION_NONE, MESSAGE_NONE,          &ui_background},
    {RESIZE_CANCEL,         ELEMENT_BUTTON_LIT,     66, 101, 61,  9, LABEL_CANCEL,        ACTION_CLICK, ACTION_NONE, MESSAGE_NONE,          &ui_background},
}};
// clang-format on
static_assert(rows_in_order(rows, &ElementRow::slot, slot_content));

constexpr WindowRow window{.id = WINDOW_RESIZE,
                           .x = 70,
                           .y = 80,
                           .w = 128,
                           .h = 111,
                           .child_count = RESIZE_SLOTS,
                           .title = LABEL_RESIZE_CURRENT_FRAME,
                           .title_w = 125,
                           .elements = rows,
                           .cancel = RESIZE_CANCEL,
                           .outside = OUTSIDE_HIDES,
                           .focus = RESIZE_WIDTH,
                           .pans = true};

// ---- The preview ---------------------------------------------------------------------------------------------------

/// `aux` of the preview: the anchor and both sizes, of which the large ones use all 16 bits.
enum PreviewWord : int { PREVIEW_ANCHOR, PREVIEW_OLD_W, PREVIEW_OLD_H, PREVIEW_NEW_W, PREVIEW_NEW_H };
int preview_size(int slot, PreviewWord word) {
    return static_cast<std::uint16_t>(static_cast<std::int16_t>(parameter_of(slot, word)));
}

/// One axis of an outline: where it begins and how long it is.
struct Extent {
    int start, size;
};

/// The axis of one of two sizes in `room` pixels, of which the larger one takes all; `place` 0 to 2 aligns the other.
Extent extent_of(int size, int other, int room, int place) {
    const int scaled =
        size >= other || other < 1 ? room : static_cast<int>(static_cast<long long>(room) * size / other);
    return {(room - scaled) * place / 2, scaled};
}

void draw_outline(int x, int y, const Extent& across, const Extent& down, int strength) {
    if (across.size < 1 || down.size < 1) return;
    const int left = x + across.start, top = y + down.start;
    const auto fill = [=](int at_x, int at_y, int w, int h) {
        trans_rectfill(screen_buffer, at_x, at_y, w, h, ui_highlight_back, strength);
    };
    fill(left, top, across.size, 1);
    fill(left, top + down.size - 1, across.size, 1);
    fill(left, top + 1, 1, down.size - 2);
    fill(left + across.size - 1, top + 1, 1, down.size - 2);
}

}  // namespace

/// The new outline plainly, the old one over it, translucent.
void draw_anchor_preview(int slot) {
    constexpr int room_w = 80, room_h = 59, border = 1, opaque = 255, translucent = 128;
    GUI_box(slot, color_of(slot), ui_border);
    const int x = gui::x[at(slot)] + border, y = gui::y[at(slot)] + border;
    const int anchor = preview_size(slot, PREVIEW_ANCHOR), column = anchor % anchors_a_row,
              row = anchor / anchors_a_row;
    const int old_w = preview_size(slot, PREVIEW_OLD_W), old_h = preview_size(slot, PREVIEW_OLD_H);
    const int new_w = preview_size(slot, PREVIEW_NEW_W), new_h = preview_size(slot, PREVIEW_NEW_H);
    draw_outline(x, y, extent_of(new_w, old_w, room_w, column), extent_of(new_h, old_h, room_h, row), opaque);
    draw_outline(x, y, extent_of(old_w, new_w, room_w, column), extent_of(old_h, new_h, room_h, row), translucent);
}

namespace {

// ---- The window ----------------------------------------------------------------------------------------------------

struct Resizing {
    int anchor = 0;
    int old_w = 0, old_h = 0;  // the Frame's when the fields were filled
    bool crops = false;
};

void light_anchor(const Resizing& state) {
    for (int i = 0; i < anchor_count; ++i) GUI_light_button(RESIZE_ANCHOR_FIRST + i, i == state.anchor);
}

/// At first and whenever another Frame has come in.
void fill_fields(Resizing& state) {
    if (state.old_w == frame_w && state.old_h == frame_h) return;
    state.old_w = frame_w;
    state.old_h = frame_h;
    set_number(RESIZE_WIDTH, state.old_w);
    set_number(RESIZE_HEIGHT, state.old_h);
    if (is_number_field(key_focus)) GUI_set_key_focus(key_focus, true);
}

void show_preview(const Resizing& state) {
    const auto typed = [](int slot) { return std::clamp(read_number(slot), 0, max_frame_side); };
    const std::array<int, 5> words{state.anchor, frame_w, frame_h, typed(RESIZE_WIDTH), typed(RESIZE_HEIGHT)};
    for (int i = 0; i < static_cast<int>(words.size()); ++i)
        parameter_of(RESIZE_PREVIEW, static_cast<PreviewWord>(i)) = static_cast<std::int16_t>(words[at(i)]);
}

bool try_resize(const Resizing& state) {
    constexpr int side_min = 2;
    const int width = read_number(RESIZE_WIDTH), height = read_number(RESIZE_HEIGHT);
    const bool scales = gui::type[at(RESIZE_SCALE)] == ELEMENT_BUTTON_DOWN;
    return width >= side_min && height >= side_min && resize_frame(frame_index, width, height, state.anchor, scales);
}

WindowPass serve(Resizing& state) {
    for (int i = 0; i < anchor_count; ++i)
        if (take_click(RESIZE_ANCHOR_FIRST + i) > 0) state.anchor = i;
    light_anchor(state);
    state.crops = take_click(RESIZE_CROP) > 0;
    if (state.crops) return WINDOW_DONE;
    if (take_click(RESIZE_WIDTH) > 0) GUI_set_key_focus(RESIZE_HEIGHT, true);
    const bool okay = take_click(RESIZE_OKAY) > 0, enter = take_click(RESIZE_HEIGHT) > 0;
    return (okay || enter) && try_resize(state) ? WINDOW_DONE : WINDOW_STAYS;
}

}  // namespace

void resize_window() {
    Resizing state;
    const auto built = [&] {
        state.old_w = 0;
        fill_fields(state);
        light_anchor(state);
    };
    const auto show = [&] {
        fill_fields(state);
        show_preview(state);
    };
    run_window(window, {.built = built, .show = show, .serve = [&] { return serve(state); }});
    if (state.crops) quick_crop();
}

void quick_crop() {
    const ClearedScreen cleared;
    const std::optional<Area> area = ask_corners(no_corner, crop_prompts);
    if (area) crop_frame(area->left, area->top, area->width(), area->height());
}

}  // namespace nubo
