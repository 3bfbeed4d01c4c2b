#include "framework/traps.h"

#include "base/log.h"
#include "state/actors.h"
#include "state/gui.h"
#include <array>
#include <cstdarg>
#include <cstdio>
#include <string>

namespace nubo {
namespace {

/// The line of a failed check, then the value that failed it.
void log_error_pair(const char* error, const char* tag, const char* stats, int value) {
    const std::string line = std::string("[ ERROR ] : ") + error + tag;
    UA_log("%s", line.c_str());
    UA_log(stats, value);
}

bool is_gui_slot(int slot) { return slot >= 0 && slot < gui_slots; }

}  // namespace

bool UA_trap_object(int who) {
    if (who == actor_first)
        UA_log("[ TRAP ] : A process tried to kill object (0)");
    else if (who == actor_last)
        UA_log("[ TRAP ] : A process tried to kill object (MAX-1)");
    else if (who < 0)
        UA_log("[ TRAP ] : A process tried to kill an object < 0!");
    else if (who >= actor_count)
        UA_log("[ TRAP ] : A process tried to kill an object > MAX!");
    else
        return true;
    return false;
}

bool UA_trap_gui_window(int window) {
    if (is_gui_slot(window)) return true;
    UA_log(window < 0 ? "[ TRAP ] : A process tried to access GUI WINDOW < 0!"
                      : "[ TRAP ] : A process tried to access GUI WINDOW > MAX!");
    return false;
}

bool UA_check_who_slot(int who, int slot, const char* tag) {
    if (who < 0 || who >= actor_count) {
        log_error_pair("WHO parameter OOB in call to ", tag, "[ STATS ] : who = %d", who);
        return false;
    }
    if (slot < 0 || slot >= behavior_slots) {
        log_error_pair("SLOT parameter OOB in call to ", tag, "[ STATS ] : slot = %d", slot);
        return false;
    }
    return true;
}

bool GUI_check_window(int window, const char* tag) {
    if (is_gui_slot(window)) return true;
    log_error_pair("GUI window parameter OOB in call to ", tag, "[ STATS ] : slot = %d", window);
    return false;
}

void UA_log_values(int count, ...) {
    std::string line;
    bool is_known = true;
    va_list values;
    va_start(values, count);
    for (int i = 0; i < count && is_known; ++i) {
        std::array<char, 352> number{};  // the longest double has 309 digits before its point
        switch (va_arg(values, int)) {
        case LOG_STRING: line += va_arg(values, const char*); break;
        case LOG_INT: std::snprintf(number.data(), number.size(), "%d", va_arg(values, int)); break;
        case LOG_DOUBLE: std::snprintf(number.data(), number.size(), "%f", va_arg(values, double)); break;
        default: is_known = false; continue;
        }
        line += number.data();
        line += ' ';
    }
    va_end(values);
    UA_log_raw(is_known ? line + '\n' : line);
}

}  // namespace nubo
