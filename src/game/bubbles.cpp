#include "game/bubbles.h"

#include "base/log.h"
#include "framework/text.h"
#include "state/actors.h"
#include "state/run.h"
#include <algorithm>

namespace nubo {
namespace {

constexpr int narrowest = 10, widest = 25, lines_at_first = 2;  // characters, and lines of the trials
constexpr int first_word_margin = 3;                            // characters beside a first word that is too long
constexpr int letter_w = 4, line_h = 6, margin_w = 6, margin_h = 7;
constexpr int height_step = 3, height_beyond = 8;  // of the opening and closing, pixels
constexpr int brightness_first = 31, brightness_step = 28, brightness_full = 255;
constexpr int brightness_next = 80;  // above it the next letter follows

std::size_t place(int number) { return static_cast<std::size_t>(number); }

// ---- Reading a text ------------------------------------------------------------------------------------------------

struct Cell {
    char letter;
    std::uint8_t color_row;
    bool ends_line;  // a "^", which is not printed
};

/// A text without its codes.
struct Cells {
    struct TintMark {
        int cell, tint;
    };
    std::array<Cell, bubble_letters> cell{};
    int count = 0;
    std::array<TintMark, bubble_tints> tint{};  // each before its cell
    int tint_count = 0;
    bool word_per_line = false;

    const Cell& operator[](int at) const { return cell[place(at)]; }
    bool is_of_word(int at) const { return at < count && !(*this)[at].ends_line && (*this)[at].letter != ' '; }
    /// The first place from `at` on that lies in no word.
    int word_end(int at) const {
        while (is_of_word(at)) ++at;
        return at;
    }
};

void add_tint(Cells& cells, int tint) {
    if (cells.tint_count < bubble_tints) cells.tint[place(cells.tint_count++)] = {cells.count, tint};
}

/// The line ends are logged with their place in the text.
Cells read_cells(std::string_view text) {
    Cells cells;
    cells.word_per_line = text.starts_with('`');
    int color_row = TEXT_OWN_COLORS;
    for (std::size_t at = cells.word_per_line ? 1 : 0; at < text.size() && cells.count < bubble_letters; ++at) {
        const std::string_view rest = text.substr(at);
        if (is_text_code(rest, 'c')) color_row = text_code_value(rest);
        if (is_text_code(rest, 'h')) add_tint(cells, text_code_value(rest));
        if (is_text_code(rest, 'c') || is_text_code(rest, 'h')) {
            at += text_code_size - 1;
            continue;
        }
        const bool ends_line = text[at] == '^';
        if (ends_line) UA_log("[BREAK] at %d", static_cast<int>(at));
        cells.cell[place(cells.count++)] = {text[at], static_cast<std::uint8_t>(color_row), ends_line};
    }
    return cells;
}

// ---- Layout --------------------------------------------------------------------------------------------------------

/// Lines as ranges of cells.
struct Layout {
    struct Line {
        int first, end;
    };
    std::array<Line, bubble_lines> line{};
    int count = 0;
    bool cuts_word = false;

