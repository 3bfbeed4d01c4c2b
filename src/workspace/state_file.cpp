#include "workspace/state_file.h"

#include "base/log.h"
#include "platform/input_file.h"
#include "platform/safe_file.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "state/view.h"
#include "workspace/folders.h"
#include "workspace/frame_files.h"
#include "workspace/frame_moves.h"
#include "workspace/frame_store.h"
#include "workspace/notices.h"
#include "workspace/rescue.h"
#include "workspace/side_files.h"
#include "workspace/state_fields.h"
#include "workspace/workspace.h"
#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

namespace nubo {
namespace {

/// The name less its ending: "current.". A name too short to have one is a fault of ours that would scatter files.
std::string stem_of(const char* name) {
    constexpr std::size_t shortest = 5, ending = 3;
    const std::string text = name;
    if (text.size() < shortest) {
        UA_log("[ ERROR ] : Length of workspace filename is too short! Cannot proceed!");
        std::exit(-1);
    }
    return text.substr(0, text.size() - ending);
}

/// The current folder, as it is written on disk; nothing if it is gone or its name has no room.
std::array<char, path_size> current_folder() {
    std::array<char, path_size> folder{};
    if (getcwd(folder.data(), folder.size()) == nullptr) folder.fill('\0');
    return folder;
}

bool write_state(const char* name) {
    const std::vector<std::uint8_t> bytes = pack_state();
    return write_file(name, bytes.data(), bytes.size());
}

/// The Frame and the pictures beside the state. Each is tried, whatever became of the one before.
bool write_pictures(const std::string& stem) {
    bool written = save_frame_to_slot(frame_index);
    for (const SideFile kind : {SIDE_CEL, SIDE_TIP, SIDE_NAIL}) written = save_side_file(kind, stem) && written;
    return written;
}

/// False if it can't be reached: then the files land where the process stands.
bool enter_folder_to_write() {
    const bool there = enter_program_dir();
    if (there) {
        UA_log("[ SPA ] : Workspace save at: %s", program_dir.data());
    } else {
        UA_log("[ ERROR ] : WORKSPACE directory unavailable. Writing workspace to current location");
        UA_log("[ STATS ] : Current location is: %s", image_dir.data());
    }
    return enter_workspace_from_here() && there;
}

/// One that is no plain file can't be read and not be written over either.
bool read_state(const char* name) {
    std::vector<std::uint8_t> bytes;
    const bool read = read_file(name, state_file_limit, bytes);
    if (!read) set_aside(name);
    return unpack_state(bytes, name) && read;
}

/// The slot to open: the stored one, or the last that has a file.
int slot_to_open() {
    if (file_exists(frame_file_name(STEM_CURRENT, frame_index))) return frame_index;
    int last = 0;
    for (int slot = 1; slot < frame_slots; ++slot)
        if (file_exists(frame_file_name(STEM_CURRENT, slot))) last = slot;
    UA_log("[ INFO ] : Frame %d, the current one, is missing. Opening frame %d", static_cast<int>(frame_index), last);
    mark_damage();
    return last;
}

void load_frame_of_state() {
    const int slot = slot_to_open();
    if (slot != frame_index) {
        frame_index = slot;
        const FrameView& view = frame_view[static_cast<unsigned>(slot)];
        pan_x = view.pan_x;
        pan_y = view.pan_y;
        zoom = std::max(view.zoom, zoom_min);
    }
    load_frame_or_blank(slot);
}

constexpr std::array side_endings{"cel", "nal", "tip", "spa"};  // the state last: with it the swap is whole

}  // namespace

bool write_workspace_here(const char* name, bool state_only) {
    const std::string stem = stem_of(name);
    const bool written = write_state(name);
    return (state_only || write_pictures(stem)) && written;
}

bool save_workspace_state(const char* name, bool state_only) {
    settle_rescue();
    frame_view[static_cast<unsigned>(frame_index)] = {pan_x, pan_y, zoom};
    const auto kept_dir = image_dir;
    image_dir = current_folder();
    const bool entered = enter_folder_to_write();
    const bool written = write_workspace_here(name, state_only);
    image_dir = kept_dir;
    if (entered) end_frame_move();
    if (!enter_program_dir()) enter_folder("..");
    return entered && written;
}

bool load_workspace_state(const char* name) {
    const std::string stem = stem_of(name);
    while (!file_exists(name)) {
        set_workspace_defaults();
        opt_cel_masking = 1;
        opt_file_preview = PREVIEW_ALL;
        if (!file_exists("alternate.spa")) return false;
        swap_to_alternate();
        if (!file_exists(name)) return false;  // the disk doesn't let it be renamed
    }
    if (!read_state(name)) mark_damage();
    follow_with_views();
    load_frame_of_state();
    for (const SideFile kind : {SIDE_CEL, SIDE_TIP, SIDE_NAIL})
        if (!load_side_file(kind, stem)) repair_workspace(kind);
    follow_with_tiles();
    remove_alternate_files();
    return true;
}

void swap_to_alternate() {
    const bool was_locked = handlers_locked != 0;
    handlers_locked = 1;
    UA_log("[ INFO ] : Swapping to alternate workspace");
    for (int slot = 0; slot < frame_slots; ++slot) {
        const std::string from = frame_file_name(STEM_ALTERNATE, slot), to = frame_file_name(STEM_CURRENT, slot);
        // A Frame that stands there without a state file is somebody's all the same.
        if (file_exists(from) && (!file_exists(to) || set_aside(to))) rename_file(from, to);
    }
    for (const std::string ending : side_endings)
        if (file_exists("alternate." + ending)) rename_file("alternate." + ending, "current." + ending);
    if (!was_locked) handlers_locked = 0;
}

void remove_alternate_files() {
    for (int slot = 0; slot < frame_slots; ++slot) {
        const std::string file = frame_file_name(STEM_ALTERNATE, slot);
        if (file_exists(file)) remove_file(file);
    }
    for (const std::string ending : side_endings)
        if (file_exists("alternate." + ending)) remove_file("alternate." + ending);
}

}  // namespace nubo
