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
//   4. The state file is written, the journal removed, and only then the deleted Frames. Where the state can't be
//      written the journal stays, and nothing that it speaks of is written before it has been ended.
// A row with a gap, however it came to be, is closed at start; views and thumbnails move with their Frames.
#include "base/bitmap.h"
#include "platform/folder.h"
#include "state/frames.h"
#include <array>

namespace nubo {

/// Opens `count` slots behind `start` and puts `picture` into each; the Nail file becomes `nail`, which shows it so.
/// False, with all files as they were, after a failure, which is logged.
bool insert_frame_files(const Folder& folder, int start, int count, BITMAP* picture, BITMAP* nail);

/// Takes the files of `count` slots from `start` on out of the row. As `insert_frame_files` on failure.
bool delete_frame_files(const Folder& folder, int start, int count);

/// True while the state file doesn't know of the last insert or delete yet: the journal stands for it.
bool frame_move_is_open(const Folder& folder);

/// Ends the work of the last insert or delete, once the state file knows of it; one that got stuck on a failing disk is
/// taken back. False if the disk doesn't let it.
bool end_frame_move(const Folder& folder);

/// Puts the files back as they were before a delete that has just been done. Where the disk doesn't let it the row
/// isn't whole until it does.
void take_back_delete(const Folder& folder, int start, int count);

/// False while a move is stuck halfway: the files don't stand under the slots that memory knows, so none may be
/// written. In another folder than that of the move it is true.
bool row_is_whole(const Folder& folder);

/// For each slot the slot whose Frame it now holds.
using SlotMap = std::array<int, frame_slots>;

/// The map of a row in which each Frame stands where it stood.
constexpr SlotMap nothing_moved() {
    SlotMap map{};
    for (int slot = 0; slot < frame_slots; ++slot) map[static_cast<unsigned>(slot)] = slot;
    return map;
}

/// What the start has repaired and the state file, or the Nail, doesn't know of yet.
struct FrameRepairs {
    bool moved = false;        // a Frame has another slot than before
    int frames_before = 0;     // by the journal, 0 without one: a state file of as many Frames is older than the move
    bool nail_is_old = false;  // so is the Nail: an insert puts a new one in place, a delete doesn't
    SlotMap by_journal = nothing_moved(), by_gaps = nothing_moved();  // in this order
};

/// Finishes or undoes what a kill interrupted, and closes gaps. Called at start, before the state file is read.
FrameRepairs repair_frame_files(const Folder& folder);

/// Move the stored views and `frame_index`, and the thumbnails, after the Frames that the repair has moved: called when
/// the state file and the Nail have been read.
void follow_with_views(const FrameRepairs& repairs);
void follow_with_tiles(const FrameRepairs& repairs);

}  // namespace nubo
