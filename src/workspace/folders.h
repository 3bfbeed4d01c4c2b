#pragma once
// The folders of the Workspace. Relative names of files are meant in the folder that the process stands in, so each
// operation goes where its files are and leaves the process where its callers expect it.

namespace nubo {

inline constexpr const char* workspace_folder = "WORKSPACE";

/// Changes to `program_dir`, then to its WORKSPACE folder, which is made if there is none. False, logged, if that can't
/// be reached.
bool enter_workspace();

/// Changes to the WORKSPACE folder of where the process stands, which is made if there is none.
bool enter_workspace_from_here();

/// Changes to `program_dir`; false, without a log line, if it is gone.
bool enter_program_dir();

/// True if the process could change to `folder`.
bool enter_folder(const char* folder);

}  // namespace nubo
