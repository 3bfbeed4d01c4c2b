#pragma once
// The row of Frames: exactly one is in memory, all others lie in the WORKSPACE folder, and these operations swap
// between them. Each either happens as a whole or leaves the Frames as they were.
#include "base/bitmap.h"

namespace nubo {

/// Stores the Frame in memory as `old_slot` and brings in `new_slot`; the file browser then opens in the image folder.
/// With both equal it stores nothing and reloads the slot. False, with a log line and a message, when nothing was
/// swapped: the slot is out of range, the Frame in memory can't be saved or the other not be read.
bool fetch_frame(int old_slot, int new_slot);

/// Creates `count` Frames behind slot `start`: clones of the Frame in memory, or blank ones. `frame_index` stays. The
/// file browser then opens in the program's folder. False if nothing was inserted; then a box or a log line tells why.
bool insert_frames(int start, int count, bool blank);

/// Adds a Frame at the end of the row. False, with nothing changed, if there is no slot for it or the disk doesn't let
/// it.
bool append_frame(BITMAP* picture);

/// Removes `count` Frames from `start` on and brings the next one into memory, or the one before at the end of the row.
/// The file browser then opens in the program's folder. False if nothing was deleted; then a box or a log line tells
/// why.
bool delete_frames(int start, int count);

/// The number of frame files that exist.
int count_frame_files();

/// Wipes the Workspace: one blank Frame, all else at the defaults. What stands is saved and put away
/// (workspace/replace.h). The user has been asked. The file browser then opens in the program's folder. False, told, if
/// nothing has changed.
bool clear_workspace();

}  // namespace nubo
