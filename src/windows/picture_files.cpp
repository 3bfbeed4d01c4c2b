#include "windows/picture_files.h"

#include "base/log.h"
#include "gui/window.h"
#include "state/frames.h"
#include "state/options.h"
#include "windows/color_files.h"
#include "windows/file_list.h"
#include "windows/jpeg_quality_window.h"
#include "windows/picture_formats.h"
#include "windows/run_window.h"
#include "windows/scheme.h"
#include "windows/workspace_archives.h"
#include "workspace/frame_memory.h"
#include "workspace/notices.h"
#include "workspace/preferred_font.h"
#include "workspace/previous.h"
#include "workspace/workspace_files.h"
#include <filesystem>

namespace nubo {
namespace {

namespace fs = std::filesystem;

std::string size_text(const BITMAP* picture) { return std::to_string(picture->w) + "X" + std::to_string(picture->h); }

bool load_picture(const std::string& path) {
    std::error_code no_file;
    if (!fs::exists(path, no_file)) {
        UA_log("[ ERROR ] : Tried to load non-existent file! Name = %s", path.c_str());
        flash_text("THERE IS NO SUCH FILE");
        return false;
    }
    const BusyNotice notice(fs::file_size(path, no_file));
    FileType type = FILE_UNKNOWN;
    ReadPicture picture = read_picture_file(path, type);
    const bool is_whole = picture.cause.empty();
    if (!picture.bitmap || !place_picture(std::move(picture.bitmap))) {
        flash_text("THIS PICTURE CAN'T BE READ. SEE UA_LOG.TXT");
        return false;
    }
    const std::string what =
        size_text(current_frame) + " " + std::string(file_format(type).ending) + loss_text(picture.loss);
    flash_text(is_whole ? "LOADED " + what : "DAMAGED FILE. LOADED WHAT THERE IS: " + what);
    return true;
}

bool save_picture(const std::string& path) {
    if (file_type_from_extension(path, BROWSE_TO_SAVE) == FILE_JPG && jpeg_quality_window() == -1) return false;
    const BusyNotice notice(static_cast<std::size_t>(frame_w) * static_cast<std::size_t>(frame_h));
    const bool saved = write_picture_file(path, current_frame);
    std::error_code away;
    const std::string bytes = saved ? std::to_string(fs::file_size(path, away)) : "";
    flash_text(saved ? "SAVED " + bytes + " BYTES TO " + shown_file_name(fs::path(path).filename())
                     : "FILE COULD NOT BE SAVED! SEE UA_LOG.TXT");
    return saved;
}

/// A Workspace or a file of colours is what it is, also where a picture is looked for. No picture is a font.
FilePurpose purpose_of(FileType type, FilePurpose purpose) {
    const bool tells = purpose == PURPOSE_PICTURE && type != FILE_UNKNOWN && file_format(type).purpose != PURPOSE_FONT;
    return tells ? file_format(type).purpose : purpose;
}

/// The scheme window shows a scheme first; without it the interface takes it at once.
bool load_scheme_for(FilePurpose purpose, const std::string& path) {
    if (load_scheme(path) != 1) return false;
    if (purpose == PURPOSE_SCHEME) return true;
    const ClearedScreen cleared;  // whose window comes back in the new colours
    wear_scheme();
    return true;
}

bool told(bool done, const char* yes, const char* no) {
    flash_text(done ? yes : no);
    return done;
}

}  // namespace

bool is_workspace_file(const std::string& path) {
    std::error_code away;
    const fs::path file = fs::weakly_canonical(fs::absolute(path, away), away),
                   program = fs::weakly_canonical(program_dir.data(), away);
    if (file.parent_path() == program) return is_previous_name(file.filename().string());
    const bool is_inside = file.parent_path() == fs::weakly_canonical(program / "WORKSPACE", away);
    return is_inside && (is_stem(file.stem().string()) || file.stem() == "frames");
}

bool load_file(const std::string& path, FilePurpose purpose) {
    switch (purpose_of(file_type_of(path), purpose)) {
    case PURPOSE_PICTURE: return load_picture(path);
    case PURPOSE_FAVORITES: return told(load_favorites(path) == 1, "FAVORITES LOADED", "THIS IS NO FILE OF FAVORITES");
    case PURPOSE_SCHEME: return told(load_scheme_for(purpose, path), "COLOR SCHEME LOADED", "THIS IS NO COLOR SCHEME");
    case PURPOSE_FONT: choose_preferred_font(path); return true;
    case PURPOSE_ARCHIVE: return load_workspace(path);
    }
    return false;
}

bool save_file(const std::string& path, FilePurpose purpose) {
    constexpr const char* failure = "FILE COULD NOT BE SAVED! SEE UA_LOG.TXT";
    if (is_workspace_file(path)) return told(false, "", "THIS NAME BELONGS TO THE WORKSPACE. TAKE ANOTHER");
    switch (purpose_of(file_type_from_extension(path, BROWSE_TO_SAVE), purpose)) {
    case PURPOSE_PICTURE: return save_picture(path);
    case PURPOSE_FAVORITES: return told(save_favorites(path), "FAVORITES SAVED", failure);
    case PURPOSE_SCHEME: return told(save_scheme(path), "COLOR SCHEME SAVED", failure);
    case PURPOSE_ARCHIVE: return save_workspace(path);
    case PURPOSE_FONT: break;  // none is written
    }
    return false;
}

}  // namespace nubo
