#pragma once
// The lines that the scripts write into the log: those of one tick go out together, since each write by itself takes as
// long as the tick has. Timer flow.

namespace nubo {

/// Adds a line. `format` has one %d.
void log_script_line(const char* format, int value);

/// Writes the lines so far: at the end of a tick, and before a call that may log itself, so that all stay in order.
void flush_script_lines();

}  // namespace nubo
