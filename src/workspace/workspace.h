#pragma once
// The Workspace from start to end: what the program's start and stop call.

namespace nubo {

/// Restores the Workspace of the last run, or makes the first one. Afterwards there is a Frame in memory whatever lay
/// on disk. `program_dir` is set, the handlers are locked; leaves the process in `program_dir`. False, logged, only if
/// no memory is left for a Frame.
bool open_workspace();

/// Writes the Workspace, at the end of the run. `handlers_locked` is set. Leaves the process in `program_dir`.
void close_workspace();

/// Gives all values of the Workspace what a new one holds: slots of tools and inks, views, and colours drawn at random.
/// The Frame, the Cel and the names stay.
void set_workspace_defaults();

}  // namespace nubo
