#pragma once
// Undo and redo: whole copies of the Frame in two small pools, made when first needed.
#include "base/bitmap.h"

namespace nubo {

/// Saves the Frame as the newest undo state, which is also the snapshot that inks read. Unless `keep_redo`, the redo
/// chain is emptied. False, with nothing changed but a log line and a status message, when the memory can't be had: the
/// caller then leaves the Frame alone.
bool save_undo(bool keep_redo);

/// Saves the Frame as the newest redo state; as `save_undo` on failure.
bool save_redo();

/// Forgets the newest undo state: what it was saved for has been taken back.
void drop_undo();

/// The user's commands; nothing happens on an empty chain.
void undo_last();
void redo_last();

/// Empties both chains and frees their bitmaps. Every operation that gives the Frame another size or content from
/// elsewhere calls it.
void reset_undo_slots();

/// One step (`clear_some_rows`) toward having the memory of the next state ready; false when it is. For when the
/// program rests. A Frame above 256 MiB is left to its strokes.
bool prepare_undo_memory();

/// Takes the bitmaps of new states from `copy`, which gives a copy of its argument or null; null goes back to
/// `copy_bitmap`. For tests that tell beforehand what memory can be had.
void set_undo_source(OwnedBitmap (*copy)(BITMAP* source));

}  // namespace nubo
