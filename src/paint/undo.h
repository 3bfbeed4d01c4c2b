#pragma once
// Undo and redo of the Frame in memory, on its history (paint/history.h). A step is made of what has changed since the
// snapshot that the inks read: at the next `save_undo`, when something else begins to change. So a press costs what the
// stroke before it has touched, whatever the size of the Frame.
#include "base/bitmap.h"
#include "paint/cel_pixels.h"
#include "paint/history.h"
#include <functional>
#include <optional>

namespace nubo {

/// What changes from here on is a step of its own, and the snapshot is the Frame as it is now. Unless `keep_redo`, what
/// was undone can't be redone any more. False, with nothing changed but a log line and a status message, when the
/// memory can't be had: the caller then leaves the Frame alone.
bool save_undo(bool keep_redo);

/// A number for the step that `save_undo` has begun, as long as what changes belongs to it: whoever began it may go on
/// there.
inline constexpr int no_step = 0;
int step_in_progress();

/// The user's commands; nothing happens where UNDO DEPTH or the history ends. True if the step brought a Cel along
/// (`give_step_cel`). The Frame may have another size afterwards.
bool undo_last();
bool redo_last();

/// How many steps can be undone from the first to the last state that is in reach, and how many are done.
struct UndoReach {
    int done = 0, all = 0;
};
UndoReach undo_reach();

/// For a look at other states: leads the Frame from where `from` of the steps in reach are done to where `to` are, or
/// as far as it gets, and gives the number there. The history isn't told: who looks puts the Frame back.
int lead_frame(int from, int to);

/// `picture` takes the Frame's place. That is a step, which only an UNDO DEPTH of ALL reaches: else it ends what can be
/// undone. Where the memory for the step can't be had, it ends the history. False, with nothing changed, without the
/// memory for the Frame.
bool change_frame(OwnedBitmap picture);

/// The Frame has no history: it is another one, or begins anew.
void reset_undo_slots();

/// UNDO DEPTH is another: only from here on it can be undone, or with ALL as far as the history reaches.
void renew_undo_reach();

// ---- A step before its change is final -----------------------------------------------------------------------------
// A change that may still be taken back, here or after a look at other Frames, takes its step first and lets it count
// when the change is final. Till then undo and redo are as they were.

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

/// Closes the open step: it is the newest of its Frame, and what was undone there can't be redone. Where another Frame
/// is in memory, the file of its history has it. Nothing without an open step.
void count_step();

/// Closes it without a trace.
void drop_step();

/// Gives the Frame in memory the picture of the open step, and drops that. False, with nothing changed, when the memory
/// for another size can't be had.
bool take_back_step();

/// The newest step brings a Cel along: when it is undone that is the Cel, and redo brings back the Cel of now.
void give_step_cel(CelAside given);

// ---- The history and its file (workspace/frame_history.h, which alone calls these) ----------------------------------

/// What the file is to have.
struct HistoryToStore {
    History history;
    BITMAP* before_hole = nullptr;  // the picture before the last step, if that is one which is still open
};
/// None without memory.
std::optional<HistoryToStore> history_to_store();

/// The history in memory, for what the file's reader and writer have to tell it. All that was done is in it, unless the
/// memory for that couldn't be had: then it is null.
History* settled_history();

/// The Frame that has just come into memory has this one. An open step that was left with this Frame goes on.
void take_history(History history);

// ---- Which Frame was changed last ----------------------------------------------------------------------------------

/// Its slot, -1 none in this run.
int last_changed_frame();

/// The Frames have other slots: `slot_of` tells that of an old one, -1 for a Frame that is gone.
void renumber_changed_frame(const std::function<int(int slot)>& slot_of);

// ---- At rest -------------------------------------------------------------------------------------------------------

/// One step toward a snapshot that is ready before the first stroke and a history that takes little memory; false when
/// there is nothing to do. For when the program rests. A Frame above 256 MiB is left to its strokes.
bool prepare_undo_memory();

/// For tests: as if there were no memory for another step.
void refuse_undo_memory(bool refused);

}  // namespace nubo
