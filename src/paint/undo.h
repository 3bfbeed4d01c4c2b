#pragma once
// Undo and redo: whole copies of the Frame in two small pools, made when first needed.
#include "base/bitmap.h"
#include "paint/cel_pixels.h"
#include <functional>

namespace nubo {

/// Saves the Frame as the newest undo state, which is also the snapshot that inks read. Unless `keep_redo`, the redo
/// chain is emptied. False, with nothing changed but a log line and a status message, when the memory can't be had: the
/// caller then leaves the Frame alone.
bool save_undo(bool keep_redo);

/// Saves the Frame as the newest redo state; as `save_undo` on failure.
bool save_redo();

/// The user's commands; nothing happens on an empty chain. True if the state brought a Cel along (`give_step_cel`).
bool undo_last();
bool redo_last();

/// Empties both chains and frees their bitmaps. Every operation that gives the Frame another size or content from
/// elsewhere calls it.
void reset_undo_slots();

// ---- A step before its change is final -----------------------------------------------------------------------------
// A change that may still be taken back, here or after a look at other Frames, takes its step first and lets it count
// when the change is final. Till then both chains are as they were.

/// A Frame as it was before a change, and its slot; no picture: no step.
struct UndoStep {
    int slot = -1;
    BITMAP* frame = nullptr;
};

/// Opens a step of the Frame in memory. False as `save_undo`.
bool take_step();

/// The step that is open.
const UndoStep& open_step();

/// The open step is of the Frame in memory.
bool step_is_of_frame();

/// Closes the open step: it is the newest undo state of its Frame, and the redo chain is emptied. Where another Frame
/// is in memory it waits for its own to come back. Nothing without an open step.
void count_step();

/// Closes it without a trace.
void drop_step();

/// Gives the Frame in memory the picture of the open step, and drops that. False, with nothing changed, when the memory
/// for another size can't be had.
bool take_back_step();

/// The newest undo state brings a Cel along: when it is undone that is the Cel, and redo brings back the Cel of now.
void give_step_cel(CelAside given);

/// The step that has waited for the Frame of `slot`, which is in memory now, becomes its newest undo state.
void take_up_waiting_step(int slot);

/// The Frames that steps wait for have other slots: `slot_of` tells that of an old one, -1 for a Frame that is gone.
void renumber_waiting_steps(const std::function<int(int slot)>& slot_of);

// ---- Memory --------------------------------------------------------------------------------------------------------

/// One step (`clear_some_rows`) toward having the memory of the next state ready; false when it is. For when the
/// program rests. A Frame above 256 MiB is left to its strokes.
bool prepare_undo_memory();

/// Takes the bitmaps of new states from `copy`, which gives a copy of its argument or null; null goes back to
/// `copy_bitmap`. For tests that tell beforehand what memory can be had.
void set_undo_source(OwnedBitmap (*copy)(BITMAP* source));

}  // namespace nubo
