#pragma once
// Moving frame files up or down the row of slots, as a job (workspace/rename_job.h), so that no Frame is lost wherever
// the program is killed. A row with a gap, however it came to be, is closed at start; views, times and thumbnails move
// with their Frames.
#include "base/bitmap.h"
#include "platform/folder.h"
#include "workspace/frame_times.h"

namespace nubo {

/// Opens `count` slots behind `start` and puts `picture` into each; the Nail file becomes `nail`, which shows it so.
/// False, with all files as they were, after a failure, which is logged.
bool insert_frame_files(const Folder& folder, int start, int count, BITMAP* picture, BITMAP* nail);

/// Takes the files of `count` slots from `start` on out of the row. As `insert_frame_files` on failure. Until the state
/// file knows of it, `take_back_job` undoes it.
bool delete_frame_files(const Folder& folder, int start, int count);

/// What these two do to a row of `frames` Frames.
RowChange change_by_insert(int start, int count, int frames);
RowChange change_by_delete(int start, int count, int frames);

/// What the start has repaired and the state file, or the Nail, doesn't know of yet.
struct FrameRepairs {
    bool moved = false;        // a Frame has another slot than before
    int frames_before = 0;     // by the journal, 0 without one: a state file of as many Frames is older than the move
    bool nail_is_old = false;  // so is the Nail: an insert puts a new one in place, a delete doesn't
    RowChange by_journal{}, by_gaps{};  // in this order
};

/// Finishes or undoes what a kill interrupted, and closes gaps. Called at start, before the state file is read.
FrameRepairs repair_frame_files(const Folder& folder);

/// Move the stored views, times and `frame_index`, and the thumbnails, after the Frames that the repair has moved:
/// called when the state file and the Nail have been read.
void follow_with_views(const FrameRepairs& repairs);
void follow_with_tiles(const FrameRepairs& repairs);

}  // namespace nubo
