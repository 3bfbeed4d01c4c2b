#include "game/console_window.h"

#include "framework/text.h"
#include "game/actors.h"
#include "game/console.h"
#include "gui/draw_elements.h"
#include "gui/elements.h"
#include "gui/mouse.h"
#include "gui/shapes.h"
#include "gui/typed_text.h"
#include "platform/input.h"
#include "state/flow.h"
#include "state/hotkeys.h"
#include "state/run.h"
#include <allegro.h>
#include <cctype>
#include <string>

namespace nubo {
namespace {

constexpr int console_slot = gui_slots - 1;

// ---- The window ----------------------------------------------------------------------------------------------------

/// While it lives nothing of the interface does but the console.
class ConsoleWindow {
public:
    ConsoleWindow();
    ~ConsoleWindow();
    ConsoleWindow(const ConsoleWindow&) = delete;
    ConsoleWindow& operator=(const ConsoleWindow&) = delete;

private:
    std::array<std::int16_t, gui_slots> active_before_{};
};

ConsoleWindow::ConsoleWindow() {
    constexpr int x = 3, y = 3, w = 312, h = 61;
    editor_running = 0;
    Console_running = 1;
    for (std::size_t slot = 0; slot < gui_slots; ++slot) {
        active_before_[slot] = gui::active[slot];
        gui::active[slot] = 0;
    }
    GUI_clear_element(console_slot);
    gui::type[console_slot] = ELEMENT_CONSOLE;
    gui::x[console_slot] = x;
    gui::y[console_slot] = y;
    gui::w[console_slot] = w;
    gui::h[console_slot] = h;
    gui::color[console_slot] = static_cast<int>(fixed_black);
    gui::reserved[console_slot] = 1;
    gui::active[console_slot] = 1;
}

ConsoleWindow::~ConsoleWindow() {
    Console_running = 0;
    gui::active[console_slot] = 0;
    update_screen(UPDATE_NORMAL);  // without it, before what it covered lives again
    GUI_clear_element(console_slot);
    for (std::size_t slot = 0; slot < gui_slots; ++slot) gui::active[slot] = active_before_[slot];
    editor_running = 1;
}

// ---- Keys ----------------------------------------------------------------------------------------------------------

class ConsoleKeys {
public:
    /// The key that opened the console counts from its next press on.
    ConsoleKeys() { take_pressed(); }
    /// Lets the keys act that have gone down; true if one has.
    bool serve();

private:
    int take_pressed();
    bool serve_backspace();

    std::array<char, key_codes> down_{};
    bool backspace_owes_ = false;  // it went down and has deleted nothing yet
    int backspace_at_ = 0;         // the clock's tick at which it deletes next
};

/// The key that is down now and wasn't before, 0 none. At most one changes from one look to the next.
int ConsoleKeys::take_pressed() {
    int pressed = 0;
    for (int code = 1; code < key_codes; ++code) {
        if (key_down[at(code)] != 0 && down_[at(code)] == 0) pressed = code;
        down_[at(code)] = key_down[at(code)];
    }
    return pressed;
}

/// A press shorter than the wait before it still deletes its character.
bool ConsoleKeys::serve_backspace() {
    constexpr int every = 62;
    const bool is_down = down_[KEY_BACKSPACE] != 0, is_due = is_down && UA_clock_ticks - backspace_at_ >= 0;
    if (!is_due && (is_down || !backspace_owes_)) return false;
    delete_console_character();
    backspace_owes_ = false;
    backspace_at_ = UA_clock_ticks + every;
    return true;
}

bool ConsoleKeys::serve() {
    constexpr int back = 1, forward = -1, backspace_waits = 4;
    const int pressed = take_pressed();
    switch (pressed) {
    case 0: break;
    case KEY_UP: walk_console_history(back); break;
    case KEY_DOWN: walk_console_history(forward); break;
    case KEY_TILDE: Console_running = 0; break;
    case KEY_ENTER:
    case KEY_ENTER_PAD: enter_console_line(); break;
    case KEY_ESC: leave_console_line(); break;
    case KEY_BACKSPACE:
        backspace_owes_ = true;
        backspace_at_ = UA_clock_ticks + backspace_waits;
        break;
    default:
        if (const char character = UA_console_key(pressed); character != '\0') type_console_character(character);
    }
    return serve_backspace() || pressed != 0;
}

}  // namespace

/// The line being typed stands at the bottom, older ones above it.
void draw_console(int slot) {
    constexpr int left = 4, top = 4, line_h = 7, phases_lit = 4;
    GUI_box(slot, color_of(slot), ui_border);
    const int x = gui::x[at(slot)] + left;
    int y = gui::y[at(slot)] + top;
    for (int line = console_lines - 1; line >= 0; --line, y += line_h) {
        set_font(FONT_NARROW, TEXT_GRAY);  // again for each line, since a line may hold colour codes
        const int width = UA_text(screen_buffer, x, y, Console_lines[at(line)].data());
        if (line == 0 && cursor_phase < phases_lit)
            vline(screen_buffer, x + width, y - 1, y + line_h - 2, text_colors[TEXT_GRAY][0]);
    }
}

void draw_frame_rate() {
    constexpr int x = 160, rate_y = 5, actors_y = 15;
    if (show_fps == 0) return;
    set_font(FONT_NARROW, TEXT_FRAME_RATE);
    UA_text(screen_buffer, x, rate_y, std::to_string(fps));
    UA_text(screen_buffer, x, actors_y, std::to_string(UA_count_actors()));
}

char UA_console_key(int code) {
    const std::string typed = typed_by(code);
    const auto character = static_cast<unsigned char>(typed.size() == 1 ? typed[0] : '\0');
    return std::isprint(character) != 0 ? static_cast<char>(std::toupper(character)) : '\0';
}

void UA_console(int paused) {
    constexpr int rest_ms = 10;
    const ConsoleWindow window;
    ConsoleKeys keys;
    bool has_changed = true;
    while (Console_running != 0 && exit_requested == 0) {
        if (paused == 0 || has_changed) {
            update_screen(UPDATE_NORMAL);
        } else {
            frame_presented = 1;  // `GUI_tick` may be waiting for a picture, and keys for `GUI_tick`
            check_mouse();
            rest_until_input(rest_ms, input_waits);
            renew_input();
        }
        has_changed = keys.serve();
    }
}

}  // namespace nubo
