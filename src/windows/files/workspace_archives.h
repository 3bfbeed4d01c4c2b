#pragma once
// SAVE, LOAD and NEW of the Workspace's window, once the user has chosen. Each tells its end in the status bar. Main
// flow only.
#include <string>

namespace nubo {

/// Saves all that is in memory, and then the Workspace as one file. True when it was saved.
bool save_workspace(const std::string& path);

/// Puts the Workspace of an archive in the place of the one that stands, which is put away as `previous.wsp` if
/// something has changed in it. On failure nothing changes. True when it was loaded.
bool load_workspace(const std::string& path);

/// Begins a new Workspace. The one that stands is put away in the same way; if it can't be, nothing changes.
void new_workspace();

}  // namespace nubo
