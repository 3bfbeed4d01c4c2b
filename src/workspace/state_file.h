#pragma once
// The Workspace's state file and what is written and read along with it.
#include "platform/folder.h"
#include "workspace/frame_moves.h"
#include <string>

namespace nubo {

inline constexpr const char* state_file = "current.spa";

/// Writes the state to `name` in the WORKSPACE folder and, unless `state_only`, the Frame in memory, the Cel, the
/// CustomTip and the Nail beside it. What the file holds as `image_dir` is the folder in which the file browser would
/// open now; afterwards that is the program's. False if one of the files couldn't be written; that is logged, and the
/// old file stands.
bool save_workspace_state(const char* name, bool state_only);

/// The writing alone, to any folder, with `image_dir` as it is.
bool write_workspace(const Folder& folder, const char* name, bool state_only);

/// Ends the last insert or delete of Frames before more is written to the row: writes the state if that couldn't be
/// done then. False if the disk doesn't let it.
bool settle_job();

/// Reads the state alone. What is missing of it has its default. A file that can't be read is set aside before another
/// is written over it. False if it wasn't whole.
bool read_state(const std::string& path);

/// Reads the Workspace of that name from the WORKSPACE folder, of which `repairs` is what was repaired in its row; an
/// alternate set takes the place of a missing one. What is missing or damaged is repaired. False if there is none at
/// all: then the defaults are set.
bool load_workspace_state(const char* name, const FrameRepairs& repairs);

/// The alternate set, a whole Workspace under another stem, which the program only renames or removes: it becomes the
/// current one, or goes.
void swap_to_alternate();
void remove_alternate_files();

}  // namespace nubo
