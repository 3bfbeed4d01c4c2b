#pragma once
// What a machine can check of the tree's own rules, on text, so that the checks themselves can be tested.
#include <array>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace nubo {

/// The storeys of src/ from the ground up: a file includes what stands in its own or below. A folder with a line of its
/// own is one; any other belongs to the folder that it stands in.
inline constexpr std::array<std::string_view, 16> storeys{
    "state", "base",      "view",        "platform",       "codecs",        "framework",   "gui",     "game",
    "paint", "workspace", "windows/kit", "windows/colors", "windows/files", "windows/cel", "windows", "editor"};

/// `text` with comments gone and with nothing between the quotes of strings and characters; line ends stay. A quoted
/// include keeps its path.
std::string code_only(std::string_view text);

/// What the file at `path` (from the tree's root, as "src/paint/undo.cpp") breaks, one line each with the line's
/// number: an include of a higher storey or of no storey, `extern` in a .cpp, `volatile` but for sig_atomic_t, a
/// static owner of a bitmap, more than 450 lines, a function of more than 45. A test may be a longer script.
std::vector<std::string> faults_of(std::string_view path, std::string_view text);

/// Who includes whom below src/: by the path there without the ending, a header and its .cpp as one.
using IncludeGraph = std::map<std::string, std::set<std::string>>;

/// Adds what the file at `path` (from the tree's root) includes of src/.
void add_includes(IncludeGraph& graph, std::string_view path, std::string_view text);

/// A circle of files that include each other, as "a, b, a"; empty for none.
std::string circle_in(const IncludeGraph& graph);

}  // namespace nubo
