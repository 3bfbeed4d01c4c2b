#include "editor/stop.h"

#include "base/log.h"
#include "framework/outline_font.h"
#include "platform/display_loss.h"
#include "platform/file_inbox.h"
#include "state/run.h"
#include "windows/kit/handed_files.h"
#include "windows/kit/placement.h"
#include "windows/text_window.h"
#include "windows/unsaved_box.h"
#include "workspace/frame_memory.h"
#include "workspace/unsaved_work.h"
#include "workspace/user_settings.h"
#include "workspace/workspace.h"

namespace nubo {
namespace {

constexpr int could_not_save = 5;

void hold_handlers(bool held) {
    handlers_locked = held ? 1 : 0;
    gui_enabled = held ? 0 : 1;
    editor_running = held ? 0 : 1;
}

WorkspaceEnd write_work() {
    UA_log("[ END ] : User has opted to exit the program.");
    UA_log("[ END ] : Switching off handlers and locking processes.");
    hold_handlers(true);
    end_frame_preview();
    UA_log("[ END ] : Writing workspace to file.");
    return close_workspace();
}

int close_the_rest(WorkspaceEnd workspace) {
    UA_log("[ END ] : Writing user settings to file.");
    const bool settings_kept = save_user_settings();
    UA_log("[ END ] : Closing font renderer hooks.");
    font_system_exit();
    leave_handed_files();
    UA_log("[ END ] : Closing log.");
    UA_log_close();
    const int code = workspace == WORKSPACE_KEPT && settings_kept ? 0 : could_not_save;
    work_is_saved(code);
    close_file_inbox();
    return code;
}

/// A sudden end asks nobody.
int save_and_close() {
    end_placement();
    keep_open_text();
    return close_the_rest(write_work());
}

bool put_aside() {
    hold_handlers(true);
    return keep_unsaved_work();
}

}  // namespace

std::optional<int> shutdown_program() {
    for (;;) {
        const WorkspaceEnd workspace = write_work();
        if (workspace != WORKSPACE_LOST || exit_requested != EXIT_BY_HAND) return close_the_rest(workspace);
        exit_requested = EXIT_NONE;
        hold_handlers(false);
        switch (unsaved_box()) {
        case UNSAVED_AGAIN: break;
        case UNSAVED_GO_ON: return std::nullopt;
        case UNSAVED_LOST: return close_the_rest(workspace);
        }
        if (exit_requested == EXIT_NONE) exit_requested = EXIT_BY_HAND;
    }
}

void save_work_at_sudden_end() { save_at_sudden_end({save_and_close, put_aside}); }

}  // namespace nubo
