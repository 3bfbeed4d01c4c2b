#pragma once
// Files that another start of the program has handed over, until they are opened. Main flow only.
#include <string>
#include <vector>

namespace nubo {

/// Once a picture: takes what has been handed over. The window comes forward at once, and the status bar says what will
/// be opened, since a window or a tool may wait for the user.
void notice_handed_files();

/// True when such files wait to be opened: windows that can be left without loss then give way.
bool files_wait();

/// Those files, which wait no longer.
std::vector<std::string> take_waiting_files();

/// At the program's end: those that were never opened are named in the log.
void leave_handed_files();

}  // namespace nubo
