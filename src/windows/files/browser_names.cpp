#include "windows/files/browser_names.h"

#include "platform/places.h"
#include "state/options.h"
#include "windows/files/file_browser_rows.h"
#include "windows/files/picture_formats.h"
#include <algorithm>
#include <cctype>
#include <filesystem>

namespace nubo {
namespace {

namespace fs = std::filesystem;

std::string path_in(const std::string& folder, const std::string& name) {
    return folder == "/" ? folder + name : folder + "/" + name;
}

/// The path without ".." and a slash at its end.
std::string plain_path(const std::string& path) {
    std::string plain = fs::path(path).lexically_normal();
    while (plain.size() > 1 && plain.back() == '/') plain.pop_back();
    return plain;
}

}  // namespace

std::string path_of_entry(const std::string& name) { return plain_path(path_in(image_dir.data(), name)); }

std::string absolute_path(const std::string& typed) {
    const std::string path = expand_home(typed);
    return path.starts_with('/') ? plain_path(path) : path_of_entry(path);
}

bool is_folder(const std::string& path) {
    std::error_code away;
    return fs::is_directory(path, away);
}

bool is_other_font(const std::string& name) {
    std::string ending = fs::path(name).extension();
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](unsigned char letter) { return std::tolower(letter); });
    return ending == ".otf" || ending == ".bdf";
}

std::vector<std::string_view> endings_of_filter(int filter) {
    if (filter == -1) return {};
    const FileType type = filter_types[at(filter)];
    if (type == FILE_UNKNOWN) return {otf_ending};
    const auto endings = file_format(type).endings;
    return {endings.begin(), endings.end()};
}

}  // namespace nubo
