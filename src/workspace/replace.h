#pragma once
// One Workspace in the place of another, by LOAD or by NEW: the old one or the new one stands, wherever the program is
// killed, and what is in the old one is put away. Main flow only.
#include "base/bitmap.h"
#include "gui/progress_box.h"
#include "workspace/arrival.h"
#include <cstddef>
#include <functional>
#include <string>

namespace nubo {

/// The Workspace that comes.
struct Newcomer {
    Label title = LABEL_NONE;  // of the box that shows how far it is
    int frame_count = 1;
    std::size_t bytes = 0;  // the room that it takes on disk, about
    ArrivalSource source{};
    std::function<bool(ProgressBox&)>
        stage{};                    // writes its files as loaded.*, by SYNC_WITH_DISK; false after a failure
    std::function<bool()> adopt{};  // takes the memory that it needs, once its files stand; false: all goes back
    std::function<void()> take{};   // makes it the one in memory
};

/// Empty when the newcomer stands; else nothing has changed, on disk and in memory, and what is wrong is told, in words
/// for the status bar.
std::string replace_workspace(const Newcomer& newcomer);

/// True if the last change has put the old Workspace away; false if nothing had changed in it since it came.
bool last_one_was_put_away();

/// Writes a picture under a name of the newcomer.
bool stage_picture(const char* ending, BITMAP* picture);

}  // namespace nubo
