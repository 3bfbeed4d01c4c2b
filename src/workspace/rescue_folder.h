#pragma once
// Where work goes that WORKSPACE can't take: folders under the user's state folder, "nubo/rescue/" and the time, each
// of one run. One holds a Workspace with the one Frame that was in memory, and a note of the program folder that it
// belongs to; the time of that note is the time of the work. Work done without any Workspace has a second note beside
// it.
#include "platform/folder.h"
#include <cstdint>
#include <string>
#include <utility>

namespace nubo {

/// The folder of this run, made when it is first asked for. Its path is empty if there can be none.
Folder rescue_folder();

/// Writes the notes: from now on the folder of this run holds work. False after a failure.
bool note_rescued_work();

/// The newest folder with work of this program folder, of an empty path for none. From then on it is the folder of this
/// run.
Folder take_rescue_folder();

/// True if the work in a rescue folder was done without a Workspace, so that its Frame is none of the row.
bool is_apart_from_row(const Folder& folder);

/// No start takes the work in the folder of this run any more. Its pictures stay.
void end_rescue_folder();

/// When a file was last written; a missing one is older than all.
std::pair<std::int64_t, std::int64_t> time_of_file(const std::string& path);

/// When the work in a rescue folder was written.
std::pair<std::int64_t, std::int64_t> time_of_work(const Folder& folder);

}  // namespace nubo
