#pragma once
// The Workspace into an archive and back (workspace/archive_file.h tells its form). Both show how far they are, in a
// box that takes the place of what stood on the screen; the caller brings that back. Failures are told in the log and
// in the status bar. Main flow only.
#include <string>

namespace nubo {

/// Writes the files of the WORKSPACE folder, as they are, into the archive `path`, which is replaced as a whole or not
/// at all. What is in memory only has to be saved before. 0, or -1 after a failure. The file browser then opens in
/// WORKSPACE.
int save_workspace_archive(const std::string& path);

/// Saves what is in memory, and then all as `save_workspace_archive` does. False after a failure, and the first time
/// after a Frame has vanished from the disk.
bool archive_workspace(const std::string& path);

/// Puts the Workspace of the archive `path` in the place of the one that stands, which is saved and put away
/// (workspace/replace.h). All is checked before. -1 after a failure: nothing has changed, on disk and in memory. 0 when
/// the new Workspace stands; what is missing or bent beside its Frames is repaired, and a box tells it.
int load_workspace_archive(const std::string& path);

}  // namespace nubo
