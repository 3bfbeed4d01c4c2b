#include "workspace/frame_store.h"

#include "base/log.h"
#include "paint/undo.h"
#include "state/frame_sources.h"
#include "state/frames.h"
#include "state/run.h"
#include "state/view.h"
#include "workspace/folders.h"
#include "workspace/frame_memory.h"
#include "workspace/frame_moves.h"
#include "workspace/ghosts.h"
#include "workspace/nail.h"
#include "workspace/notices.h"
#include "workspace/rename_job.h"
#include "workspace/rescue.h"
#include "workspace/state_file.h"
#include <algorithm>
#include <functional>
#include <string>
#include <utility>

namespace nubo {
namespace {

FrameView& view_of(int slot) { return frame_view[static_cast<unsigned>(slot)]; }

bool refuse(Message message) {
    flash_message(message);
    return false;
}

bool bring_in_or_tell(const FrameSlot& slot, FramePicture read) {
    return bring_in(slot, std::move(read)) || refuse(MESSAGE_FRAME_OUT_OF_REACH);
}

bool is_slot(int slot) { return slot >= 0 && slot < frame_slots; }

/// The Nail as it will be when `count` tiles of `picture` are opened behind `start`; made in the Nail itself.
void insert_tiles(int start, int count, BITMAP* picture) {
    for (int slot = frame_count - 1; slot > start; --slot) copy_nail_tile(slot, slot + count);
    for (int slot = start + 1; slot <= start + count; ++slot) make_nail_tile(picture, slot);
}

/// What else knows Frames by their slots.
void follow_with_numbers(const RowChange& change) {
    const auto slot_of = [&change](int slot) { return slot_after(change, slot); };
    renumber_changed_frame(slot_of);
    renumber_pinned_frame(slot_of);
    follow_with_times(change);
}

/// A copy is seen as its original is now; a blank Frame takes over the view that its slot last held.
void insert_views(int start, int count, bool blank) {
    if (start == frame_index) keep_view(start);
    for (int slot = frame_count - 1; slot > start; --slot) view_of(slot + count) = view_of(slot);
    for (int slot = start + 1; slot <= start + count && !blank; ++slot) view_of(slot) = view_of(start);
    follow_with_numbers(change_by_insert(start, count, frame_count));
}

/// A copy is no file yet.
void insert_sources(int start, int count) {
    const auto behind = frame_source.begin() + start + 1;
    std::move_backward(behind, frame_source.end() - count, frame_source.end());
    std::fill_n(behind, count, std::string());
}

/// Puts the new Frames on disk. The Nail in memory shows them only if that went well.
bool insert_on_disk(int start, int count, BITMAP* picture) {
    const OwnedBitmap old_nail = copy_bitmap(nail_sheet);
    if (picture == nullptr || !old_nail || !settle_job()) return false;
    insert_tiles(start, count, picture);
    if (insert_frame_files(workspace_folder(), start, count, picture, nail_sheet)) return true;
    blit(old_nail.get(), nail_sheet, 0, 0, 0, 0, nail_side, nail_side);
    return false;
}

/// The views, thumbnails, waiting steps and sources of the deleted slots go, those behind move down. What the end of
/// the row held stays there.
void delete_entries(int start, int count) {
    for (int slot = start; slot < start + count; ++slot) view_of(slot) = {};
    for (int slot = start + count; slot < frame_count; ++slot) {
        view_of(slot - count) = view_of(slot);
        copy_nail_tile(slot, slot - count);
    }
    follow_with_numbers(change_by_delete(start, count, frame_count));
    std::move(frame_source.begin() + start + count, frame_source.end(), frame_source.begin() + start);
    std::fill_n(frame_source.end() - count, count, std::string());
    frame_count -= count;
}

/// The slot of the Frame to show after a delete, as the row will be then.
int slot_after_delete(int start, int count) {
    const int left = frame_count - count;
    const int slot = frame_index < left ? start : frame_index == left && count < left ? start - count : 0;
    return std::clamp(slot, 0, left - 1);
}

/// The Frame that takes the place of the deleted ones is read before anything goes: without it nothing does.
bool delete_on_disk(int start, int count) {
    const int next = slot_after_delete(start, count);
    const Folder folder = workspace_folder();
    FramePicture read = read_frame_file({folder, next < start ? next : next + count});
    if (read.fault == PICTURE_OUT_OF_REACH) return refuse(MESSAGE_FRAME_OUT_OF_REACH);
    give_up_slot({folder, frame_index});  // first of all, for a kill may come at any step
    if (!settle_job() || !delete_frame_files(folder, start, count)) return refuse(MESSAGE_SAVE_FAILED);
    if (bring_in({folder, next}, std::move(read), [=] { delete_entries(start, count); })) return true;
    take_back_job(folder);
    return refuse(MESSAGE_FRAME_OUT_OF_REACH);
}

}  // namespace

bool fetch_frame(int old_slot, int new_slot) {
    if (new_slot < 0 || new_slot >= frame_count) {
        UA_log("[ ERROR ] : New_frame OOB in call to fetch_frame! slot = %d", new_slot);
        return false;
    }
    settle_rescue();
    const FrameSlot from = slot_of_row(old_slot), to = slot_of_row(new_slot);
    if (old_slot == new_slot) return bring_in_or_tell(to, read_frame_file(to));
    FramePicture next;
    const bool left = reach_workspace() && settle_job() && leave_frame(from, [&] { next = read_frame_file(to); });
    browse_in_image_dir();
    return left ? bring_in_or_tell(to, std::move(next)) : refuse(MESSAGE_SAVE_FAILED);
}

bool insert_frames(int start, int count, bool blank) {
    if (frame_count >= frame_slots) {
        queue_box(LABEL_FRAMES_FULL, LABEL_FRAMES_MAXIMUM);
        return false;
    }
    if (!is_slot(start)) {
        UA_log("[ ERROR ] : Starting point OOB in call to insert_frames! start = %d", start);
        return false;
    }
    if (count < 1 || count > frame_slots - 1 - start || count > frame_slots - frame_count) {
        UA_log("[ ERROR ] : Frame count OOB in call to insert_frames! num_frames = %d", count);
        return false;
    }
    settle_rescue();
    const OwnedBitmap empty = blank ? make_bitmap(view_w, view_h) : nullptr;
    const bool inserted = reach_workspace() && insert_on_disk(start, count, blank ? empty.get() : current_frame);
    if (inserted && start < frame_index) give_up_slot(slot_of_row(frame_index));
    if (inserted) {
        insert_views(start, count, blank);
        insert_sources(start, count);
        frame_count += count;
    } else {
        flash_message(MESSAGE_SAVE_FAILED);
    }
    browse_in(program_folder());
    return inserted;
}

bool append_frame(BITMAP* picture) {
    settle_rescue();
    if (frame_count >= frame_slots || !reach_workspace() || !insert_on_disk(frame_count - 1, 1, picture)) return false;
    view_of(frame_count) = {};
    insert_sources(frame_count - 1, 1);
    frame_count += 1;
    return true;
}

bool delete_frames(int start, int count) {
    if (frame_count == 1) {
        queue_box(LABEL_LAST_FRAME);
        return false;
    }
    if (!is_slot(start)) {
        UA_log("[ ERROR ] : Starting point OOB in call to delete_frames! start = %d", start);
        return false;
    }
    if (count < 1 || count > frame_slots - start || start + count > frame_count || count == frame_count) {
        UA_log("[ ERROR ] : Frame count OOB in call to delete_frames! num_frames = %d", count);
        return false;
    }
    settle_rescue();
    const bool deleted = reach_workspace() ? delete_on_disk(start, count) : refuse(MESSAGE_SAVE_FAILED);
    browse_in(program_folder());
    return deleted;
}

int count_frame_files() { return count_frames_in(workspace_folder()); }

}  // namespace nubo
