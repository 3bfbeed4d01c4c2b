#pragma once
// Against a crash: the Frame in memory, while it is changed and unsaved, goes to disk from time to time, as
// "rescue.NNN" beside its own file. A start that finds one newer than the Frame's file takes it. A saved Frame has
// none.
#include "base/bitmap.h"
#include "platform/folder.h"

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

/// The Frame in memory is as its file on disk: nothing is to be rescued until it changes.
void note_frame_saved();

/// Removes the rescue of a slot, if there is one.
void forget_rescue(const Folder& folder, int slot);

/// While an area floats that was cut out of a Frame, that Frame is about to be left, with the hole in it: its rescue
/// becomes the Frame as it was before (`open_step`), for a kill would take the area along. `slot` is the Frame that is
/// left; nothing is done for another than that of the hole. False when the rescue can't be written.
bool rescue_cut_frame(const Folder& folder, int slot);
/// The Frame has been saved since: the rescue has to stay newer.
void renew_cut_rescue(const Folder& folder, int slot);

/// The area goes back while another Frame is in memory: the rescue of its Frame takes the place of that one's file,
/// which asks for no room on the disk. False if it can't; the rescue stays.
bool put_back_cut_frame(const Folder& folder, int slot);

/// The area has landed: if it had left its Frame, the Frame in memory is rescued at once, so that the other's rescue
/// can go.
void rescue_landed_area(const Folder& folder, int cut_slot);

/// The slot whose rescue is newer than its file, or -1; all other rescues are set aside. Called at start.
int find_rescue(const Folder& folder);

/// Makes the rescue of `slot` the Frame in memory and tells the user; RESTORE still leads to what its file holds. The
/// rescue stays until the Frame is saved.
void take_rescue(const Folder& folder, int slot);

/// Makes `picture` the Frame in memory as if the user had painted it over the one that is there.
bool take_as_changed(OwnedBitmap picture);

}  // namespace nubo
