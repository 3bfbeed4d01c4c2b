#pragma once
// What the program is called with.
#include <optional>
#include <string>
#include <vector>

namespace nubo {

struct CommandLine {
    std::optional<int> answered;     // the exit code of a call that only asks something, or is misused
    std::vector<std::string> files;  // to be opened, as absolute paths
};

/// Reads the arguments and answers those that ask. Paths are taken from where the process stands: called before it goes
/// elsewhere.
CommandLine read_command_line(int argc, char** argv);

}  // namespace nubo
