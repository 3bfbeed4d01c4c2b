#include "game/draw_bubbles.h"

#include "codecs/blend.h"
#include "framework/text.h"
#include "game/actor_picture.h"
#include "state/bubbles.h"
#include "state/run.h"
#include <algorithm>
#include <allegro.h>

namespace nubo {
namespace {

constexpr int tail_h = 8;                   // pixels, from the lower edge of the box down
constexpr int tail_margin = 5;              // from the box's corners to the middle of the tail
constexpr int letter_w = 4, line_h = 6;     // pixels
constexpr int text_left = 3, text_top = 6;  // in the box
constexpr int brightness_full = 255;

struct Box {
    int left, top, right, bottom;  // the last two belong to it
};

// ---- The box -------------------------------------------------------------------------------------------------------

/// The box at its full height, over a tail whose tip is at (x, y).
Box box_over(int x, int y, int w, int h) {
    const int left = std::clamp(x - w / 2, 0, std::max(view_w - w, 0));
    const int top = std::clamp(y - tail_h - h, 0, std::max(view_h - h, 0));
    return {left, top, left + w - 1, top + h - 1};
}

/// Narrower from row to row, below the box.
void draw_tail(const Box& box, int x) {
    const int middle =
        std::clamp(x, box.left + tail_margin, std::max(box.right, box.left + 2 * tail_margin) - tail_margin);
    for (int row = 0; row < tail_h; ++row) {
        const int half = (tail_h - 1 - row) / 2, y = box.bottom + row;
        hline(screen_buffer, middle - half, y, middle + half, static_cast<int>(fixed_black));
        putpixel(screen_buffer, middle - half - 1, y, static_cast<int>(fixed_light));
        putpixel(screen_buffer, middle + half + 1, y, static_cast<int>(fixed_light));
    }
}

void draw_box(const Box& box) {
    const int edge = static_cast<int>(fixed_light);
    rectfill(screen_buffer, box.left + 1, box.top + 1, box.right - 1, box.bottom - 1, static_cast<int>(fixed_black));
    hline(screen_buffer, box.left + 1, box.top, box.right - 1, edge);
    hline(screen_buffer, box.left + 1, box.bottom, box.right - 1, edge);
    vline(screen_buffer, box.left, box.top + 1, box.bottom - 1, edge);
    vline(screen_buffer, box.right, box.top + 1, box.bottom - 1, edge);
}

// ---- The text ------------------------------------------------------------------------------------------------------

void draw_tints(std::size_t row, const Box& box) {
    constexpr int tint_strength = 96;
    const int lines = std::min<int>(bubble::line_count[row], bubble_tints);
    for (int line = 0; line < lines; ++line) {
        const int tint = bubble::tint[row][at(line)];
        const int color = tint < TEXT_COLOR_ROWS ? text_colors[at(tint)][0] : tone_kept;
        if (tint == 0 || color == tone_kept) continue;
        trans_rectfill(screen_buffer, box.left + 1, box.top + text_top + line * line_h - 1, box.right - box.left - 1,
                       line_h, static_cast<Color>(color), tint_strength);
    }
}

void draw_letters(std::size_t row, const Box& box) {
    const int shown = bubble::shown[row], lines = bubble::line_count[row];
    int line = 0;
    for (int letter = 0; letter < shown; ++letter) {
        while (line + 1 < lines && bubble::line_start[row][at(line + 1)] <= letter) ++line;
        const int brightness = bubble::brightness[row][at(letter)], is_dim = brightness < brightness_full ? 1 : 0;
        const char character = bubble::letters[row][at(letter)];
        UA_set_font(FONT_NARROW, bubble::color_row[row][at(letter)], 0, 0, 0, 0, is_dim, brightness);
        UA_text(screen_buffer, box.left + text_left + (letter - bubble::line_start[row][at(line)]) * letter_w,
                box.top + text_top + line * line_h, {&character, 1});
    }
}

/// It opens from its tail upward.
void draw_bubble(std::size_t row, int x, int y) {
    const Box box = box_over(x, y, bubble::w[row], bubble::h[row]);
    const int shown_h = std::min(bubble::shown_h[row] - tail_h, static_cast<int>(bubble::h[row]));
    if (shown_h < 3) return;  // pixels; a box has no inside
    draw_box({box.left, box.bottom + 1 - shown_h, box.right, box.bottom});
    draw_tail(box, x);
    if (bubble::state[row] != BUBBLE_PRINTS && bubble::state[row] != BUBBLE_HOLDS) return;
    draw_tints(row, box);
    draw_letters(row, box);
}

}  // namespace

void UA_draw_bubbles() {
    constexpr int sprite_middle = 16;  // of a cel, which stands right of its place
    for (std::size_t row = bubble_first; row < bubble_count; ++row) {
        const int owner = bubble::owner[row].acquire();
        if (owner < 0) continue;
        const auto [x, y] = place_of(owner);
        draw_bubble(row, drawn::Type[at(owner)] == ACTOR_SPRITE ? x + sprite_middle : x, y);
    }
}

}  // namespace nubo
