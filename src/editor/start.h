#pragma once
// How the program comes up.
#include <optional>
#include <string>
#include <vector>

namespace nubo {

/// The start sequence, up to the program loop; the files, absolute paths, are opened at its end. Else the exit code of
/// a program that doesn't run: it can't, and what is wrong has been said, or another one that runs has taken the files.
std::optional<int> start_program(const std::vector<std::string>& files);

}  // namespace nubo
