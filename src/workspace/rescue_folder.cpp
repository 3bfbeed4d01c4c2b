#include "workspace/rescue_folder.h"

#include "platform/input_file.h"
#include "platform/safe_file.h"
#include "state/options.h"
#include "workspace/folders.h"
#include <array>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace nubo {
namespace {

namespace fs = std::filesystem;

constexpr const char *owner_note = "program_folder", *apart_note = "without_workspace";

std::string path_of_run;

/// What all rescues of the user are in; empty if the user has no folder for such things.
fs::path rescue_root() {
    const char *state = std::getenv("XDG_STATE_HOME"), *home = std::getenv("HOME");
    if (state != nullptr && state[0] == '/') return fs::path(state) / "nubo" / "rescue";
    return home != nullptr ? fs::path(home) / ".local/state/nubo/rescue" : fs::path();
}

/// Two program folders may end in the same second, as at a logout.
std::string new_name() {
    std::array<char, 32> name{};
    const std::time_t now = std::time(nullptr);
    std::strftime(name.data(), name.size(), "%Y%m%d-%H%M%S-", std::localtime(&now));
    return name.data() + std::to_string(getpid());
}

bool is_ours(const Folder& folder) {
    std::vector<std::uint8_t> owner;
    return read_file(folder.file(owner_note), path_size, owner) &&
           std::string(owner.begin(), owner.end()) == program_folder().path();
}

}  // namespace

Folder rescue_folder() {
    const fs::path root = rescue_root();
    if (!path_of_run.empty() || root.empty()) return Folder(path_of_run);
    const fs::path path = root / new_name();
    std::error_code error;
    fs::create_directories(path, error);
    if (!error) path_of_run = path;
    return Folder(path_of_run);
}

bool note_rescued_work() {
    const Folder folder = rescue_folder();
    if (folder.path().empty()) return false;
    const std::string note = folder.file(owner_note), owner = program_folder().path();
    const bool apart = workspace_is_away() && !file_exists(note);  // else it goes on with work of the row
    if (apart && !write_file(folder.file(apart_note), "", 0)) return false;
    return write_file(note, owner.data(), owner.size());
}

Folder take_rescue_folder() {
    path_of_run.clear();
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(rescue_root(), error)) {
        const Folder folder(entry.path());
        const bool newest = path_of_run.empty() || time_of_work(folder) > time_of_work(Folder(path_of_run));
        if (newest && is_ours(folder)) path_of_run = folder.path();
    }
    return Folder(path_of_run);
}

bool is_apart_from_row(const Folder& folder) { return file_exists(folder.file(apart_note)); }

void end_rescue_folder() {
    if (path_of_run.empty()) return;
    remove_file(Folder(path_of_run).file(owner_note));
    path_of_run.clear();
}

std::pair<std::int64_t, std::int64_t> time_of_file(const std::string& path) {
    struct stat status;
    if (stat(path.c_str(), &status) != 0) return {-1, -1};
    return {status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

std::pair<std::int64_t, std::int64_t> time_of_work(const Folder& folder) {
    return time_of_file(folder.file(owner_note));
}

}  // namespace nubo
