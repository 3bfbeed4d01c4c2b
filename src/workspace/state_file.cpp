#include "workspace/state_file.h"

#include "base/log.h"
#include "paint/undo.h"
#include "platform/input_file.h"
#include "platform/safe_file.h"
#include "state/browse.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "state/view.h"
#include "workspace/defaults.h"
#include "workspace/folders.h"
#include "workspace/frame_memory.h"
#include "workspace/frame_moves.h"
#include "workspace/notices.h"
#include "workspace/preferred_font.h"
#include "workspace/rename_job.h"
#include "workspace/rescue.h"
#include "workspace/side_files.h"
#include "workspace/state_fields.h"
#include "workspace/workspace_files.h"
#include <algorithm>
#include <array>
#include <cstdlib>

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

bool write_state(const Folder& folder, const char* name) {
    const std::string path = folder.file(name);
    if (!make_way(path)) return false;
    const std::vector<std::uint8_t> bytes = pack_state();
    return write_file(path, bytes.data(), bytes.size());
}

/// The Frame and the pictures beside the state. Each is tried, whatever became of the one before; but a Nail under an
/// open job would be shifted by it at the next start.
bool write_pictures(const Folder& folder, const std::string& stem) {
    bool written = store_frame({folder, frame_index});
    for (const SideFile kind : {SIDE_CEL, SIDE_TIP}) written = save_side_file(folder, kind, stem) && written;
    return !job_is_open(folder) && save_side_file(folder, SIDE_NAIL, stem) && written;
}

/// The slot to open: the stored one, or the last that has a file.
int slot_to_open(const Folder& folder) {
    if (FrameSlot{folder, frame_index}.has_frame()) return frame_index;
    int last = 0;
    for (int slot = 1; slot < frame_slots; ++slot)
        if (FrameSlot{folder, slot}.has_frame()) last = slot;
    UA_log("[ INFO ] : Frame %d, the current one, is missing. Opening frame %d", static_cast<int>(frame_index), last);
    mark_damage();
    return last;
}

/// The Workspace but for its font.
bool read_workspace(const char* name, const FrameRepairs& repairs) {
    const Folder folder = workspace_folder();
    const std::string stem = stem_of(name), path = folder.file(name);
    while (!file_exists(path)) {
        set_workspace_defaults();
        opt_cel_masking = 1;
        opt_file_preview = PREVIEW_ALL;
        if (!file_exists(folder.file("alternate.spa"))) return false;
        swap_to_alternate();
        if (!file_exists(path)) return false;  // the disk doesn't let it be renamed
    }
    if (!read_state(path)) mark_damage();
    follow_with_views(repairs);
    open_frame({folder, slot_to_open(folder)});
    for (const SideFile kind : {SIDE_CEL, SIDE_TIP, SIDE_NAIL})
        if (!load_side_file(folder, kind, stem)) repair_workspace(folder, kind);
    follow_with_tiles(repairs);
    remove_alternate_files();
    return true;
}

}  // namespace

bool write_workspace(const Folder& folder, const char* name, bool state_only) {
    const std::string stem = stem_of(name);
    if (!row_is_whole(folder)) return false;
    const bool written = write_state(folder, name);
    if (written) end_job(folder);
    return (state_only || write_pictures(folder, stem)) && written;
}

bool settle_job() {
    const Folder folder = workspace_folder();
    return (!job_is_open(folder) || write_state(folder, state_file)) && end_job(folder);
}

bool save_workspace_state(const char* name, bool state_only) {
    settle_rescue();
    keep_view(frame_index);
    if (!reach_workspace()) return false;
    UA_log("[ SPA ] : Workspace save at: %s", program_dir.data());
    const auto kept_dir = image_dir;
    if (image_dir[0] != '\0') image_dir = browse_dir;  // where the user is now, who has been there
    const bool written = write_workspace(workspace_folder(), name, state_only);
    image_dir = kept_dir;
    browse_in(program_folder());
    return written;
}

bool read_state(const std::string& path) {
    set_workspace_defaults();
    std::vector<std::uint8_t> bytes;
    const bool read = read_file(path, state_file_limit, bytes);
    read ? forget_unread(path) : keep_unread(path);
    return unpack_state(bytes, path.c_str()) && read;
}

bool load_workspace_state(const char* name, const FrameRepairs& repairs) {
    renumber_changed_frame([](int) { return -1; });  // their Frames are another Workspace's
    const bool there = read_workspace(name, repairs);
    select_preferred_font();
    return there;
}

void swap_to_alternate() {
    const bool was_locked = handlers_locked != 0;
    handlers_locked = 1;
    UA_log("[ INFO ] : Swapping to alternate workspace");
    const Folder folder = workspace_folder();
    for (int slot = 0; slot < frame_slots; ++slot) {
        const std::string from = slot_of_row(slot).path(STEM_ALTERNATE), to = slot_of_row(slot).frame();
        // A Frame that stands there without a state file is somebody's all the same.
        if (file_exists(from) && (!file_exists(to) || set_aside(to))) rename_file(from, to);
    }
    for (const char* ending : side_endings) {
        const std::string from = folder.file(side_file_name(STEM_ALTERNATE, ending));
        if (file_exists(from)) rename_file(from, folder.file(side_file_name(STEM_CURRENT, ending)));
    }
    if (!was_locked) handlers_locked = 0;
}

void remove_alternate_files() {
    const Folder folder = workspace_folder();
    for (int slot = 0; slot < frame_slots; ++slot) remove_file(slot_of_row(slot).path(STEM_ALTERNATE));
    for (const char* ending : side_endings) remove_file(folder.file(side_file_name(STEM_ALTERNATE, ending)));
}

}  // namespace nubo
