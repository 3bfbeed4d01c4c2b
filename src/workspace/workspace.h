#pragma once
// The Workspace from start to end: what the program's start, loop and stop call. In a start, in this order:
//
//   lock_folder(program_dir)      platform/folder_lock.h, before the log is reset: false ends the start, exit_locked
//   load_user_settings()          workspace/user_settings.h
//   open_workspace()              once the bitmaps of state/run.h and state/cel.h are made and the handlers installed
//   autosave_tick(...)            workspace/rescue.h, in every update of the screen
//   take_box()                    workspace/notices.h, in the program loop
//   close_workspace(), then save_user_settings()

namespace nubo {

/// Restores the Workspace of the last run, or makes the first one, and logs which. Afterwards there is a Frame in
/// memory and on disk whatever lay there. Where WORKSPACE can't be reached there is a blank Frame, a box that says so,
/// and nothing is written there in this run. `program_dir` is set, the handlers are locked. False only if no memory is
/// left for a Frame.
bool open_workspace();

/// Where the work is after the end of a run: in its folder, or with nothing in it to be lost; in a folder of rescue,
/// which the next start takes; nowhere but in memory.
enum WorkspaceEnd : int { WORKSPACE_KEPT, WORKSPACE_ELSEWHERE, WORKSPACE_LOST };

/// Writes the Workspace, at the end of the run; where that fails, to a folder of rescue. A failure is told in the log
/// and on standard error. `handlers_locked` is set.
WorkspaceEnd close_workspace();

}  // namespace nubo
