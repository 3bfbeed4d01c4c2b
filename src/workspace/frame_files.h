#pragma once
// One Frame and its file: reading it into memory, writing it back, and what stands in when it can't be read.
#include "base/bitmap.h"
#include <functional>
#include <string>

namespace nubo {

/// The name of a slot's file under one of the stems: "current.007". The first three are Workspaces' own; the others
/// stand for moments only: a Frame's state against a crash, and Frames on their way into the row or out of it.
enum FrameStem : int {
    STEM_CURRENT,
    STEM_ALTERNATE,
    STEM_BACKUP,
    STEM_RESCUE,
    STEM_INSERTED,
    STEM_DELETED,
    STEM_COUNT
};
std::string frame_file_name(FrameStem stem, int slot);

/// The number of slots with a file under that stem, where the process stands.
int count_slot_files(FrameStem stem);

/// Gives a file of the WORKSPACE folder that can't be read a name that nothing has: "unreadable", a number from the
/// second on, and its ending. False, logged, if it stays where it is.
bool set_aside(const std::string& file);

/// Makes `picture` the Frame in memory, with what belongs to it: the view held to its limits, the backdrop chosen, the
/// coverage map remade, the undo history ended. False, with nothing changed, when the memory can't be had.
bool place_picture(OwnedBitmap picture);

/// Reads a frame file. Null if it is missing or can't be read; that is logged.
OwnedBitmap read_frame_file(const std::string& path);

/// Reads a BMP file into the Frame in memory and into `original_frame`: the way a Frame is swapped in. False, with
/// nothing changed, if the file is missing or can't be read; that is logged.
bool load_frame_file(const std::string& path);

/// Puts a black Frame of `view_w` by `view_h` in memory, as RESTORE's copy too. False when the memory can't be had.
bool place_blank_frame();

/// Brings the Frame of a slot into memory. A file that can't be read is renamed aside, never written over, and a blank
/// Frame takes its place. The process stands in the WORKSPACE folder. False only if no memory is left for that.
bool load_frame_or_blank(int slot);

/// The second half of that: `picture` is what the slot's file gave.
bool take_frame_or_blank(int slot, OwnedBitmap picture);

/// Writes the Frame in memory to the file of `slot`; the process stands in the WORKSPACE folder. False after a failure,
/// which is logged: the Frame that was on disk is still there. After a success no rescue is kept for the slot.
bool save_frame_to_slot(int slot);

/// The same, and the Nail after it, with a new tile of the slot. `meanwhile` runs while the disk takes its time; it may
/// read files, not write any.
bool save_frame_and_nail(int slot, const std::function<void()>& meanwhile);

}  // namespace nubo
