#pragma once
// Files that the user opens from outside: named at the start, or handed over by a second one. Main flow only.
#include <string>
#include <vector>

namespace nubo {

/// Loads a Workspace's archive, the first of them alone, in place of what stands, and opens each picture as a new Frame
/// at the end of the row; the first of them becomes the current one, and SAVE offers each its own file. Who only
/// names files isn't asked about their alpha: what is clear becomes the mask colour. What can't be
/// read, and what finds no free slot, is named on standard error, in the log and, the last of it, in the status bar.
void open_files(const std::vector<std::string>& files);

/// The same with what another start of the program has handed over (windows/kit/handed_files.h). Once a pass of the
/// program's loop, when no window and no tool waits for the user.
void open_handed_files();

}  // namespace nubo
