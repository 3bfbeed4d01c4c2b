#include "workspace/archive.h"

#include "base/log.h"
#include "gui/progress_box.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "workspace/archive_file.h"
#include "workspace/folders.h"
#include "workspace/notices.h"
#include "workspace/pack.h"
#include "workspace/replace.h"
#include "workspace/rescue.h"
#include "workspace/state_file.h"
#include <algorithm>

namespace nubo {
namespace {

const std::string not_saved = "THE WORKSPACE COULD NOT BE SAVED! ", not_loaded = "THE WORKSPACE COULD NOT BE LOADED! ";

bool refuse(const char* line, const std::string& told) {
    UA_log("[ ERROR ] : %s", line);
    flash_text(told);
    return false;
}

bool refuse_load(const char* line) { return refuse(line, not_loaded + see_log); }

bool save_with_box(const std::string& path, ProgressBox& box) {
    if (!reach_workspace()) return refuse("WORKSPACE directory unavailable. Aborting save!", not_saved + see_log);
    SafeFile archive(path);
    const std::string fault = pack_workspace(archive, box, SYNC_NOW);
    box.tell(100);
    browse_in(workspace_folder());
    if (!fault.empty()) flash_text(not_saved + fault);
    return fault.empty();
}

// ---- Loading: what is new, beside what stands -----------------------------------------------------------------------

/// An empty picture beside the Frames is a missing one.
bool is_missing(const ArchiveContents& contents, int index) {
    const bool is_state = index + 1 == component_count(contents.head.frame_count);
    return !is_state && contents.parts[static_cast<unsigned>(index)].size == 0;
}

bool stage_components(const InputFile& archive, const ArchiveContents& contents, ProgressBox& box) {
    const int frames = contents.head.frame_count;
    CopyBuffer buffer = buffer_of(box, frames);
    for (int i = 0; i < component_count(frames); ++i) {
        buffer.component = i;
        const std::string name = workspace_folder().file(component_name(STEM_LOADED, i, frames));
        const ArchivePart& part = contents.parts[static_cast<unsigned>(i)];
        if (!is_missing(contents, i) && unpack_component(archive, part, name, buffer) != 0) return false;
    }
    box.tell(100);
    return true;
}

// ---- Loading: the new in place of the old ---------------------------------------------------------------------------

template <std::size_t N> void set_text(std::array<char, N>& buffer, const std::string& text) {
    buffer.fill('\0');
    text.copy(buffer.data(), N - 1);
}

/// The files are in their places: what memory holds is of the old Workspace. The state's own title and notes win.
void take_into_memory(const ArchiveHead& head) {
    handlers_locked = 1;
    set_text(workspace_title, head.title);
    set_text(workspace_notes, head.notes);
    load_workspace_state(state_file, {});
    frame_count = head.frame_count;
    if (workspace_damaged != 0) queue_box(LABEL_WORKSPACE_DAMAGED, LABEL_REPAIRS_MADE);
    handlers_locked = 0;
}

bool replace_by(const std::string& path, const InputFile& archive, const ArchiveContents& contents) {
    const std::string fault =
        replace_workspace({.title = LABEL_LOADING_WORKSPACE,
                           .frame_count = contents.head.frame_count,
                           .bytes = archive.size(),
                           .source = source_of_archive(path),
                           .stage = [&](ProgressBox& box) { return stage_components(archive, contents, box); },
                           .take = [&] { take_into_memory(contents.head); }});
    if (!fault.empty()) flash_text(not_loaded + fault);
    return fault.empty();
}

bool load_checked(const std::string& path) {
    if (!file_exists(path))
        return refuse("Workspace archive is missing or corrupt! Aborting load!", "THERE IS NO SUCH FILE");
    const InputFile archive(path);
    if (!archive.is_open()) return refuse_load("Failure to read file at OS level! Aborting load!");
    if (!reach_workspace()) return refuse_load("WORKSPACE directory unavailable. Aborting load!");
    ArchiveContents contents;
    const char* fault = read_archive(archive, contents);
    if (fault == nullptr && find_bent_frame(archive, contents) >= 0) fault = "a frame in it is no picture";
    if (fault == nullptr) return replace_by(path, archive, contents);
    refuse("Workspace packfile appears to be corrupt. Aborting load!", "THIS IS NO WORKSPACE, OR A DAMAGED ONE");
    UA_log("[ STATS ] : %s: %s", path.c_str(), fault);
    return false;
}

}  // namespace

int save_workspace_archive(const std::string& path) {
    const RescueHold hold;
    ProgressBox box(LABEL_SAVING_WORKSPACE);
    return save_with_box(path, box) ? 0 : -1;
}

bool archive_workspace(const std::string& path) {
    const RescueHold hold;
    ProgressBox box(LABEL_SAVING_WORKSPACE);
    // The file that is to be replaced may be all that there is of a Frame that has vanished.
    if (reach_workspace() && !replace_missing_frames()) return flash_text("NOT SAVED: " + missing_frames_told()), false;
    if (save_workspace_state(state_file, false)) return save_with_box(path, box);
    flash_text(not_saved + see_log);
    return false;
}

int load_workspace_archive(const std::string& path) {
    if (!load_checked(path)) return -1;
    browse_in(workspace_folder());
    return 0;
}

}  // namespace nubo
