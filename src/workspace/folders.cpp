#include "workspace/folders.h"

#include "base/log.h"
#include "state/browse.h"
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace nubo {
namespace {

bool away = false;

bool is_folder(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_directory(path, error);
}

}  // namespace

Folder program_folder() { return Folder(program_dir.data()); }

Folder resource_folder() { return program_folder().inside("resource"); }

Folder workspace_folder() { return program_folder().inside("WORKSPACE"); }

FrameSlot slot_of_row(int number) { return {workspace_folder(), number}; }

bool reach_workspace() {
    const std::string path = workspace_folder().path();
    if (away) {
        UA_log("[ ERROR ] : The folder %s isn't used, since this run began without it", path.c_str());
        return false;
    }
    if (!is_folder(path) && mkdir(path.c_str(), 0777) != 0) {
        UA_log("[ ERROR ] : The folder %s can't be made: %s", path.c_str(), std::strerror(errno));
        return false;
    }
    if (access(path.c_str(), X_OK) == 0) return true;
    UA_log("[ ERROR ] : The folder %s can't be entered: %s", path.c_str(), std::strerror(errno));
    return false;
}

bool workspace_is_away() { return away; }

void set_workspace_away(bool is_away) { away = is_away; }

Folder browse_folder() { return Folder(browse_dir.data()); }

void browse_in(const Folder& folder) {
    browse_dir.fill('\0');
    if (folder.path().size() < browse_dir.size())
        std::copy(folder.path().begin(), folder.path().end(), browse_dir.begin());
}

void browse_in_image_dir() { browse_in(is_folder(image_dir.data()) ? Folder(image_dir.data()) : program_folder()); }

}  // namespace nubo
