#include "platform/places.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string_view>
#include <sys/stat.h>

namespace nubo {
namespace {

bool is_folder(const std::string& path) {
    struct stat status {};
    return !path.empty() && stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::string from_environment(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::string home() { return from_environment("HOME"); }

/// Reads `XDG_PICTURES_DIR="$HOME/Pictures"` and its like from the desktop's settings; `usual` where they don't tell.
std::string user_folder(const std::string& key, const char* usual) {
    std::string settings = from_environment("XDG_CONFIG_HOME");
    if (settings.empty()) settings = home() + "/.config";
    std::ifstream file(settings + "/user-dirs.dirs");
    const std::string start = "XDG_" + key + "_DIR=\"", variable = "$HOME";
    for (std::string line; std::getline(file, line);) {
        if (line.rfind(start, 0) != 0) continue;
        std::string folder = line.substr(start.size(), line.find('"', start.size()) - start.size());
        if (folder.rfind(variable, 0) == 0) folder = home() + folder.substr(variable.size());
        return folder;
    }
    return home() + usual;
}

/// Folders on which drives, cards and shares are mounted for a user. The list writes a blank in a name as "\040".
std::vector<std::string> mounted_folders() {
    constexpr std::string_view roots[] = {"/media/", "/mnt/", "/run/media/"};
    constexpr std::string_view blank = "\\040";
    std::vector<std::string> folders;
    std::ifstream mounts("/proc/self/mounts");
    for (std::string line; std::getline(mounts, line);) {
        std::istringstream words(line);
        std::string device, folder;
        words >> device >> folder;
        for (std::size_t at = 0; (at = folder.find(blank, at)) != std::string::npos; ++at)
            folder.replace(at, blank.size(), 1, ' ');
        const auto below = [&](std::string_view root) { return folder.rfind(root, 0) == 0; };
        if (std::any_of(std::begin(roots), std::end(roots), below)) folders.push_back(folder);
    }
    std::sort(folders.begin(), folders.end());
    return folders;
}

/// A home of "/home/me/" and one of "/home/me" are one place.
std::string without_end_slash(std::string folder) {
    while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
    return folder;
}

void add_place(std::vector<Place>& places, char letter, std::string folder) {
    folder = without_end_slash(std::move(folder));
    const auto is_it = [&](const Place& place) { return place.folder == folder || place.letter == letter; };
    if (places.size() >= place_max || !is_folder(folder)) return;
    if (std::none_of(places.begin(), places.end(), is_it)) places.push_back({letter, folder});
}

/// The first letter that no place has, from A on.
char free_letter(const std::vector<Place>& places) {
    char letter = 'A';
    const auto has_it = [&](const Place& place) { return place.letter == letter; };
    while (letter < 'Z' && std::any_of(places.begin(), places.end(), has_it)) ++letter;
    return letter;
}

void add_mounted_places(std::vector<Place>& places) {
    for (const std::string& folder : mounted_folders()) add_place(places, free_letter(places), folder);
}

}  // namespace

std::string pictures_folder() {
    const std::string pictures = user_folder("PICTURES", "/Pictures");
    if (is_folder(pictures)) return without_end_slash(pictures);
    return is_folder(home()) ? without_end_slash(home()) : "";
}

std::vector<Place> find_places(const std::string& program_dir) {
    std::vector<Place> places;
    add_place(places, 'C', "/");
    add_place(places, 'H', home());
    add_place(places, 'D', user_folder("DESKTOP", "/Desktop"));
    add_place(places, 'P', user_folder("PICTURES", "/Pictures"));
    add_place(places, 'L', user_folder("DOWNLOAD", "/Downloads"));
    add_place(places, 'F', program_dir + "/fonts");
    add_place(places, 'S', program_dir + "/SCHEMES");
    add_mounted_places(places);
    return places;
}

std::vector<Place> find_font_places(const std::string& program_dir) {
    std::string user_data = from_environment("XDG_DATA_HOME");
    if (user_data.empty()) user_data = home() + "/.local/share";
    std::vector<Place> places;
    add_place(places, 'F', program_dir + "/fonts");
    add_place(places, 'U', user_data + "/fonts");
    add_place(places, 'S', "/usr/share/fonts");
    add_place(places, 'L', "/usr/local/share/fonts");
    add_place(places, 'C', "/");
    add_place(places, 'H', home());
    add_place(places, 'D', user_folder("DOWNLOAD", "/Downloads"));
    add_mounted_places(places);
    return places;
}

std::string expand_home(const std::string& path) {
    const bool at_home = path == "~" || path.rfind("~/", 0) == 0;
    return at_home && !home().empty() ? home() + path.substr(1) : path;
}

}  // namespace nubo
