#pragma once
// Folders that stand where another system has drives: each under a letter, one press away in the file browser.
#include <string>
#include <vector>

namespace nubo {

struct Place {
    char letter = 0;     // 'A' to 'Z', each once
    std::string folder;  // absolute, without a slash at its end, but for the root
};

inline constexpr std::size_t place_max = 17;

/// The places of this user: the root, home, the desktop, pictures and downloads as the desktop's settings name them,
/// the program's `fonts` and `SCHEMES`, then what is mounted for the user. Those that aren't there are left out; so is
/// what is one already. `program_dir` is the program's folder.
std::vector<Place> find_places(const std::string& program_dir);

/// The same for who looks for a font: the program's `fonts`, the user's own, those of the machine, then the root, home
/// and downloads and what is mounted.
std::vector<Place> find_font_places(const std::string& program_dir);

/// The user's folder for pictures, or else their home; empty if there is neither.
std::string pictures_folder();

/// `path` with a leading "~" as the user's home.
std::string expand_home(const std::string& path);

}  // namespace nubo
