#include "workspace/unsaved_work.h"

#include "base/log.h"
#include "platform/safe_file.h"
#include "state/frames.h"
#include "workspace/bmp_files.h"
#include "workspace/folders.h"
#include "workspace/frame_memory.h"
#include "workspace/frame_store.h"
#include "workspace/notices.h"
#include "workspace/rescue_folder.h"
#include "workspace/side_files.h"
#include "workspace/state_file.h"
#include "workspace/workspace_files.h"
#include <algorithm>
#include <utility>

namespace nubo {
namespace {

/// The one Frame that a folder of rescue holds.
struct KeptFrame {
    int slot = 0;
    OwnedBitmap picture;
};

KeptFrame read_frame_of(const Folder& folder) {
    for (int number = 0; number < frame_slots; ++number)
        if (const FrameSlot slot{folder, number}; slot.has_frame()) return {number, load_bmp_file(slot.frame())};
    return {};
}

void read_state_and_sides(const Folder& folder) {
    const std::string state = folder.file(state_file);
    if (file_exists(state)) read_state(state);
    for (const SideFile kind : {SIDE_CEL, SIDE_TIP, SIDE_NAIL}) load_side_file(folder, kind, "current.");
}

/// A Frame that belongs to no slot gets one of its own, and is shown.
bool add_to_row(OwnedBitmap picture) {
    if (!append_frame(picture.get())) return false;
    const int slot = frame_count - 1;
    write_workspace(workspace_folder(), state_file, true);
    return fetch_frame(slot, slot);
}

/// A later version of a Frame of the row. It goes beside its file at once, as any rescue, so that it outlives a kill.
bool lay_over_row(const Folder& kept_in, KeptFrame kept) {
    const FrameSlot slot = slot_of_row(kept.slot);
    read_state_and_sides(kept_in);
    frame_count = std::max(count_frame_files(), 1);
    if (kept.slot >= frame_count) return add_to_row(std::move(kept.picture));
    if (!bring_in(slot, read_frame_file(slot))) return false;
    save_bmp_file(slot.rescue(), kept.picture.get());
    return take_as_changed(std::move(kept.picture));
}

bool bring_back(const Folder& kept_in, KeptFrame kept) {
    if (workspace_is_away()) {
        read_state_and_sides(kept_in);
        frame_index = kept.slot;
        return take_as_changed(std::move(kept.picture));
    }
    if (!is_apart_from_row(kept_in)) return lay_over_row(kept_in, std::move(kept));
    if (!add_to_row(std::move(kept.picture))) return false;
    end_rescue_folder();
    return true;
}

}  // namespace

bool holds_unsaved_work() { return !workspace_is_away() || !is_black(current_frame); }

bool keep_unsaved_work() {
    const Folder folder = rescue_folder();
    if (!file_exists(workspace_folder().path())) {
        UA_log("[ ERROR ] : WORKSPACE directory unavailable. Writing workspace to current location");
        UA_log("[ STATS ] : Current location is: %s", folder.path().c_str());
    }
    return !folder.path().empty() && write_workspace(folder, state_file, false) && note_rescued_work();
}

void bring_back_unsaved_work() {
    const Folder folder = take_rescue_folder();
    if (folder.path().empty()) return;
    const bool older = !workspace_is_away() && !is_apart_from_row(folder) &&
                       time_of_work(folder) <= time_of_file(workspace_folder().file(state_file));
    KeptFrame kept = older ? KeptFrame() : read_frame_of(folder);
    if (kept.picture && bring_back(folder, std::move(kept))) {
        queue_box(LABEL_WORK_BROUGHT_BACK, LABEL_NOT_SAVED_LAST);
        UA_log("[ INFO ] : Unsaved work of an earlier run was brought back from %s", folder.path().c_str());
        return;
    }
    UA_log("[ INFO ] : Unsaved work of an earlier run was left in %s", folder.path().c_str());
    if (older) end_rescue_folder();
}

}  // namespace nubo
