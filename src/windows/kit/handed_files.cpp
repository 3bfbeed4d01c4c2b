#include "windows/kit/handed_files.h"

#include "base/log.h"
#include "gui/shown_names.h"
#include "platform/file_inbox.h"
#include "platform/window_focus.h"
#include "state/run.h"
#include "state/status.h"
#include "workspace/notices.h"
#include <utility>

namespace nubo {
namespace {

std::vector<std::string> waiting;

/// True when there are new ones.
bool collect() {
    const std::vector<std::string> files = take_handed_files();
    waiting.insert(waiting.end(), files.begin(), files.end());
    return !files.empty();
}

}  // namespace

void notice_handed_files() {
    if (!collect()) return;
    constexpr int flashes = 4;  // long enough for whoever has just come to this window
    raise_window();
    const bool single = waiting.size() == 1;
    const std::string what = single ? short_file_name(waiting.front()) : std::to_string(waiting.size()) + " FILES";
    flash_text(what + " WILL BE OPENED WHEN THIS IS DONE");
    status_timer = flashes * flash_ticks;
}

bool files_wait() { return !waiting.empty(); }

std::vector<std::string> take_waiting_files() { return std::exchange(waiting, {}); }

void leave_handed_files() {
    collect();
    for (const std::string& file : take_waiting_files())
        UA_log("[ WARNING ] : %s wasn't opened: the program ended before", file.c_str());
}

}  // namespace nubo
