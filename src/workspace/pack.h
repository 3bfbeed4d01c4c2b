#pragma once
// The Workspace's files into an archive, as they are on disk. Main flow only.
#include "gui/progress_box.h"
#include "platform/safe_file.h"
#include "workspace/archive_file.h"
#include <string>

namespace nubo {

inline constexpr const char* see_log = "SEE UA_LOG.TXT";

/// A buffer whose progress shows in the box: each of `frames` Frames has its share, the rest counts for nothing.
CopyBuffer buffer_of(ProgressBox& box, int frames);

/// Writes the Workspace's files behind one another and commits them. Empty when all is well, else what is wrong, for
/// the status bar: the Frame that can't be read, or that the log tells it.
std::string pack_workspace(SafeFile& archive, ProgressBox& box, FileSync sync);

// ---- Frames whose files have vanished ------------------------------------------------------------------------------

/// Makes the row whole again, where somebody has taken files of it away while the program runs: the Frame in memory is
/// written anew, a rescue takes its Frame's place, and where nothing is left a blank Frame does. False in the last
/// case.
bool replace_missing_frames();

/// What the last call has done, for the status bar; empty if nothing was missing.
const std::string& missing_frames_told();

}  // namespace nubo
