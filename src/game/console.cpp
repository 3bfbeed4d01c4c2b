#include "game/console.h"

#include <algorithm>
#include <allegro.h>

namespace nubo {
namespace {

constexpr std::size_t longest_input = 76;  // characters
constexpr std::string_view exit_command = "EXIT";

ConsoleHook hook = nullptr;

std::string_view text_of(const ConsoleLine& line) { return line.data(); }

void set_line(ConsoleLine& line, std::string_view text) {
    line = {};
    text.substr(0, line.size() - 1).copy(line.data(), line.size() - 1);
}

/// Makes room at the front of a list, where an empty line stands then.
template <std::size_t N> void shift_lines(std::array<ConsoleLine, N>& lines) {
    std::copy_backward(lines.begin(), lines.end() - 1, lines.end());
    lines.front() = {};
}

std::string_view first_token(std::string_view line) {
    constexpr const char* separators = " ,";
    line.remove_prefix(std::min(line.find_first_not_of(separators), line.size()));
    return line.substr(0, line.find_first_of(separators));
}

void remember_line(const ConsoleLine& line) {
    shift_lines(Console_history);
    Console_history.front() = line;
}

int lines_remembered() {
    return static_cast<int>(std::count_if(Console_history.begin(), Console_history.end(),
                                          [](const ConsoleLine& line) { return line[0] != '\0'; }));
}

struct MouseRow {
    std::string_view command;
    int speed;
    std::string_view answer;
};
constexpr std::array<MouseRow, 5> mouse_rows{{
    {"MOUSE4", 4, "|c32-> MOUSE SPEED IS NOW 4 - VERY SLOW|c21"},
    {"MOUSE3", 3, "|c32-> MOUSE SPEED IS NOW 3 - SLOW|c21"},
    {"MOUSE2", 2, "|c32-> MOUSE SPEED IS NOW 2 - NORMAL|c21"},
    {"MOUSE1", 1, "|c32-> MOUSE SPEED IS NOW 1 - FAST|c21"},
    {"MOUSE0", 0, "|c32-> MOUSE SPEED IS NOW 0 - VERY FAST|c21"},
}};

struct SwitchRow {
    std::string_view command;
    int* value;
    std::string_view on, off;
};
constexpr std::array<SwitchRow, 2> switch_rows{{
    {"SHOWFPS", &show_fps, "|c32-> FPS display is active|c21", "|c32-> FPS display disabled|c21"},
    {"ZOOM", &Console_zoom, "|c32-> Zoom in|c21", "|c32-> Zoom out|c21"},
}};

bool set_speed(std::string_view command) {
    for (const MouseRow& row : mouse_rows) {
        if (row.command != command) continue;
        set_mouse_speed(row.speed, row.speed);
        UA_console_print(row.answer);
        return true;
    }
    return false;
}

bool flip_switch(std::string_view command) {
    for (const SwitchRow& row : switch_rows) {
        if (row.command != command) continue;
        *row.value = *row.value == 0 ? 1 : 0;
        UA_console_print(*row.value != 0 ? row.on : row.off);
        return true;
    }
    return false;
}

}  // namespace

void set_console_hook(ConsoleHook wanted) { hook = wanted; }

void UA_console_print(std::string_view text) {
    if (!text_of(Console_lines.front()).empty()) shift_lines(Console_lines);
    set_line(Console_lines.front(), text);
    shift_lines(Console_lines);
}

ConsoleAnswer UA_console_command(std::string_view token) {
    if (token == exit_command) {
        Console_running = 0;
        return CONSOLE_HANDLED;
    }
    return set_speed(token) || flip_switch(token) ? CONSOLE_HANDLED : CONSOLE_UNKNOWN;
}

void leave_console_line() {
    Console_lines.front() = {};
    Console_cursor = 0;
    Console_running = 0;
}

void enter_console_line() {
    const ConsoleLine line = Console_lines.front();
    const std::string_view token = first_token(text_of(line));
    if (token == exit_command) {
        leave_console_line();
        return;
    }
    Console_cursor = 0;
    if (token.empty()) {
        shift_lines(Console_lines);
        return;
    }
    const ConsoleAnswer answer = hook != nullptr ? hook(token, text_of(line)) : CONSOLE_UNKNOWN;
    if (answer == CONSOLE_LEAVES) Console_running = 0;
    if (answer == CONSOLE_UNKNOWN) UA_console_command(token);
    remember_line(line);
    if (!text_of(Console_lines.front()).empty()) shift_lines(Console_lines);  // no answer has moved it
}

void walk_console_history(int step) {
    Console_cursor = std::clamp(Console_cursor + step, 0, lines_remembered());
    Console_lines.front() =
        Console_cursor > 0 ? Console_history[static_cast<std::size_t>(Console_cursor - 1)] : ConsoleLine{};
}

void type_console_character(char character) {
    const std::size_t length = text_of(Console_lines.front()).size();
    if (length < longest_input) Console_lines.front()[length] = character;
}

void delete_console_character() {
    const std::size_t length = text_of(Console_lines.front()).size();
    if (length > 0) Console_lines.front()[length - 1] = '\0';
}

}  // namespace nubo
