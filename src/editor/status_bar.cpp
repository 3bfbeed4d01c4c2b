#include "editor/status_bar.h"

#include "codecs/blend.h"
#include "framework/text.h"
#include "gui/elements.h"
#include "state/frames.h"
#include "state/guides.h"
#include "state/options.h"
#include "state/overlay.h"
#include "state/run.h"
#include "state/shape.h"
#include "state/shown.h"
#include "state/status.h"
#include "state/view.h"
#include "view/frame_tiles.h"
#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <string_view>
#include <utility>

namespace nubo {
namespace {

constexpr int bar_h = 7, bottom_row = view_h - bar_h, text_dy = 1;
using TextBuffer = std::array<char, 64>;

bool window_on_screen() { return gui::active[slot_window] != 0 && gui::hidden[slot_window] == 0; }

/// At the top, but out of the way of the mouse and of the window.
int bar_row() {
    const int top = gui::y[slot_window], under = top + gui::h[slot_window] + 1;
    if (window_on_screen() && top < bar_h) return shown.mouse_y < bottom_row ? bottom_row : under;
    if (shown.mouse_y >= bar_h) return 0;
    return window_on_screen() && under > bottom_row ? top - bar_h : bottom_row;
}

void draw_centered(int row, std::string_view text, TextColor color) {
    const auto width_in = [&](Font font) {
        set_font(font, color);
        return text_width(text);
    };
    const Font font = width_in(FONT_WIDE) <= view_w ? FONT_WIDE : FONT_NARROW;
    const int width = width_in(font);
    set_font(font, color);  // measuring has taken the text's colour codes
    UA_text(screen_buffer, (view_w - width) / 2, row + text_dy, text);
}

struct Columns {
    Font font;
    int mouse, pixel, frame;
};

/// What a tool tells in the place of the mouse: where the wide font would run into the next column, in the narrow one.
void draw_placing(const Columns& at, int row) {
    set_font(at.font, TEXT_GRAY);
    const bool fits = at.mouse + text_width(placing_text.data()) < at.pixel;
    set_font(fits ? at.font : FONT_NARROW, TEXT_GRAY);  // anew: measuring has taken the text's colour codes
    UA_text(screen_buffer, at.mouse, row + text_dy, placing_text.data());
    set_font(at.font, TEXT_GRAY);
}

/// The letters of the keys that switch the guides which are on, before the column of the Frame's number.
void draw_guide_marks(int frame_column, int row) {
    constexpr int gap = 3;
    const std::array<std::pair<bool, char>, 6> marks{{{guides.symmetry != SYMMETRY_OFF, 'M'},
                                                      {guides.tiles != TILES_OFF, 'T'},
                                                      {guides.ghost != GHOST_OFF, 'O'},
                                                      {guides.pixel_grid != 0 || guides.cell_grid != 0, 'G'},
                                                      {guides.snap != 0, 'S'},
                                                      {guides.checker != 0, 'K'}}};
    std::string shown_marks;
    for (const auto& [is_on, mark] : marks)
        if (is_on) shown_marks += mark;
    if (shown_marks.empty()) return;
    set_font(FONT_NARROW, TEXT_YELLOW);
    UA_text(screen_buffer, frame_column - gap - text_width(shown_marks), row + text_dy, shown_marks);
}

void draw_coordinates(int row) {
    constexpr Columns narrow{FONT_NARROW, 1, 136, 280}, wide{FONT_WIDE, 1, 120, 260};
    const Columns& at = opt_status_font == 0 ? narrow : wide;
    const auto draw = [&](int x, const char* format, int a, int b) {
        TextBuffer text;
        std::snprintf(text.data(), text.size(), format, a, b);
        UA_text(screen_buffer, x, row + text_dy, text.data());
    };
    // On the menu there is no pixel to point at, but there is time to read what the picture is like.
    const bool on_menu = shown.hover != -1 && tool_preview == -1;
    set_font(at.font, TEXT_GRAY);
    if (on_menu)
        draw(at.mouse, "SIZE > |c24%dX%d", frame_w, frame_h);
    else if (tool_preview != -1 && placing_text[0] != '\0')
        draw_placing(at, row);
    else
        draw(at.mouse, "MOUSE > |c24%d,%d", shown.mouse_x, shown.mouse_y);
    const Point pixel = real_pixel({shown.pixel_x, shown.pixel_y});
    if (on_menu)
        draw(at.pixel, "|c21ZOOM > |c24%dX", zoom_scale[static_cast<std::size_t>(shown.zoom)], 0);
    else
        draw(at.pixel, "|c21PIXEL > |c24%d,%d", pixel.x, pixel.y);
    TextBuffer text;
    std::snprintf(text.data(), text.size(), "|c21FRAME > |c32%02d", static_cast<int>(frame_index));
    UA_text(screen_buffer, at.frame, row + text_dy, text.data());
    draw_guide_marks(at.frame, row);
}

/// A text of the message table; empty for index 0 and below, and beyond the table.
std::string_view text_of_message(int message) {
    if (guides.symmetry != SYMMETRY_OFF) {  // what is put down as one piece isn't mirrored
        if (message == MESSAGE_CEL_REPOSITION) message = MESSAGE_CEL_REPOSITION_ONCE;
        if (message == MESSAGE_PICTURE_REPOSITION) message = MESSAGE_PICTURE_REPOSITION_ONCE;
    }
    if (message == MESSAGE_TOLD) return told_text.data();
    const bool known = message > 0 && message < static_cast<int>(tooltip_text.size());
    return known ? tooltip_text[static_cast<std::size_t>(message)] : std::string_view();
}

/// What the user must see, whatever the option says and also while the window on screen is hidden: where something is
/// lost, or would be.
constexpr std::array always_shown{status_bar_only,
                                  static_cast<int>(MESSAGE_WINDOW_HIDDEN),
                                  static_cast<int>(MESSAGE_SAVE_FAILED),
                                  static_cast<int>(MESSAGE_RESCUED),
                                  static_cast<int>(MESSAGE_FRAME_UNREADABLE),
                                  static_cast<int>(MESSAGE_FRAME_MISSING),
                                  static_cast<int>(MESSAGE_FRAME_OUT_OF_REACH),
                                  static_cast<int>(MESSAGE_FILE_OUT_OF_REACH),
                                  static_cast<int>(MESSAGE_TOLD)};
bool shows_always(int message) {
    return std::find(always_shown.begin(), always_shown.end(), message) != always_shown.end();
}

/// The text of the element whose tooltip shows, empty for none.
std::string_view text_of_tooltip() {
    const int slot = tooltip_element;
    return opt_tooltips != 0 && is_slot(slot) ? text_of_message(gui::tooltip[at(slot)]) : std::string_view();
}

}  // namespace

void draw_status_bar() {
    const bool wanted = opt_status_bar != 0 && gui::hidden[slot_window] == 0;
    if (!wanted && !shows_always(shown.status_message)) return;
    const int row = bar_row();
    trans_rectfill(screen_buffer, 0, row, view_w, bar_h, fixed_black, std::min<int>(opt_status_strength, 254));
    if (shown.status_message > 0)
        draw_centered(row, text_of_message(shown.status_message), TEXT_YELLOW);
    else if (shown.status_message == status_coordinates && !text_of_tooltip().empty())
        draw_centered(row, text_of_tooltip(), TEXT_GRAY);
    else if (shown.status_message == status_coordinates)
        draw_coordinates(row);
}

}  // namespace nubo
