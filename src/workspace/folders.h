#pragma once
// The folders of the program, and the one in which a user looks for files.
#include "platform/folder.h"
#include "workspace/frame_slot.h"

namespace nubo {

/// `program_dir`, and what lies in it.
Folder program_folder();
Folder resource_folder();
Folder workspace_folder();

/// A slot of the row of Frames in WORKSPACE.
FrameSlot slot_of_row(int number);

/// True if the WORKSPACE folder is there; it is made if there is none. False, logged, if it can't be reached, and in a
/// run that began without it.
bool reach_workspace();

/// True in a run whose start couldn't reach the WORKSPACE folder: it isn't touched any more, for what is in memory has
/// nothing to do with what may be there later. Set by the start.
bool workspace_is_away();
void set_workspace_away(bool away);

/// The folder in which the file browser opens where no home is set, and which the state file keeps as `image_dir`: the
/// program's own behind a change of the row of Frames, the image folder behind a swap.
Folder browse_folder();
void browse_in(const Folder& folder);
void browse_in_image_dir();

}  // namespace nubo
