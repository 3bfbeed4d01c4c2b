#pragma once
// The log: one plain-text file, one line a call, each on disk when the call returns. Callable from both flows.
#include <string_view>

namespace nubo {

/// Deletes the log of the run before, if there is one in the current directory.
void UA_log_reset();

/// Opens `UA_log.txt` for appending in the current directory, or else in `fallback_dir` (null: none); a link, a pipe or
/// a device of that name counts as one that can't be opened. Where neither can be, the lines go to standard error.
void UA_log_open(const char* fallback_dir = nullptr);

/// Writes one line. In `format`, %s and %S take a string, %d and %D an int, %f and %F a double with six decimals, %%
/// writes one percent sign; any other character after % writes nothing and takes no argument.
void UA_log(const char* format, ...);

/// Writes text as it stands, without ending the line.
void UA_log_raw(std::string_view text);

void UA_log_close();

}  // namespace nubo
