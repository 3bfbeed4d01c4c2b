#pragma once
// The user's settings: what belongs to the person and not to a Workspace. Read once at start, written once at the end.

namespace nubo {

/// Reads `user.def` from the resource folder, or sets the defaults of a first run if there is none. The process stands
/// in `program_dir`, before and after.
void load_user_settings();

/// Writes `user.def`; leaves the process in `program_dir`. False after a failure, which is logged.
bool save_user_settings();

}  // namespace nubo
