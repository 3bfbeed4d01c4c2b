#pragma once
// One editor to a program folder.
#include <string>

namespace nubo {

inline constexpr int exit_locked = 3;  // exit code of a start that found the folder taken

/// Locks a folder for this process until it ends, however it ends; nothing is written. False if another process holds
/// it. A file system without locks counts as free, with a log line.
bool lock_folder(const std::string& folder);

}  // namespace nubo
