#include "workspace/workspace.h"

#include "base/log.h"
#include "platform/safe_file.h"
#include "state/frames.h"
#include "state/options.h"
#include "workspace/defaults.h"
#include "workspace/folders.h"
#include "workspace/frame_history.h"
#include "workspace/frame_memory.h"
#include "workspace/frame_moves.h"
#include "workspace/frame_store.h"
#include "workspace/nail.h"
#include "workspace/notices.h"
#include "workspace/preferred_font.h"
#include "workspace/previous.h"
#include "workspace/rescue.h"
#include "workspace/rescue_folder.h"
#include "workspace/side_files.h"
#include "workspace/state_file.h"
#include "workspace/unsaved_work.h"
#include <algorithm>
#include <cstdio>
#include <utility>

namespace nubo {
namespace {

// ---- Start ---------------------------------------------------------------------------------------------------------

/// Without a state file: whatever else lies there is still the user's.
bool open_without_state(const Folder& folder) {
    for (const SideFile kind : {SIDE_CEL, SIDE_TIP, SIDE_NAIL}) load_side_file(folder, kind, "current.");
    return FrameSlot{folder, 0}.has_frame() ? open_frame({folder, 0}) : open_blank_frame();
}

/// The rescued Frame is the one to come back to; RESTORE still leads to what its file holds.
void bring_back_rescue(int slot) {
    if (slot < 0 || (slot != frame_index && !fetch_frame(slot, slot))) return;  // it waits for its Frame
    OwnedBitmap picture = read_rescue(slot_of_row(slot));
    if (!picture || !take_as_rescued(slot_of_row(slot), std::move(picture))) return;
    UA_log("[ INFO ] : Frame %d was rescued from the last run", slot);
    flash_message(MESSAGE_RESCUED);
}

/// A drive that isn't there, a folder that nobody may enter: what is done in this run is kept elsewhere.
bool open_without_workspace() {
    set_workspace_defaults();
    select_preferred_font();
    queue_box(LABEL_WORKSPACE_AWAY, LABEL_NOTHING_WRITTEN);
    if (!open_blank_frame()) return false;
    bring_back_unsaved_work();
    return true;
}

bool restore(const Folder& folder) {
    const FrameRepairs repairs = repair_frame_files(folder);
    const int rescue = find_rescue(folder);
    const bool there = load_workspace_state(state_file, repairs);
    if (!there && !open_without_state(folder)) return false;
    // On disk at once, so that the row has no gap at its front, wherever the program is killed.
    if (count_frame_files() == 0) store_frame({folder, frame_index = 0});
    frame_count = std::max(count_frame_files(), 1);  // the files win over the stored number
    bring_back_rescue(rescue);
    bring_back_unsaved_work();
    if (repairs.moved && write_workspace(folder, state_file, true)) save_nail(folder);
    if (there) UA_log("[ INIT ] : User workspace restored from file");
    if (!there) UA_log("[ INFO ] : Couldn't locate workspace. Assuming default settings.");
    return current_frame != nullptr;
}

// ---- End -----------------------------------------------------------------------------------------------------------

void tell_everywhere(const std::string& line) {
    UA_log("%s", line.c_str());
    std::fprintf(stderr, "nubo: %s\n", line.c_str());
}

}  // namespace

bool open_workspace() {
    begin_history_run();
    set_workspace_away(false);
    set_workspace_away(!reach_workspace());
    const bool opened = workspace_is_away() ? open_without_workspace() : restore(workspace_folder());
    if (workspace_damaged != 0) {
        queue_box(LABEL_WORKSPACE_DAMAGED, LABEL_REPAIRS_MADE);
        if (previous_is_whole()) queue_box(LABEL_PREVIOUS_IS_WHOLE, LABEL_WHERE_PREVIOUS_IS);
    }
    browse_in_image_dir();
    return opened;
}

WorkspaceEnd close_workspace() {
    if (save_workspace_state(state_file, false)) {
        end_rescue_folder();
        return WORKSPACE_KEPT;
    }
    if (!holds_unsaved_work()) return WORKSPACE_KEPT;
    tell_everywhere("[ ERROR ] : The workspace couldn't be written to its folder");
    if (keep_unsaved_work()) {
        tell_everywhere("[ INFO ] : The workspace was written to " + rescue_folder().path());
        return WORKSPACE_ELSEWHERE;
    }
    tell_everywhere("[ ERROR ] : The workspace couldn't be written anywhere");
    return WORKSPACE_LOST;
}

}  // namespace nubo
