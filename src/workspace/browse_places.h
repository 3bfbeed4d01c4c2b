#pragma once
// The folders in which the user looks for Workspaces, palettes and schemes, over restarts. Main flow only.

namespace nubo {

/// Reads `folders.def` from the resource folder. Without one nothing has been looked for yet.
void load_browse_places();

/// Writes it, if there is a folder to remember. False after a failure, which is logged.
bool save_browse_places();

}  // namespace nubo
