#pragma once
// The Workspace from start to end: what the program's start, loop and stop call. In a start, in this order:
//
//   lock_folder(program_dir)      platform/folder_lock.h, before the log is reset: false ends the start, exit_locked
//   load_user_settings()          workspace/user_settings.h
//   open_workspace()              once the bitmaps of state/run.h and state/cel.h are made and the handlers installed
//   enter_image_dir()             just before the program loop
//   autosave_tick(...)            workspace/rescue.h, in every update of the screen
//   take_box()                    workspace/notices.h, in the program loop
//   close_workspace(), then save_user_settings()

namespace nubo {

/// Restores the Workspace of the last run, or makes the first one, and logs which. Afterwards there is a Frame in
/// memory and on disk whatever lay there. `program_dir` is set, the handlers are locked; leaves the process in
/// `program_dir`. False only if no memory is left for a Frame.
bool open_workspace();

/// Changes to `image_dir`, where the user last worked. If that is gone the process stays where it stands.
void enter_image_dir();

/// Writes the Workspace, at the end of the run; where that fails, to a folder of rescue, which is told in the log and
/// on standard error. `handlers_locked` is set. Leaves the process in `program_dir`.
void close_workspace();

/// Gives all values of the Workspace what a new one holds: slots of tools and inks, views, and colours drawn at random.
/// The Frame, the Cel and the names stay.
void set_workspace_defaults();

}  // namespace nubo
