#pragma once
// Moving frame files up or down the row of slots, so that no Frame is lost wherever the program is killed.
//
// An insert or a delete renames many files. It goes in four steps, and each can be the last one before a kill:
//   1. What is new is written under names of its own ("inserted.000" on, and "inserted.nal", the Nail as it will be).
//      Killed here: there is no journal yet, so the next start removes those files. Nothing has happened.
//   2. The journal "frames.job" is written: what is done, where, and how many Frames there were. From here on the next
//      start finishes the work, since every step below does only what isn't done yet, told by which names exist.
//   3. The files are renamed, from the far end on, so that each moves to a free slot. Frames to be deleted are only
//      renamed too, to "deleted.000" on. If a rename fails, all are renamed back and the journal goes.
//   4. The state file is written, the journal removed, and only then the deleted Frames.
// A row with a gap, however it came to be, is closed at start; views and thumbnails move with their Frames.
#include "base/bitmap.h"

namespace nubo {

/// Opens `count` slots behind `start` and puts `picture` into each; the Nail file becomes `nail`, which shows it so.
/// The process stands in the WORKSPACE folder. False, with all files as they were, after a failure, which is logged.
bool insert_frame_files(int start, int count, BITMAP* picture, BITMAP* nail);

/// Takes the files of `count` slots from `start` on out of the row. As `insert_frame_files` on failure.
bool delete_frame_files(int start, int count);

/// Ends the work of the last insert or delete, once the state file knows of it; one that got stuck on a failing disk is
/// taken back. False if the disk doesn't let it.
bool end_frame_move();

/// False while a move is stuck halfway: the files don't stand under the slots that memory knows, so none may be
/// written. In another folder than that of the move it is true.
bool row_is_whole();

/// Finishes or undoes what a kill interrupted, and closes gaps. The process stands in the WORKSPACE folder. Called at
/// start, before the state file is read. True if a Frame has another slot than before.
bool repair_frame_files();

/// Moves the stored views and `frame_index` after the Frames that the repair has moved; then, when the Nail has been
/// read, the thumbnails. Called by the reading of the state; without a repair they do nothing.
void follow_with_views();
void follow_with_tiles();

}  // namespace nubo
