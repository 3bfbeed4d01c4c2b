#include "workspace/replace.h"

#include "base/log.h"
#include "codecs/bmp_file.h"
#include "gui/progress_box.h"
#include "state/frames.h"
#include "workspace/archive_file.h"
#include "workspace/folders.h"
#include "workspace/frame_memory.h"
#include "workspace/pack.h"
#include "workspace/previous.h"
#include "workspace/rename_job.h"
#include "workspace/rescue.h"
#include "workspace/state_file.h"
#include "workspace/workspace_files.h"
#include <filesystem>

namespace nubo {
namespace {

bool was_put_away = false;

std::string stays(const char* cause, const std::string& told = see_log) {
    UA_log("[ ERROR ] : The workspace stays as it is, since %s", cause);
    return told;
}

// ---- What is new, beside what stands -------------------------------------------------------------------------------

std::size_t bytes_on_disk(const Folder& folder) {
    std::size_t bytes = 0;
    for (int i = 0; i < component_count(frame_count); ++i) {
        std::error_code missing;
        const auto size =
            std::filesystem::file_size(folder.file(component_name(STEM_CURRENT, i, frame_count)), missing);
        if (!missing) bytes += size;
    }
    return bytes;
}

/// The Workspace that goes, unless nothing has changed in it. It lasts from the next `sync_disk` on.
std::string put_away(const Folder& folder, const Newcomer& newcomer) {
    ProgressBox box(LABEL_SAVING_WORKSPACE);
    replace_missing_frames();
    if (!save_workspace_state(state_file, false)) return see_log;
    was_put_away = !is_as_it_came();
    if (!was_put_away) return "";
    make_room_beside_previous(folder, bytes_on_disk(folder) + newcomer.bytes, newcomer.source.path);
    SafeFile archive(path_of(folder, previous_staged));
    return pack_workspace(archive, box, SYNC_WITH_DISK);
}

/// Both are on disk when it has returned true.
bool stage(const Folder& folder, const Newcomer& newcomer) {
    ProgressBox box(newcomer.title);
    return newcomer.stage(box) && sync_disk(folder.path()) && sync_disk(program_folder().path());
}

// ---- The new in place of the old -----------------------------------------------------------------------------------

/// All that stands goes out of the way, then the new files take their names, the state as the last.
RenameJob change_job(const Folder& folder, int frames) {
    RenameJob job{JOB_CHANGE, 0, frames, frame_count};
    const auto add_stems = [&](FrameStem from, FrameStem to) {
        for (int i = 0; i < component_count(frame_slots); ++i)
            job.add(folder, component_name(from, i, frame_slots), component_name(to, i, frame_slots));
    };
    add_stems(STEM_CURRENT, STEM_BACKUP);
    for (int slot = 0; slot < frame_slots; ++slot)
        job.add(folder, frame_file_name(STEM_HISTORY, slot), frame_file_name(STEM_DROPPED, slot));
    add_to_previous(folder, job);
    add_stems(STEM_LOADED, STEM_CURRENT);
    return job;
}

/// No file that couldn't be read stands any more.
void forget_old_files(const Folder& folder) {
    for (int i = 0; i < component_count(frame_slots); ++i)
        forget_unread(folder.file(component_name(STEM_CURRENT, i, frame_slots)));
}

/// What is in their files and rescues is saved.
void give_up_all_slots(const Folder& folder) {
    for (int slot = 0; slot < frame_slots; ++slot) give_up_slot({folder, slot});
}

std::string change_files(const Folder& folder, const Newcomer& newcomer) {
    give_up_all_slots(folder);
    if (!do_job(folder, change_job(folder, newcomer.frame_count))) return stays("its files can't be moved");
    if (newcomer.adopt && !newcomer.adopt()) {
        take_back_job(folder);
        return stays("there isn't memory enough", "NOT ENOUGH MEMORY");
    }
    end_job(folder);
    forget_old_files(folder);
    return "";
}

}  // namespace

std::string replace_workspace(const Newcomer& newcomer) {
    const Folder folder = workspace_folder();
    const RescueHold hold;
    if (!settle_job()) return stays("its last change isn't on disk yet");
    remove_leftovers(folder);
    std::string fault = put_away(folder, newcomer);
    if (!fault.empty() || !stage(folder, newcomer)) {
        remove_leftovers(folder);
        return stays("another can't be put beside it", fault.empty() ? see_log : fault);
    }
    fault = change_files(folder, newcomer);
    if (!fault.empty()) return fault;
    newcomer.take();
    note_arrival(newcomer.source);
    return "";
}

bool last_one_was_put_away() { return was_put_away; }

bool stage_picture(const char* ending, BITMAP* picture) {
    SafeFile file(workspace_folder().file(std::string("loaded.") + ending));
    write_bmp(file, picture);
    return file.commit(SYNC_WITH_DISK);
}

}  // namespace nubo
