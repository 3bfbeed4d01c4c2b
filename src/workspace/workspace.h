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

/// Writes the Workspace, at the end of the run; where that fails, to a folder of rescue, which is told in the log and
/// on standard error, and which the next start takes. `handlers_locked` is set. False if something isn't where it
/// belongs.
bool close_workspace();

}  // namespace nubo
