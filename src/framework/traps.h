#pragma once
// The checks that guard the fixed tables against bad slot numbers, and the words of the log.
//
// A line begins with its tag, as part of its text:
//   "[ INIT ] : "     a step of the start           "[ END ] : "    a step of the end
//   "[ INFO ] : "     expected and recovered         "[ WARNING ] : " a bad but harmless request, dropped
//   "[ ERROR ] : "    a failed request               "[ STATS ] : "  a value that belongs to the line before it
//   "[ REFER ] : "    the caller of a refused call   "[ TRAP ] : "   a trap below has fired
//   "[ FATAL ] : "    the last line before an end    "ERROR: "       the older form, of resources and spawners
// A check never stops the program: it logs and answers false, and its caller drops the request.

namespace nubo {

/// True when `who` is an actor that a process may work on or kill: 1 to 48.
bool UA_trap_object(int who);

/// True when `window` is a slot of the GUI table.
bool UA_trap_gui_window(int window);

/// True when `who` is an actor and `slot` one of its behaviours; `tag` names the caller in the log.
bool UA_check_who_slot(int who, int slot, const char* tag);

/// True when `window` is a slot of the GUI table; `tag` names the caller in the log.
bool GUI_check_window(int window, const char* tag);

/// The kinds of value that `UA_log_values` writes.
enum LogValue : int { LOG_STRING, LOG_INT, LOG_DOUBLE };

/// Writes `count` values into one line of the log, each with one blank behind it. Each is a pair of arguments: a
/// LogValue and a `const char*`, int or double. An unknown kind ends the call at once, without ending the line.
void UA_log_values(int count, ...);

}  // namespace nubo
