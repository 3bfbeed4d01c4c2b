// Wiping the Workspace.
#include "base/log.h"
#include "paint/undo.h"
#include "platform/safe_file.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "workspace/defaults.h"
#include "workspace/folders.h"
#include "workspace/frame_files.h"
#include "workspace/frame_memory.h"
#include "workspace/frame_store.h"
#include "workspace/notices.h"
#include "workspace/rescue.h"
#include "workspace/side_files.h"
#include "workspace/state_file.h"
#include "workspace/workspace_files.h"
#include <cstring>

namespace nubo {
namespace {

template <std::size_t N> void set_text(std::array<char, N>& buffer, const char* text) {
    buffer.fill('\0');
    std::strncpy(buffer.data(), text, N - 1);
}

void remove_frame_files() {
    for (const FrameStem stem : {STEM_BACKUP, STEM_RESCUE, STEM_CURRENT})
        for (int slot = 0; slot < frame_slots; ++slot) {
            const std::string file = frame_path(workspace_folder(), stem, slot);
            if (file_exists(file)) remove_file(file);
        }
}

}  // namespace

bool clear_workspace() {
    handlers_locked = 1;
    settle_rescue();
    OwnedBitmap blank = make_bitmap(view_w, view_h);  // before anything goes
    if (!blank || !reach_workspace()) {
        UA_log("[ ERROR ] : WORKSPACE directory unavailable. Aborting clear operation!");
        flash_message(MESSAGE_SAVE_FAILED);
        handlers_locked = 0;
        return false;
    }
    remove_frame_files();
    renumber_waiting_steps([](int) { return -1; });
    place_picture(std::move(blank));
    blank_side_content();
    set_workspace_defaults();
    state_format = 13;
    bool saved = save_frame_to_slot(workspace_folder(), 0);
    saved = save_workspace_state(state_file, false) && saved;
    if (!saved) flash_message(MESSAGE_SAVE_FAILED);
    // Behind the writing: on disk the old words stay until the next one.
    set_text(workspace_title, "UNNAMED WORKSPACE");
    set_text(workspace_notes, "...");
    set_text(text_tool_text, "");
    browse_in(program_folder());
    handlers_locked = 0;
    return saved;
}

}  // namespace nubo
