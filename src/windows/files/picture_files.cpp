#include "windows/files/picture_files.h"

#include "base/log.h"
#include "gui/shown_names.h"
#include "gui/window.h"
#include "paint/cel_pixels.h"
#include "platform/input_file.h"
#include "platform/safe_file.h"
#include "state/cel.h"
#include "state/colors.h"
#include "state/frame_sources.h"
#include "state/frames.h"
#include "state/options.h"
#include "windows/colors/color_files.h"
#include "windows/colors/scheme.h"
#include "windows/files/alpha_box.h"
#include "windows/files/jpeg_quality_window.h"
#include "windows/files/picture_formats.h"
#include "windows/files/workspace_archives.h"
#include "windows/kit/over_frame.h"
#include "windows/kit/placement.h"
#include "windows/kit/run_window.h"
#include "workspace/frame_memory.h"
#include "workspace/frame_slot.h"
#include "workspace/notices.h"
#include "workspace/preferred_font.h"
#include "workspace/previous.h"
#include <filesystem>

namespace nubo {
namespace {

namespace fs = std::filesystem;

std::string size_text(const BITMAP* picture) { return std::to_string(picture->w) + "X" + std::to_string(picture->h); }

bool tell_unreadable(const std::string& path) {
    flash_text(why_unreadable(path).empty() ? "THIS PICTURE CAN'T BE READ. SEE UA_LOG.TXT"
                                            : "THIS FILE MAY NOT BE READ");
    return false;
}

/// The picture of the file with its alpha; without a bitmap, and told, if it can't be read.
ReadPicture read_told(const std::string& path, FileType& type) {
    std::error_code no_file;
    if (!fs::exists(path, no_file)) {
        UA_log("[ ERROR ] : Tried to load non-existent file! Name = %s", path.c_str());
        flash_text("THERE IS NO SUCH FILE");
        return {};
    }
    const BusyNotice notice(fs::file_size(path, no_file));
    ReadPicture picture = read_picture_file(path, type);
    if (!picture.bitmap) tell_unreadable(path);
    return picture;
}

void tell_loaded(const ReadPicture& picture, const std::string& what) {
    const std::string all = what + loss_text(picture.loss);
    flash_text(picture.cause.empty() ? "LOADED " + all : "DAMAGED FILE. LOADED WHAT THERE IS: " + all);
}

bool load_picture(const std::string& path) {
    FileType type = FILE_UNKNOWN;
    ReadPicture picture = read_told(path, type);
    if (!picture.bitmap || !settle_alpha_by_user(picture, mask_color)) return false;
    if (!take_as_changed(std::move(picture.bitmap))) return tell_unreadable(path);
    frame_source[at(frame_index)] = fs::path(path).filename();
    tell_loaded(picture, size_text(current_frame) + " " + std::string(file_format(type).ending()));
    return true;
}

/// A Frame that was opened from outside stays where the user has it; else the browser's folder holds.
void note_source(const std::string& path) {
    std::string& source = frame_source[at(frame_index)];
    source = source.starts_with('/') ? path : fs::path(path).filename().string();
}

bool save_picture(const std::string& path) {
    const FileType type = written_type(path);
    if (type == FILE_JPG && jpeg_quality_window() == -1) return false;
    const BusyNotice notice(static_cast<std::size_t>(frame_w) * static_cast<std::size_t>(frame_h));
    const bool saved = write_picture_file(path, current_frame);
    if (!saved) return flash_text("FILE COULD NOT BE SAVED! SEE UA_LOG.TXT"), false;
    note_source(path);
    std::error_code away;
    flash_text("SAVED " + std::string(file_format(type).ending()) + " OF " + std::to_string(fs::file_size(path, away)) +
               " BYTES TO " + shown_file_name(fs::path(path).filename()));
    return true;
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

bool load_cut_out(const std::string& path) {
    if (purpose_of(file_type_of(path), PURPOSE_PICTURE) != PURPOSE_PICTURE)
        return flash_text("ONLY A PICTURE CAN BE THE CEL"), false;
    FileType type = FILE_UNKNOWN;
    ReadPicture picture = read_told(path, type);
    if (!picture.bitmap) return false;
    settle_alpha(picture, ALPHA_MASK, mask_color, transparent_color);
    if (!take_cel(std::move(picture.bitmap))) return flash_message(MESSAGE_NO_MEMORY), false;
    cel_x = cel_y = 0;
    run_over_shadow([] { place_cel(true, true); });
    if (exit_requested == 0) tell_loaded(picture, "THE CEL OF " + size_text(cel_mask));
    return true;
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

bool may_save_as(const std::string& path, FilePurpose purpose) {
    const std::string name = shown_file_name(fs::path(path).filename());
    if (is_workspace_file(path)) return flash_text("THIS NAME BELONGS TO THE WORKSPACE. TAKE ANOTHER"), false;
    if (is_write_protected(path)) return flash_text("WRITE PROTECTED, NOT REPLACED: " + name), false;
    const std::string foreign = purpose == PURPOSE_PICTURE ? foreign_picture_ending(path) : "";
    if (!foreign.empty()) return flash_text(foreign + " ISN'T WRITTEN HERE. TAKE PNG, GIF, BMP, PCX OR JPG"), false;
    return true;
}

bool save_file(const std::string& path, FilePurpose purpose) {
    constexpr const char* failure = "FILE COULD NOT BE SAVED! SEE UA_LOG.TXT";
    if (!may_save_as(path, purpose)) return false;
    std::error_code away;
    remove_unfinished_files(fs::weakly_canonical(fs::absolute(path), away).parent_path(), UNFINISHED_BY_ENDED);
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
