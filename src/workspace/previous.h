#pragma once
// The Workspaces that LOAD and NEW have put away: the last five, archives beside the WORKSPACE folder, the newest of
// which is `previous.wsp`. Main flow only.
#include "platform/folder.h"
#include "workspace/rename_job.h"
#include <cstdint>
#include <string>
#include <vector>

namespace nubo {

struct PreviousWorkspace {
    std::string path{};
    std::string title{};    // bytes as they stand in the file, which may be any
    int frame_count = 0;    // 0 for an archive that is damaged
    std::int64_t time = 0;  // when it was put away, in seconds of the system's clock
};

/// Those that are there, the newest first.
std::vector<PreviousWorkspace> list_previous_workspaces();

/// The path of the newest, whether it is there or not.
std::string previous_workspace_file();

/// True for the file name of one of them, of one on its way in, or of one on its way out.
bool is_previous_name(const std::string& file_name);

/// True if the newest is there and can be loaded.
bool previous_is_whole();

/// Where the disk has no room for `bytes` more the oldest go until it has, but for the newest and the one at `taken`.
void make_room_beside_previous(const Folder& folder, std::size_t bytes, const std::string& taken);

/// Adds the renames by which the staged archive becomes the newest, if there is one.
void add_to_previous(const Folder& folder, RenameJob& job);

}  // namespace nubo
