#include "workspace/previous.h"

#include "base/log.h"
#include "platform/input_file.h"
#include "platform/safe_file.h"
#include "workspace/archive_file.h"
#include "workspace/folders.h"
#include "workspace/rescue_folder.h"
#include <algorithm>
#include <filesystem>
#include <string_view>

namespace nubo {
namespace {

constexpr std::size_t kept = previous_names.size();

bool is_there(const Folder& folder, std::size_t index) { return file_exists(path_of(folder, previous_names[index])); }

PreviousWorkspace read_previous(const std::string& path) {
    PreviousWorkspace previous{.path = path, .time = time_of_file(path).first};
    ArchiveContents contents;
    if (read_archive(InputFile(path), contents) != nullptr) return previous;
    previous.title = contents.head.title;
    previous.frame_count = contents.head.frame_count;
    return previous;
}

/// Asks the disk itself, which alone knows of quotas.
bool lacks_room(const Folder& folder, std::size_t bytes) {
    SafeFile probe(path_of(folder, previous_staged));
    probe.reserve(bytes);
    return probe.lacks_room();
}

}  // namespace

std::vector<PreviousWorkspace> list_previous_workspaces() {
    std::vector<PreviousWorkspace> list;
    const Folder folder = workspace_folder();
    for (std::size_t i = 0; i < kept; ++i)
        if (is_there(folder, i)) list.push_back(read_previous(path_of(folder, previous_names[i])));
    return list;
}

std::string previous_workspace_file() { return path_of(workspace_folder(), previous_names.front()); }

bool is_previous_name(const std::string& file_name) {
    const auto is_name = [&](std::string_view name) { return name.substr(name.rfind('/') + 1) == file_name; };
    return is_name(previous_staged) || is_name(previous_retired) ||
           std::any_of(previous_names.begin(), previous_names.end(), is_name);
}

bool previous_is_whole() {
    const InputFile file(previous_workspace_file());
    ArchiveContents contents;
    return file.is_open() && read_archive(file, contents) == nullptr && find_bent_frame(file, contents) < 0;
}

void make_room_beside_previous(const Folder& folder, std::size_t bytes, const std::string& taken) {
    for (std::size_t i = kept - 1; i > 0; --i) {
        const std::string path = path_of(folder, previous_names[i]);
        std::error_code away;
        if (!is_there(folder, i) || std::filesystem::equivalent(path, taken, away)) continue;
        if (!lacks_room(folder, bytes) || !remove_file(path)) return;
        UA_log("[ INFO ] : %s was removed to make room", path.c_str());
    }
}

void add_to_previous(const Folder& folder, RenameJob& job) {
    if (!file_exists(path_of(folder, previous_staged))) return;
    std::size_t free = 0;  // the first without a file: only those in front of it move
    while (free < kept && is_there(folder, free)) ++free;
    if (free == kept) job.add(folder, previous_names[--free], previous_retired);
    for (; free > 0; --free) job.add(folder, previous_names[free - 1], previous_names[free]);
    job.renames.push_back({previous_staged, previous_names.front()});
}

}  // namespace nubo
