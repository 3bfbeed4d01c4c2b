#include "workspace/frame_moves.h"

#include "base/log.h"
#include "platform/safe_file.h"
#include "state/run.h"
#include "workspace/bmp_files.h"
#include "workspace/frame_slot.h"
#include "workspace/ghosts.h"
#include "workspace/nail.h"
#include "workspace/notices.h"
#include "workspace/rename_job.h"
#include <algorithm>
#include <optional>
#include <string>

namespace nubo {
namespace {

std::string current(int slot) { return frame_file_name(STEM_CURRENT, slot); }
std::string history(int slot) { return frame_file_name(STEM_HISTORY, slot); }

std::string staged_nail() { return side_file_name(STEM_INSERTED, "nal"); }

// ---- The jobs ------------------------------------------------------------------------------------------------------

/// From the far end on, so that each Frame moves to a free slot; the new ones go into those that are opened.
RenameJob insert_job(const Folder& folder, int start, int count, int frames) {
    RenameJob job{JOB_INSERT, start, count, frames};
    for (int slot = frames - 1; slot > start; --slot) {
        job.add(folder, current(slot), current(slot + count));
        job.add(folder, history(slot), history(slot + count));
    }
    for (int i = 0; i < count; ++i) job.add(folder, frame_file_name(STEM_INSERTED, i), current(start + 1 + i));
    job.add(folder, nail_file, side_file_name(STEM_BACKUP, "nal"));
    job.add(folder, staged_nail(), nail_file);
    return job;
}

/// Frames to be deleted are only renamed till the state is on disk.
RenameJob delete_job(const Folder& folder, int start, int count, int frames) {
    RenameJob job{JOB_DELETE, start, count, frames};
    for (int i = 0; i < count; ++i) {
        job.add(folder, current(start + i), frame_file_name(STEM_DELETED, i));
        job.add(folder, history(start + i), frame_file_name(STEM_DROPPED, i));
    }
    for (int slot = start + count; slot < frames; ++slot) {
        job.add(folder, current(slot), current(slot - count));
        job.add(folder, history(slot), history(slot - count));
    }
    return job;
}

// ---- Gaps, and what follows the Frames ------------------------------------------------------------------------------

RowChange change_by(const RenameJob& job) {
    switch (job.kind) {
    case JOB_INSERT: return change_by_insert(job.start, job.count, job.frames);
    case JOB_DELETE: return change_by_delete(job.start, job.count, job.frames);
    case JOB_CHANGE: break;
    }
    return {};
}

/// A Frame that has only its rescue: a blank one that was painted on and never saved.
void adopt_rescues(const Folder& folder) {
    for (int number = 0; number < frame_slots; ++number) {
        const FrameSlot slot{folder, number};
        if (slot.has_rescue() && !slot.has_frame()) rename_file(slot.rescue(), slot.frame());
    }
}

/// A history whose Frame is gone would be in the way of the next one there.
void remove_strayed_histories(const Folder& folder, int first) {
    for (int number = first; number < frame_slots; ++number) {
        const FrameSlot slot{folder, number};
        if (!slot.has_frame() && file_exists(slot.history())) remove_file(slot.history());
    }
}

/// Moves Frames down over slots without a file.
RowChange close_gaps(const Folder& folder, bool& moved) {
    RowChange change;
    int free_slot = 0;
    for (int number = 0; number < frame_slots; ++number) {
        const FrameSlot slot{folder, number}, free{folder, free_slot};
        if (!slot.has_frame()) continue;
        ++free_slot;
        if (slot.number == free.number) continue;
        if (!rename_file(slot.frame(), free.frame())) break;
        if (slot.has_rescue()) rename_file(slot.rescue(), free.rescue());
        if (file_exists(slot.history())) rename_file(slot.history(), free.history());
        UA_log("[ INFO ] : Closed a gap: frame %d is now frame %d", slot.number, free.number);
        change.map[at(free.number)] = slot.number;
        moved = true;
        mark_damage();
    }
    if (moved) change.frames = std::max(free_slot, 1);
    return change;
}

void move_views(const RowChange& change) {
    const auto before = frame_view;
    for (std::size_t i = 0; i < change.map.size(); ++i) frame_view[i] = before[at(change.map[i])];
    renumber_pinned_frame([&change](int slot) { return slot_after(change, slot); });
    follow_with_times(change);
    if (const int slot = slot_after(change, frame_index); slot >= 0) frame_index = slot;
}

/// A tile only ever comes from a higher slot or from several below it, so the order of copying matters: a copy of the
/// sheet spares thinking about it.
void move_tiles(const RowChange& change) {
    const OwnedBitmap before = copy_bitmap(nail_sheet);
    if (!before) return;
    for (int slot = 0; slot < frame_slots; ++slot) {
        const int from = change.map[at(slot)];
        blit(before.get(), nail_sheet, from % nail_columns * nail_tile, from / nail_columns * nail_tile,
             slot % nail_columns * nail_tile, slot / nail_columns * nail_tile, nail_tile, nail_tile);
    }
}

}  // namespace

bool insert_frame_files(const Folder& folder, int start, int count, BITMAP* picture, BITMAP* nail) {
    bool written = save_bmp_file(folder.file(staged_nail()), nail);
    for (int i = 0; i < count; ++i)
        written = written && save_bmp_file(FrameSlot{folder, i}.path(STEM_INSERTED), picture);
    if (written) return do_job(folder, insert_job(folder, start, count, frame_count));
    remove_leftovers(folder);
    return false;
}

bool delete_frame_files(const Folder& folder, int start, int count) {
    return do_job(folder, delete_job(folder, start, count, frame_count));
}

RowChange change_by_insert(int start, int count, int frames) {
    RowChange change{.frames = frames + count};
    for (int& from : change.map)
        if (from > start) from = from > start + count ? from - count : start;
    return change;
}

RowChange change_by_delete(int start, int count, int frames) {
    RowChange change{.frames = frames - count};
    for (int& from : change.map)
        if (from >= start && from + count < frame_slots) from += count;
    return change;
}

FrameRepairs repair_frame_files(const Folder& folder) {
    FrameRepairs repairs;
    remove_unfinished_files(folder.path());
    remove_unfinished_files(path_of(folder, "../"));
    if (const std::optional<RenameJob> job = finish_interrupted_job(folder); job && job->kind != JOB_CHANGE) {
        repairs.moved = true;
        repairs.frames_before = job->frames;
        repairs.nail_is_old = job->kind == JOB_DELETE;
        repairs.by_journal = change_by(*job);
    }
    adopt_rescues(folder);
    remove_strayed_histories(folder, 0);
    repairs.by_gaps = close_gaps(folder, repairs.moved);
    return repairs;
}

void follow_with_views(const FrameRepairs& repairs) {
    if (repairs.moved && repairs.frames_before == frame_count) move_views(repairs.by_journal);
    if (repairs.moved) move_views(repairs.by_gaps);
}

void follow_with_tiles(const FrameRepairs& repairs) {
    if (repairs.moved && repairs.nail_is_old) move_tiles(repairs.by_journal);
    if (repairs.moved) move_tiles(repairs.by_gaps);
}

}  // namespace nubo
