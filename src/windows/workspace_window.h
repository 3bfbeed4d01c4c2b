#pragma once

namespace nubo {

/// The window of the Workspace's title and notes, from which it is saved, loaded and cleared. Main flow only.
void workspace_window();

}  // namespace nubo
