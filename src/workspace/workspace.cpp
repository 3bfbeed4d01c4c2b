#include "workspace/workspace.h"

#include "base/log.h"
#include "platform/safe_file.h"
#include "state/frames.h"
#include "state/options.h"
#include "workspace/folders.h"
#include "workspace/frame_files.h"
#include "workspace/frame_moves.h"
#include "workspace/frame_store.h"
#include "workspace/nail.h"
#include "workspace/rescue.h"
#include "workspace/side_files.h"
#include "workspace/state_file.h"
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>

namespace nubo {
namespace {

// ---- Start ---------------------------------------------------------------------------------------------------------

/// Without a state file: whatever else lies there is still the user's.
bool open_without_state() {
    for (const SideFile kind : {SIDE_CEL, SIDE_TIP, SIDE_NAIL}) load_side_file(kind, "current.");
    return file_exists(frame_file_name(STEM_CURRENT, 0)) ? load_frame_or_blank(0) : place_blank_frame();
}

/// The rescued Frame is the one to come back to.
void bring_back_rescue(int slot) {
    if (slot < 0) return;
    if (slot != frame_index) fetch_frame(slot, slot);
    take_rescue(slot);
}

bool restore() {
    const bool moved = repair_frame_files();
    const int rescue = find_rescue();
    const bool there = load_workspace_state(state_file);
    if (!there && !open_without_state()) return false;
    // On disk at once, so that the row has no gap at its front, wherever the program is killed.
    if (count_slot_files(STEM_CURRENT) == 0) save_frame_to_slot(frame_index = 0);
    frame_count = std::max(count_slot_files(STEM_CURRENT), 1);  // the files win over the stored number
    bring_back_rescue(rescue);
    // Now that the state knows of the moves, their journal may go.
    if (moved && save_nail() && write_workspace_here(state_file, true)) end_frame_move();
    if (there) UA_log("[ INIT ] : User workspace restored from file");
    if (!there) UA_log("[ INFO ] : Couldn't locate workspace. Assuming default settings.");
    return current_frame != nullptr;
}

// ---- End -----------------------------------------------------------------------------------------------------------

/// A new folder of its own under the user's state folder, named by the time; empty if there can be none.
std::filesystem::path make_rescue_folder() {
    const char *state = std::getenv("XDG_STATE_HOME"), *home = std::getenv("HOME");
    std::filesystem::path folder;
    if (state != nullptr && state[0] == '/')
        folder = state;
    else if (home != nullptr)
        folder = std::filesystem::path(home) / ".local/state";
    else
        return {};
    std::array<char, 32> name{};
    const std::time_t now = std::time(nullptr);
    std::strftime(name.data(), name.size(), "%Y%m%d-%H%M%S", std::localtime(&now));
    folder = folder / "nubo" / "rescue" / name.data();
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    return error ? std::filesystem::path() : folder;
}

void tell_everywhere(const std::string& line) {
    UA_log("%s", line.c_str());
    std::fprintf(stderr, "nubo: %s\n", line.c_str());
}

}  // namespace

bool open_workspace() {
    const bool opened = enter_workspace() ? restore() : (set_workspace_defaults(), place_blank_frame());
    enter_program_dir();
    return opened;
}

void enter_image_dir() {
    if (image_dir[0] != '\0') enter_folder(image_dir.data());
}

void close_workspace() {
    if (save_workspace_state(state_file, false)) return;
    tell_everywhere("[ ERROR ] : The workspace couldn't be written to its folder");
    const std::filesystem::path folder = make_rescue_folder();
    if (!folder.empty() && enter_folder(folder.c_str()) && write_workspace_here(state_file, false))
        tell_everywhere("[ INFO ] : The workspace was written to " + folder.string());
    else
        tell_everywhere("[ ERROR ] : The workspace couldn't be written anywhere");
    enter_program_dir();
}

}  // namespace nubo
