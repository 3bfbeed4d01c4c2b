#pragma once
// A Frame and its file: reading it into memory, writing it back, and what stands in when it can't be read. `folder` is
// the one that holds the row of Frames.
#include "codecs/bmp_file.h"
#include "platform/folder.h"
#include <functional>

namespace nubo {

/// What a frame file gave: its picture, or why there is none. That is logged.
struct FramePicture {
    OwnedBitmap bitmap;
    PictureFault fault = PICTURE_MISSING;
};
FramePicture read_frame_file(const Folder& folder, int slot);

/// Makes what the file of `slot` gave the Frame in memory. In place of a malformed file, which is set aside, or of a
/// missing one a blank Frame takes the slot. A sound file that can't be read now stays as it is: then, and without the
/// memory, nothing has changed and it is false.
bool take_frame(const Folder& folder, int slot, FramePicture read);

/// Both: brings the Frame of a slot into memory.
bool load_frame(const Folder& folder, int slot);

/// The Frame to open with: that of `slot`, which then is the current one, or where its file is out of reach any other:
/// the row isn't shut off for one of its Frames. If all are, a blank one stands in, which isn't written over any. False
/// only without the memory for that.
bool load_frame_or_another(const Folder& folder, int slot);

/// Writes the Frame in memory to the file of `slot`. False after a failure, which is logged: the Frame that was on disk
/// is still there. After a success no rescue is kept for the slot.
bool save_frame_to_slot(const Folder& folder, int slot);

/// The same, and the Nail after it, with a new tile of the slot. `meanwhile` runs while the disk takes its time; it may
/// read files, not write any.
bool save_frame_and_nail(const Folder& folder, int slot, const std::function<void()>& meanwhile);

}  // namespace nubo
