#include "workspace/frame_store.h"

#include "base/log.h"
#include "platform/safe_file.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "state/view.h"
#include "workspace/folders.h"
#include "workspace/frame_files.h"
#include "workspace/frame_moves.h"
#include "workspace/nail.h"
#include "workspace/notices.h"
#include "workspace/rescue.h"
#include <algorithm>
#include <string>
#include <utility>

namespace nubo {
namespace {

FrameView& view_of(int slot) { return frame_view[static_cast<unsigned>(slot)]; }

/// Writes the Frame in memory to its slot, with its thumbnail and its view, and reads the file of the next one.
bool store_frame(int slot, int next_slot, OwnedBitmap& next) {
    const auto read_next = [&] { next = read_frame_file(frame_file_name(STEM_CURRENT, next_slot)); };
    if (!save_frame_and_nail(slot, read_next)) return false;
    view_of(slot) = {pan_x, pan_y, zoom};
    return true;
}

bool refuse_unsaved() {
    flash_message(MESSAGE_SAVE_FAILED);
    return false;
}

/// Brings the Frame of a slot into memory with its view; `picture` is what its file gave.
bool bring_in(int slot, OwnedBitmap picture) {
    if (!take_frame_or_blank(slot, std::move(picture))) return false;
    frame_index = slot;
    const FrameView& view = view_of(slot);
    pan_x = view.pan_x;
    pan_y = view.pan_y;
    zoom = std::max(view.zoom, zoom_min);
    return true;
}

bool is_slot(int slot) { return slot >= 0 && slot < frame_slots; }

/// The Nail as it will be when `count` tiles are opened behind `start`; made in the Nail itself.
void insert_tiles(int start, int count, bool blank) {
    for (int slot = frame_count - 1; slot > start; --slot) copy_nail_tile(slot, slot + count);
    for (int slot = start + 1; slot <= start + count; ++slot)
        blank ? clear_nail_tile(slot) : make_nail_tile(current_frame, slot);
}

/// A copy is seen as its original is now; a blank Frame takes over the view that its slot last held.
void insert_views(int start, int count, bool blank) {
    if (start == frame_index) view_of(start) = {pan_x, pan_y, zoom};
    for (int slot = frame_count - 1; slot > start; --slot) view_of(slot + count) = view_of(slot);
    for (int slot = start + 1; slot <= start + count && !blank; ++slot) view_of(slot) = view_of(start);
}

/// Puts the new Frames on disk. The Nail in memory shows them only if that went well.
bool insert_on_disk(int start, int count, bool blank) {
    const OwnedBitmap empty = blank ? make_bitmap(view_w, view_h) : nullptr;
    const OwnedBitmap old_nail = copy_bitmap(nail_sheet);
    if ((blank && !empty) || !old_nail) return false;
    insert_tiles(start, count, blank);
    if (insert_frame_files(start, count, blank ? empty.get() : current_frame, nail_sheet)) return true;
    blit(old_nail.get(), nail_sheet, 0, 0, 0, 0, nail_side, nail_side);
    return false;
}

/// The views and thumbnails of the deleted slots go, those behind move down. What the end of the row held stays there.
void delete_entries(int start, int count) {
    for (int slot = start; slot < start + count; ++slot) view_of(slot) = {};
    for (int slot = start + count; slot < frame_count; ++slot) {
        view_of(slot - count) = view_of(slot);
        copy_nail_tile(slot, slot - count);
    }
}

/// The Frame to show after a delete.
int slot_after_delete(int start, int count) {
    if (frame_index < frame_count) return start;
    return frame_index == frame_count && count < frame_count ? start - count : 0;
}

}  // namespace

bool fetch_frame(int old_slot, int new_slot) {
    if (new_slot < 0 || new_slot >= frame_count) {
        UA_log("[ ERROR ] : New_frame OOB in call to fetch_frame! slot = %d", new_slot);
        return false;
    }
    settle_rescue();
    if (old_slot == new_slot) return bring_in(new_slot, read_frame_file(frame_file_name(STEM_CURRENT, new_slot)));
    const std::string back = image_dir.data();
    OwnedBitmap next;
    const bool saved = enter_workspace() && store_frame(old_slot, new_slot, next);
    const bool swapped = saved ? bring_in(new_slot, std::move(next)) : refuse_unsaved();
    if (back.empty() || !enter_folder(back.c_str())) enter_program_dir();
    return swapped;
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
    const bool inserted = enter_workspace() && insert_on_disk(start, count, blank);
    if (inserted && start < frame_index) forget_rescue(frame_index);  // the slot is another Frame's now
    if (inserted) {
        insert_views(start, count, blank);
        frame_count += count;
    } else {
        flash_message(MESSAGE_SAVE_FAILED);
    }
    enter_program_dir();
    return inserted;
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
    const bool entered = enter_workspace();
    // First of all, else a start after a kill would find it newer than the Frame that moves into the slot.
    if (entered) forget_rescue(frame_index);
    const bool deleted = entered && delete_frame_files(start, count);
    if (!deleted) flash_message(MESSAGE_SAVE_FAILED);
    if (deleted) {
        delete_entries(start, count);
        frame_count -= count;
        const int slot = slot_after_delete(start, count);
        fetch_frame(slot, slot);
    }
    enter_program_dir();
    return deleted;
}

int count_frame_files() {
    const int count = enter_workspace() ? count_slot_files(STEM_CURRENT) : 0;
    enter_program_dir();
    return count;
}

}  // namespace nubo
