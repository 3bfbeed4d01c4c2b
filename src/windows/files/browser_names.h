#pragma once
// The names in the file browser: paths of what is listed or typed, and what a filter lets through. Main flow only.
#include <string>
#include <string_view>
#include <vector>

namespace nubo {

/// The path of what the list names.
std::string path_of_entry(const std::string& name);

/// What the user has typed, as an absolute path without ".." and a slash at its end.
std::string absolute_path(const std::string& typed);

bool is_folder(const std::string& path);

/// A font in a form that TEXT takes, beside those of the table of formats.
bool is_other_font(const std::string& name);

/// The endings that a filter button lets through, its own first; none for -1, no filter.
std::vector<std::string_view> endings_of_filter(int filter);

}  // namespace nubo
