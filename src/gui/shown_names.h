#pragma once
// Names of files, and other words from outside, as the interface shows them.
#include <string>

namespace nubo {

/// In capitals, a "?" for each character that the interface's font lacks.
std::string shown_file_name(const std::string& name);

/// The name of the file at `path` in the same way, cut to 20 characters for a message in the status bar.
std::string short_file_name(const std::string& path);

}  // namespace nubo
