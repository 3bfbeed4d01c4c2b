#pragma once
// What the developer's console does with its lines: printing, the commands, the history. Its window and its keys stand
// in game/console_window.h. Main flow only.
#include "state/console.h"
#include <string_view>

namespace nubo {

/// A program's own commands: `token` is the first word of `line`, upper case. Asked before the console's own.
enum ConsoleAnswer : int { CONSOLE_UNKNOWN = -1, CONSOLE_LEAVES = 0, CONSOLE_HANDLED = 1 };
using ConsoleHook = ConsoleAnswer (*)(std::string_view token, std::string_view line);
/// Null, as in the editor, knows none.
void set_console_hook(ConsoleHook hook);

/// Puts a line into the list, cut at 79 characters, with an empty input line below it. What was being typed stays above
/// it. The text may hold colour codes.
void UA_console_print(std::string_view text);

/// Runs a command of the console's own: MOUSE0 to MOUSE4, SHOWFPS, ZOOM, EXIT.
ConsoleAnswer UA_console_command(std::string_view token);

/// Runs the line that was typed. `Console_running` is cleared when the console shall be left.
void enter_console_line();

/// Drops the line that was typed and has the console left, as EXIT does.
void leave_console_line();

/// Puts an earlier line of the history, or with -1 a later one, into the input line.
void walk_console_history(int step);

/// Appends a character to the input line, which takes 76; or takes its last one away.
void type_console_character(char character);
void delete_console_character();

}  // namespace nubo
