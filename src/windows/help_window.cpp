#include "windows/help_window.h"

#include "base/bitmap.h"
#include "codecs/blend.h"
#include "framework/text.h"
#include "gui/columns.h"
#include "gui/presses.h"
#include "gui/shapes.h"
#include "state/mouse.h"
#include "state/options.h"
#include "state/run.h"
#include "state/texts_help.h"
#include "windows/emblem.h"
#include "windows/kit/draw_elements.h"
#include "windows/kit/run_window.h"
#include <array>

namespace nubo {
namespace {

enum HelpSlot : int { HELP_LIST = slot_content, HELP_TEXT, HELP_BUTTON_EXIT, HELP_SLOTS };

// clang-format off
constexpr std::array<ElementRow, HELP_SLOTS - slot_content> rows{{
    // slot            type                  x    y    w    h  label       left
    {HELP_LIST,        ELEMENT_LIST,         2,  12,  97, 212, LABEL_NONE, ACTION_NONE},
    {HELP_TEXT,        ELEMENT_HELP_TEXT,  100,  12, 214, 222, LABEL_NONE, ACTION_NONE},
    {HELP_BUTTON_EXIT, ELEMENT_BUTTON_LIT,   2, 225,  97,   9, LABEL_EXIT, ACTION_CLICK},
}};
// clang-format on
static_assert(rows_in_order(rows, &ElementRow::slot, slot_content));

constexpr WindowRow window{.id = WINDOW_BOX,
                           .x = 2,
                           .y = 2,
                           .w = 315,
                           .h = 235,
                           .child_count = HELP_SLOTS,
                           .title = LABEL_HELP_TITLE,
                           .title_w = 312,
                           .elements = rows,
                           .cancel = HELP_BUTTON_EXIT,
                           .keys = KEYS_ESCAPE,
                           .gives_way = true};
constexpr ListLayout topic_layout{.rows = 21, .row_h = 10, .font = FONT_WIDE, .row_w = 84, .row_top = 1};
constexpr int topic_rows = 45, topic_slider_x = 87, topic_stops = 22, text_slider_x = 204;
constexpr int wheel_rows = 2;

// ---- Wrapping ------------------------------------------------------------------------------------------------------

constexpr int columns = 33, lines_shown = 31;

/// Walks the words of a text, calls `visit` with each and its line and column, and returns the number of lines.
template <typename Visit> int lay_out(std::string_view text, Visit visit) {
    int line = 0, column = 0;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(text.size(), word.size() + 1));
        const int width = help_word_width(word);
        if (width < 0 || width + column > columns) {
            ++line;
            column = 0;
        }
        if (width < 0) continue;
        visit(word, line, column);
        column += width + 1;
    }
    return line + 1;
}

// ---- The text element ----------------------------------------------------------------------------------------------

constexpr int backdrop_side = 198, backdrop_x = 9, backdrop_y = 12, backdrop_strength = 38;
BITMAP* help_backdrop = nullptr;  // the window owns it while it is open

/// The emblem of the logo, enlarged; null without one.
OwnedBitmap make_backdrop() {
    OwnedBitmap backdrop = logo != nullptr ? make_bitmap(backdrop_side, backdrop_side, transparent_color) : nullptr;
    if (backdrop)
        stretch_blit(logo, backdrop.get(), emblem_x, 0, emblem_side, emblem_side, 0, 0, backdrop_side, backdrop_side);
    return backdrop;
}

/// Shows the text from its beginning; one of more lines than show gets a slider.
void show_topic(int index) {
    const int stops = help_line_count(index) - (lines_shown - 1);
    gui::has_slider[HELP_TEXT] = 0;
    gui::slider_value[HELP_TEXT] = 0;
    help_topic_of(HELP_TEXT) = index;
    marked_entry_of(HELP_LIST) = static_cast<std::int16_t>(index - 1);  // none for the text of the opening
    if (stops > 1) GUI_set_vertical_slider(HELP_TEXT, text_slider_x, 0, stops, wheel_rows);
}

// ---- The loop ------------------------------------------------------------------------------------------------------

void finish_window() {
    GUI_set_list(HELP_LIST, topic_layout, LABEL_HELP_FIRST, topic_rows);
    GUI_set_vertical_slider(HELP_LIST, topic_slider_x, 0, topic_stops, wheel_rows);
    show_topic(help_start);
}

/// The topic already shown keeps its place.
void serve_list() {
    const int row = pressed_row(HELP_LIST);
    if (row == -1) return;
    const int topic = gui::slider_value[HELP_LIST] + 1 + row;
    if (topic != help_topic_of(HELP_TEXT) && topic < help_slots) show_topic(topic);
    wait_while_down(mouse_left);
}

}  // namespace

void help_window() {
    const int status_bar = opt_status_bar;
    opt_status_bar = 0;  // the window fills the screen
    const OwnedBitmap backdrop = make_backdrop();
    help_backdrop = backdrop.get();
    const auto serve = [] {
        serve_list();
        return WINDOW_STAYS;
    };
    run_window(window, {.built = finish_window, .serve = serve});
    help_backdrop = nullptr;
    opt_status_bar = status_bar;
}

int help_word_width(std::string_view word) {
    constexpr std::size_t code_length = 4;  // "|c21"
    int width = 0;
    for (std::size_t i = 0; i < word.size(); ++width) {
        while (i < word.size() && word[i] == '|') {
            if (i + 1 < word.size() && word[i + 1] == '|') return -1;
            i += code_length;
        }
        if (i++ >= word.size()) break;
    }
    return width;
}

int help_line_count(int index) {
    return lay_out(help_text[static_cast<std::size_t>(index)], [](std::string_view, int, int) {});
}

void draw_help_text(int slot) {
    constexpr int left = 3, top = 2, column_w = 6, line_h = 7;
    const int x = gui::x[at(slot)], y = gui::y[at(slot)], index = help_topic_of(slot);
    GUI_box(slot, color_of(slot), ui_border);
    if (help_backdrop != nullptr)
        trans_blit(help_backdrop, screen_buffer, x + backdrop_x, y + backdrop_y, backdrop_strength);
    if (index < 0 || index >= help_slots) return;
    set_font(FONT_WIDE, TEXT_BUTTON);  // the one that is legible also over the emblem in each scheme
    const int first = gui::slider_value[at(slot)];
    lay_out(help_text[static_cast<std::size_t>(index)], [&](std::string_view word, int line, int column) {
        if (line >= first && line < first + lines_shown)
            UA_text(screen_buffer, x + left + column_w * column, y + top + line_h * (line - first), word);
    });
}

}  // namespace nubo
