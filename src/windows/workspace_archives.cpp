#include "windows/workspace_archives.h"

#include "state/frames.h"
#include "windows/file_list.h"
#include "windows/run_window.h"
#include "workspace/archive.h"
#include "workspace/frame_store.h"
#include "workspace/notices.h"
#include <filesystem>

namespace nubo {
namespace {

std::string frames_text() { return std::to_string(frame_count) + (frame_count == 1 ? " FRAME" : " FRAMES"); }

}  // namespace

bool save_workspace(const std::string& path) {
    const ClearedScreen cleared;
    if (!archive_workspace(path)) return false;
    flash_text("SAVED " + frames_text() + " TO " + shown_file_name(std::filesystem::path(path).filename()));
    return true;
}

bool load_workspace(const std::string& path) {
    const ClearedScreen cleared;
    if (load_workspace_archive(path) != 0) return false;
    flash_text("LOADED " + frames_text() + ". THE OLD ONES ARE IN PREVIOUS.WSP");
    return true;
}

void new_workspace() {
    const ClearedScreen cleared;
    if (!keep_previous_workspace())
        flash_text("NOTHING CLEARED: THE WORKSPACE CAN'T BE KEPT");
    else if (clear_workspace())
        flash_text("A NEW WORKSPACE. THE OLD ONE IS IN PREVIOUS.WSP");
}

}  // namespace nubo
