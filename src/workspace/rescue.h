#pragma once
// Against a crash: the Frame in memory, while it is changed and unsaved, goes to disk from time to time, as
// "rescue.NNN" beside its own file. A start that finds one newer than the Frame's file takes it. A saved Frame has
// none.
#include "base/bitmap.h"
#include "workspace/frame_slot.h"
#include "workspace/picture_print.h"
#include <optional>

namespace nubo {

inline constexpr int rescue_seconds = 30;  // between two rescues at the least

/// Writes the Frame aside if it is changed and the time has come. The copy is taken at once, the writing is left to a
/// thread of its own. Called by `update_screen`, in every pass; `stroke_running` tells that a stroke is half painted,
/// that a part of the Frame floats or that a preview shows in it. A rescue that fails is told in the status bar, at
/// once and from then on every minute.
void autosave_tick(bool stroke_running);

/// As long as it lives no rescue is written, and none is under way. For work that draws the screen while the Frame in
/// memory and the files in WORKSPACE aren't of one Workspace.
class RescueHold {
public:
    RescueHold();
    ~RescueHold();
    RescueHold(const RescueHold&) = delete;
    RescueHold& operator=(const RescueHold&) = delete;
};

/// Waits for a rescue that is being written. Before anything else touches the Frames on disk.
void settle_rescue();

// ---- What the Frame in memory tells (workspace/frame_memory.h, which alone calls these) -----------------------------

/// The Frame in memory is as its file on disk: nothing is to be rescued until it changes.
void note_frame_saved();

/// Remembers what a Frame that has just been saved or loaded looks like, before another picture takes its place.
void take_saved_print();

/// Removes the rescue of a slot, if there is one.
void forget_rescue(const FrameSlot& slot);

/// While an area floats that was cut out of a Frame, that Frame is about to be left, with the hole in it: its rescue
/// becomes the Frame as it was before (`open_step`), for a kill would take the area along. `slot` is the Frame that is
/// left; nothing is done for another than that of the hole. False when the rescue can't be written.
bool rescue_cut_frame(const FrameSlot& slot);
/// The Frame has been saved since: the rescue has to stay newer.
void renew_cut_rescue(const FrameSlot& slot);

/// Of the Frame as its file holds it; none where nobody has looked at it yet.
std::optional<Print> print_of_saved_frame();

// ---- An area that was cut out of a Frame ---------------------------------------------------------------------------

/// The area goes back while another Frame is in memory: the rescue of its Frame takes the place of that one's file,
/// which asks for no room on the disk. False if it can't; the rescue stays.
bool put_back_cut_frame(const FrameSlot& slot);

/// The area has landed: if it had left its Frame, the Frame in memory is rescued at once, so that the other's rescue
/// can go.
void rescue_landed_area(const FrameSlot& cut);

// ---- At start ------------------------------------------------------------------------------------------------------

/// The slot whose rescue is newer than its file, or -1; all other rescues are set aside.
int find_rescue(const Folder& folder);

/// What the rescue of a slot holds; it stays until the Frame is saved. Null for one that can't be read; a malformed one
/// is set aside.
OwnedBitmap read_rescue(const FrameSlot& slot);

}  // namespace nubo
