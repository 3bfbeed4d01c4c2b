#pragma once
// The one Frame in memory, and the only places where one comes there, is left and is stored:
//
//   comes from its file   open_frame at start; bring_in where another Frame is to be seen, or the same one anew
//   comes otherwise       open_blank_frame without a file; take_as_changed by LOAD or as work brought back;
//                         take_as_rescued at start; take_as_saved by NEW
//   is left               leave_frame, which stores it, its tile and its view; give_up_slot where another Frame gets
//   the
//                         slot
//   is stored             store_frame
//
// What belongs to it changes along with it: the view is held to its limits, the backdrop chosen, the coverage map
// remade, the undo history ended, and the rescue (workspace/rescue.h) is told. What changes its size but neither its
// slot nor where it comes from, as a resize, calls `adopt_frame` (paint/surfaces.h) itself.
#include "codecs/bmp_file.h"
#include "workspace/frame_slot.h"
#include <functional>

namespace nubo {

// ---- From its file -------------------------------------------------------------------------------------------------

/// What a frame file gave: its picture, or why there is none. That is logged.
struct FramePicture {
    OwnedBitmap bitmap;
    PictureFault fault = PICTURE_MISSING;
};
FramePicture read_frame_file(const FrameSlot& slot);

/// Makes what the file of a slot gave the Frame in memory and RESTORE's copy, and the slot the current one, with the
/// view that it was left with and the step that waited for it. In place of a malformed file, which is set aside, or of
/// a missing one a blank Frame takes the slot. A sound file that can't be read now stays as it is: then, and without
/// the memory, nothing has changed and it is false. `once_placed` runs when nothing can fail any more and the slots are
/// still as before.
bool bring_in(const FrameSlot& slot, FramePicture read, const std::function<void()>& once_placed = {});

/// The Frame to open with: that of `slot`, which then is the current one, or where its file is out of reach any other:
/// the row isn't shut off for one of its Frames. If all are, a blank one stands in, which isn't written over any. False
/// only without the memory for that.
bool open_frame(const FrameSlot& slot);

// ---- Otherwise -----------------------------------------------------------------------------------------------------
// Each is false, with nothing changed, when the memory can't be had.

/// A black Frame of `view_w` by `view_h`, which is RESTORE's copy too; there is nothing in it to be rescued.
bool open_blank_frame();

/// `picture` as if the user had painted it over the Frame that is there.
bool take_as_changed(OwnedBitmap picture);

/// `picture`, which stands in the file of the current slot. RESTORE's copy stays.
bool take_as_saved(OwnedBitmap picture);

/// `picture` out of the rescue of a slot whose Frame is in memory, with the history that leads to it; a change of the
/// Frame where there is none.
bool take_as_rescued(const FrameSlot& slot, OwnedBitmap picture);

// ---- Leaving and storing -------------------------------------------------------------------------------------------

/// Writes the Frame in memory to its slot. False after a failure, which is logged: the Frame that was on disk is still
/// there. After a success no rescue is kept for the slot.
bool store_frame(const FrameSlot& slot);

/// The same for another Frame to come, and the Nail after it with a new tile of the slot, and the slot's view; the
/// Frame with the hole of an area that floats has its rescue besides. `meanwhile` runs while the disk takes its time;
/// it may read files, not write any.
bool leave_frame(const FrameSlot& slot, const std::function<void()>& meanwhile);

/// Another Frame takes the slot: no rescue of the one before may take its place at the next start.
void give_up_slot(const FrameSlot& slot);

/// Remembers the view of now as that of slot `number`.
void keep_view(int number);

/// Takes a preview off the Frame, if there is one.
void end_frame_preview();

}  // namespace nubo
