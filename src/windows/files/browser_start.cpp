#include "windows/files/browser_start.h"

#include "gui/elements.h"
#include "platform/places.h"
#include "state/browse.h"
#include "state/frame_sources.h"
#include "windows/files/picture_formats.h"
#include "workspace/folders.h"
#include "workspace/preferred_font.h"
#include <algorithm>
#include <filesystem>

namespace nubo {
namespace {

namespace fs = std::filesystem;

/// Null for pictures and fonts.
BrowsePlace* place_of(FilePurpose purpose) {
    switch (purpose) {
    case PURPOSE_ARCHIVE: return &browse_places[BROWSE_WORKSPACES];
    case PURPOSE_FAVORITES: return &browse_places[BROWSE_PALETTES];
    case PURPOSE_SCHEME: return &browse_places[BROWSE_SCHEMES];
    case PURPOSE_PICTURE:
    case PURPOSE_FONT: break;
    }
    return nullptr;
}

/// Where the browser was, or, the first time, the user's pictures; of schemes where those are that come with the
/// program.
std::string last_folder(FilePurpose purpose) {
    if (purpose == PURPOSE_FONT) return font_folder().path();
    const BrowsePlace* const place = place_of(purpose);
    if (place != nullptr && place->folder[0] != '\0') return place->folder.data();
    if (purpose == PURPOSE_SCHEME) return program_folder().inside("SCHEMES").path();
    return image_dir[0] != '\0' ? browse_folder().path() : pictures_folder();
}

std::string name_of(const std::string& path) { return fs::path(path).filename(); }

/// The last name that was picked, unless another Frame is of that file.
std::string last_picture() {
    const std::string name = image_file.data();
    const auto is_it = [&](const std::string& source) { return name_of(source) == name; };
    return std::ranges::any_of(frame_source, is_it) ? "" : name;
}

/// The last name, if it is of the kind that is to be saved: no picture is to be lost for a Workspace. Files of colours
/// may have any ending.
std::string last_name(FilePurpose purpose) {
    if (const BrowsePlace* const place = place_of(purpose)) return place->file.data();
    const std::string& source = frame_source[at(frame_index)];
    const std::string name = source.empty() ? last_picture() : name_of(source);
    const FileType type = file_type_from_extension(name, BROWSE_TO_SAVE);
    return type == FILE_UNKNOWN || file_format(type).purpose == purpose ? name : "";
}

}  // namespace

BrowserStart browser_start(BrowserMode mode, FilePurpose purpose) {
    const bool saves = mode == BROWSE_TO_SAVE;
    const std::string& source = frame_source[at(frame_index)];
    const bool has_own = saves && purpose == PURPOSE_PICTURE && source.starts_with('/');
    const std::string home = mode == BROWSE_FOR_FONT ? default_font_dir.data() : default_image_dir.data();
    const std::string own = has_own ? fs::path(source).parent_path().string() : "";
    return {{own, home, last_folder(purpose), program_dir.data(), "/"}, saves ? last_name(purpose) : ""};
}

void remember_browsing(FilePurpose purpose, const std::string& folder, const std::string& file) {
    BrowsePlace* const place = place_of(purpose);
    if (place == nullptr || folder.size() >= path_size || file.size() >= file_name_size) return;
    place->folder.fill('\0');
    std::ranges::copy(folder, place->folder.begin());
    if (file.empty()) return;
    place->file.fill('\0');
    std::ranges::copy(file, place->file.begin());
}

}  // namespace nubo
