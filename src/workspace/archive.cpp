#include "workspace/archive.h"

#include "base/log.h"
#include "gui/progress_box.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "workspace/archive_file.h"
#include "workspace/folders.h"
#include "workspace/frame_moves.h"
#include "workspace/notices.h"
#include "workspace/rename_job.h"
#include "workspace/rescue.h"
#include "workspace/state_file.h"
#include <algorithm>

namespace nubo {
namespace {

constexpr const char* not_saved = "THE WORKSPACE COULD NOT BE SAVED! SEE UA_LOG.TXT";

bool refuse(const char* line, const char* told) {
    UA_log("[ ERROR ] : %s", line);
    flash_text(told);
    return false;
}

bool refuse_load(const char* line) { return refuse(line, "THE WORKSPACE COULD NOT BE LOADED! SEE UA_LOG.TXT"); }

/// A buffer whose progress shows in the box: each Frame has its share, the rest counts for nothing.
CopyBuffer buffer_of(ProgressBox& box, int frames) {
    CopyBuffer buffer;
    buffer.told = [&box, frames](int component, double share) {
        constexpr double below_all = 99;
        box.tell(std::min((component + share) * 100 / frames, below_all));
    };
    return buffer;
}

ArchiveHead head_in_memory() { return {workspace_title.data(), workspace_notes.data(), frame_count}; }

/// Writes the Workspace's files behind one another.
bool write_whole(SafeFile& archive, ProgressBox& box) {
    if (!settle_job()) return false;
    CopyBuffer buffer = buffer_of(box, frame_count);
    return write_archive(archive, workspace_folder(), head_in_memory(), buffer);
}

bool save_with_box(const std::string& path, ProgressBox& box) {
    if (!reach_workspace()) return refuse("WORKSPACE directory unavailable. Aborting save!", not_saved);
    SafeFile archive(path);
    const bool written = write_whole(archive, box) && archive.commit();
    box.tell(100);
    browse_in(workspace_folder());
    if (!written) flash_text(not_saved);
    return written;
}

// ---- Loading: what is new, beside what stands -----------------------------------------------------------------------

/// The Workspace that goes. It lasts from the next `sync_disk` on.
bool stage_previous() {
    ProgressBox box(LABEL_SAVING_WORKSPACE);
    if (!save_workspace_state(state_file, false)) return false;
    SafeFile archive(path_of(workspace_folder(), previous_staged));
    return write_whole(archive, box) && archive.commit(SYNC_WITH_DISK);
}

/// An empty picture beside the Frames is a missing one.
bool is_missing(const ArchiveContents& contents, int index) {
    const bool is_state = index + 1 == component_count(contents.head.frame_count);
    return !is_state && contents.parts[static_cast<unsigned>(index)].size == 0;
}

bool stage_components(const InputFile& archive, const ArchiveContents& contents) {
    const int frames = contents.head.frame_count;
    ProgressBox box(LABEL_LOADING_WORKSPACE);
    CopyBuffer buffer = buffer_of(box, frames);
    for (int i = 0; i < component_count(frames); ++i) {
        buffer.component = i;
        const std::string name = workspace_folder().file(component_name(STEM_LOADED, i, frames));
        const ArchivePart& part = contents.parts[static_cast<unsigned>(i)];
        if (!is_missing(contents, i) && unpack_component(archive, part, name, buffer) != 0) return false;
    }
    const bool synced = sync_disk(workspace_folder().path()) && sync_disk(program_folder().path());
    box.tell(100);
    return synced;
}

// ---- Loading: the new in place of the old ---------------------------------------------------------------------------

/// All that stands goes out of the way, then the new files take their names, the state as the last.
RenameJob load_job(const Folder& folder, int frames) {
    RenameJob job{JOB_LOAD, 0, frames, frame_count};
    const auto add_stems = [&](FrameStem from, FrameStem to) {
        for (int i = 0; i < component_count(frame_slots); ++i)
            job.add(folder, component_name(from, i, frame_slots), component_name(to, i, frame_slots));
    };
    add_stems(STEM_CURRENT, STEM_BACKUP);
    job.add(folder, previous_workspace, previous_retired);
    job.add(folder, previous_staged, previous_workspace);
    add_stems(STEM_LOADED, STEM_CURRENT);
    return job;
}

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

/// A rescue would be newer than the Frame that comes and take its place after a kill. What they held is saved.
void forget_all_rescues(const Folder& folder) {
    for (int slot = 0; slot < frame_slots; ++slot) forget_rescue(folder, slot);
}

bool replace_workspace(const InputFile& archive, const ArchiveContents& contents) {
    const Folder folder = workspace_folder();
    const RescueHold hold;
    if (!settle_job()) return refuse_load("The workspace stays as it is, since its last change isn't on disk yet");
    remove_leftovers(folder);
    if (!stage_previous() || !stage_components(archive, contents)) {
        remove_leftovers(folder);
        return refuse_load("The workspace stays as it is, since another can't be put beside it");
    }
    forget_all_rescues(folder);
    if (!do_job(folder, load_job(folder, contents.head.frame_count)))
        return refuse_load("The workspace stays as it is, since its files can't be moved");
    end_job(folder);
    take_into_memory(contents.head);
    return true;
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
    if (fault == nullptr) return replace_workspace(archive, contents);
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
    if (save_workspace_state(state_file, false)) return save_with_box(path, box);
    flash_text(not_saved);
    return false;
}

int load_workspace_archive(const std::string& path) {
    if (!load_checked(path)) return -1;
    browse_in(workspace_folder());
    return 0;
}

bool keep_previous_workspace() { return archive_workspace(previous_workspace_file()); }

std::string previous_workspace_file() { return path_of(workspace_folder(), previous_workspace); }

}  // namespace nubo
