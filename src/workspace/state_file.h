#pragma once
// The Workspace's state file and what is written and read along with it.

namespace nubo {

inline constexpr const char* state_file = "current.spa";

/// Writes the state to `name` in the WORKSPACE folder and, unless `state_only`, the Frame in memory, the Cel, the
/// CustomTip and the Nail beside it. The current folder is what the file holds as `image_dir`. Leaves the process in
/// `program_dir`. False if one of the files couldn't be written; that is logged, and the old file stands.
bool save_workspace_state(const char* name, bool state_only);

/// The writing alone, where the process stands, with `image_dir` as it is.
bool write_workspace_here(const char* name, bool state_only);

/// Reads the Workspace of that name, the process standing in the WORKSPACE folder; an alternate set takes the place of
/// a missing one. What is missing or damaged is repaired. False if there is none at all: then the defaults are set.
bool load_workspace_state(const char* name);

/// The alternate set, a whole Workspace under another stem, which the program only renames or removes: it becomes the
/// current one, or goes. The process stands in the WORKSPACE folder.
void swap_to_alternate();
void remove_alternate_files();

}  // namespace nubo
