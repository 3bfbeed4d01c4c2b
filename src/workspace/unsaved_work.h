#pragma once
// What the end of a run couldn't write to WORKSPACE: kept in a folder of rescue, and brought back by the next start.

namespace nubo {

/// False if nothing would be lost with the memory: in a run without a Workspace nobody has painted.
bool holds_unsaved_work();

/// Writes the state, the Frame in memory, the Cel, the CustomTip and the Nail to the folder of rescue of this run.
/// False after a failure, which is logged.
bool keep_unsaved_work();

/// The newest unsaved work of this program folder, if there is any, comes back and the user is told. The Frame counts
/// as changed and unsaved; one of a run without a Workspace is added to the row. What is older than the Workspace is
/// left where it is. Called at start.
void bring_back_unsaved_work();

}  // namespace nubo