    void add(int first, int end) {
        if (count < bubble_lines) line[place(count++)] = {first, end};
    }
    bool fits() const { return count <= lines_at_first && !cuts_word; }
};

/// Lines of at most `columns` characters, broken at blanks, which then belong to no line.
Layout wrap(const Cells& cells, int columns) {
    Layout layout;
    int first = 0, end = 0;  // the line so far, without the blanks behind its last word
    for (int at = 0; at < cells.count;) {
        if (!cells.is_of_word(at)) {
            if (cells[at++].ends_line) {
                layout.add(first, end);
                first = end = at;
            }
            continue;
        }
        const int word_end = cells.word_end(at);
        if (cells.word_per_line || word_end - first > columns) {
            if (end > first) layout.add(first, end);
            first = at;
        }
        for (; word_end - first > columns; first += columns) {
            layout.add(first, first + columns);
            layout.cuts_word = true;
        }
        at = end = word_end;
    }
    if (end > first || layout.count == 0) layout.add(first, end);
    return layout;
}

int first_word_length(const Cells& cells) {
    int at = 0;
    while (at < cells.count && !cells.is_of_word(at)) ++at;
    return cells.word_end(at) - at;
}

Layout lay_out(const Cells& cells) {
    if (cells.word_per_line) return wrap(cells, bubble_letters);
    const int first_word = first_word_length(cells);
    int columns = first_word > narrowest ? first_word + first_word_margin : narrowest;
    Layout layout = wrap(cells, columns);
    while (!layout.fits() && columns < widest) layout = wrap(cells, ++columns);
    return layout;
}

// ---- Filling a row -------------------------------------------------------------------------------------------------

/// A mark belongs to the line of the cell behind it, or, where that is printed in no line, to the line before.
void fill_tints(std::size_t row, const Cells& cells, const Layout& layout) {
    for (Shared<std::uint8_t>& tint : bubble::tint[row]) tint = 0;
    for (int mark = 0; mark < cells.tint_count; ++mark) {
        const auto [cell, tint] = cells.tint[place(mark)];
        int line = layout.count - 1;
        while (line > 0 && layout.line[place(line)].first > cell) --line;
        if (line < bubble_tints) bubble::tint[row][place(line)] = static_cast<std::uint8_t>(tint);
    }
}

void fill_lines(std::size_t row, const Cells& cells, const Layout& layout) {
    int letter = 0, longest = 0;
    for (int line = 0; line < layout.count; ++line) {
        const auto [first, end] = layout.line[place(line)];
        bubble::line_start[row][place(line)] = static_cast<std::int16_t>(letter);
        for (int at = first; at < end; ++at, ++letter) {
            bubble::letters[row][place(letter)] = cells[at].letter;
            bubble::color_row[row][place(letter)] = cells[at].color_row;
            bubble::brightness[row][place(letter)] = brightness_first;
        }
        longest = std::max(longest, end - first);
    }
    bubble::letter_count[row] = letter;
    bubble::line_count[row] = layout.count;
    bubble::w[row] = longest * letter_w + margin_w;
    bubble::h[row] = (layout.count + 1) * line_h + margin_h;
}

/// A row that no other flow takes or runs until its owner is published; `bubble_none` when there is none.
int grab_bubble() {
    for (int row = bubble_first; row < bubble_count; ++row)
        if (bubble::owner[place(row)].claim(bubble_free, bubble_taken)) return row;
    UA_log("[ WARNING ] : Attempted to grab bubble, but none available!");
    return bubble_none;
}

// ---- The tick ------------------------------------------------------------------------------------------------------

void open_more(std::size_t row) {
    bubble::shown_h[row] += height_step;
    if (bubble::shown_h[row] < bubble::h[row] + height_beyond) return;
    bubble::shown[row] = std::min(1, static_cast<int>(bubble::letter_count[row]));
    bubble::state[row] = BUBBLE_PRINTS;
}

void print_more(std::size_t row) {
    const int shown = bubble::shown[row];
    int last = brightness_full;  // the brightness of the last letter shown
    for (int letter = 0; letter < shown; ++letter) {
        Shared<std::uint8_t>& brightness = bubble::brightness[row][place(letter)];
        last = std::min(brightness + brightness_step, brightness_full);
        brightness = static_cast<std::uint8_t>(last);
    }
    if (shown < bubble::letter_count[row]) {
        if (last > brightness_next) bubble::shown[row] = shown + 1;
    } else if (last == brightness_full) {
        bubble::state[row] = BUBBLE_HOLDS;
    }
}

void hold_on(std::size_t row) {
    if (bubble::hold[row] == bubble_forever) return;
    if (bubble::hold[row] > 0) bubble::hold[row] -= 1;
    if (bubble::hold[row] <= 0) bubble::state[row] = BUBBLE_CLOSES;
}

void close_more(std::size_t row, int owner) {
    bubble::shown_h[row] -= height_step;
    if (bubble::shown_h[row] <= 0) bubble::owner[row].claim(owner, bubble_free);
}

void run_bubble(std::size_t row, int owner) {
    switch (static_cast<BubbleState>(static_cast<int>(bubble::state[row]))) {
    case BUBBLE_OPENS: return open_more(row);
    case BUBBLE_PRINTS: return print_more(row);
    case BUBBLE_HOLDS: return hold_on(row);
    case BUBBLE_CLOSES: return close_more(row, owner);
    }
}

}  // namespace

int UA_spawn_bubble(int owner, int hold, std::string_view text) {
    if (owner < 0 || owner >= actor_count) {
        UA_log("[ ERROR ] : Tried to open a bubble over an invalid object. Object = %d", owner);
        return bubble_none;
    }
    const int grabbed = grab_bubble();
    if (grabbed == bubble_none) return bubble_none;
    const std::size_t row = place(grabbed);
    const Cells cells = read_cells(text);
    const Layout layout = lay_out(cells);
    fill_lines(row, cells, layout);
    fill_tints(row, cells, layout);
    bubble::state[row] = BUBBLE_OPENS;
    bubble::hold[row] = hold;
    bubble::shown_h[row] = 0;
    bubble::shown[row] = 0;
    bubble::owner[row].publish(owner);
    return grabbed;
}

void UA_free_bubbles(int owner) {
    for (Shared<int>& of : bubble::owner) of.claim(owner, bubble_free);
}

void UA_bubble_tick() {
    if (handlers_locked != 0) return;
    for (int row = bubble_first; row < bubble_count; ++row) {
        const int owner = bubble::owner[place(row)].acquire();
        if (owner >= 0) run_bubble(place(row), owner);
    }
}

}  // namespace nubo
