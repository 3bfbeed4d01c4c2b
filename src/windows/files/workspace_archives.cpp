#include "windows/files/workspace_archives.h"

#include "gui/shown_names.h"
#include "state/frames.h"
#include "windows/kit/run_window.h"
#include "workspace/archive.h"
#include "workspace/frame_store.h"
#include "workspace/notices.h"
#include "workspace/pack.h"
#include "workspace/replace.h"
#include <filesystem>

namespace nubo {
namespace {

std::string frames_text() { return std::to_string(frame_count) + (frame_count == 1 ? " FRAME" : " FRAMES"); }

/// What was done, and in front of it which Frame had vanished from the disk.
void say(const std::string& done, const std::string& more) {
    const std::string& missing = missing_frames_told();
    flash_text(missing.empty() ? done + more : missing + ". " + done);
}

}  // namespace

bool save_workspace(const std::string& path) {
    const ClearedScreen cleared;
    if (!archive_workspace(path)) return false;
    say("SAVED " + frames_text(), " TO " + shown_file_name(std::filesystem::path(path).filename()));
    return true;
}

bool load_workspace(const std::string& path) {
    const ClearedScreen cleared;
    if (load_workspace_archive(path) != 0) return false;
    say("LOADED " + frames_text(), last_one_was_put_away() ? ". THE OLD ONES ARE IN PREVIOUS.WSP" : "");
    return true;
}

void new_workspace() {
    const ClearedScreen cleared;
    if (clear_workspace()) say("A NEW WORKSPACE", last_one_was_put_away() ? ". THE OLD ONE IS IN PREVIOUS.WSP" : "");
}

}  // namespace nubo
