#pragma once
// The row of Frames: exactly one is in memory, all others lie on disk, and these operations swap between them. Each
// either happens as a whole or leaves the Frames as they were.
#include "base/bitmap.h"

namespace nubo {

/// Stores the Frame in memory as `old_slot` and brings in `new_slot`; leaves the process in `image_dir`. With both
/// equal it stores nothing and reloads the slot, the process standing in the WORKSPACE folder. False, with a log line,
/// when nothing was swapped: the slot is out of range, or the Frame in memory couldn't be saved.
bool fetch_frame(int old_slot, int new_slot);

/// Creates `count` Frames behind slot `start`: clones of the Frame in memory, or blank ones. `frame_index` stays.
/// Leaves the process in `program_dir`. False if nothing was inserted; then a box or a log line tells why.
bool insert_frames(int start, int count, bool blank);

/// Removes `count` Frames from `start` on and brings the next one into memory, or the one before at the end of the row.
/// Leaves the process in `program_dir`. False if nothing was deleted; then a box or a log line tells why.
bool delete_frames(int start, int count);

/// The number of frame files that exist. Leaves the process in `program_dir`.
int count_frame_files();

/// Wipes the Workspace: one blank Frame, all else at the defaults. The user has been asked. Leaves the process in
/// `program_dir`.
void clear_workspace();

}  // namespace nubo
