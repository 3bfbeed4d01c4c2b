#pragma once
// The text in which file managers tell which files were copied.
#include <optional>
#include <string>
#include <string_view>

namespace nubo {

/// The path of the file that a list of URIs names, a line each; none if it names several, none, or one that isn't on
/// this machine.
std::optional<std::string> only_local_file(std::string_view list);

}  // namespace nubo
