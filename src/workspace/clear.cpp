// Wiping the Workspace: a blank one takes the place of the one that stands.
#include "base/log.h"
#include "paint/undo.h"
#include "platform/safe_file.h"
#include "state/browse.h"
#include "state/cel.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "state/stroke.h"
#include "workspace/defaults.h"
#include "workspace/folders.h"
#include "workspace/frame_memory.h"
#include "workspace/frame_store.h"
#include "workspace/nail.h"
#include "workspace/notices.h"
#include "workspace/replace.h"
#include "workspace/rescue.h"
#include "workspace/side_files.h"
#include "workspace/state_fields.h"
#include "workspace/state_file.h"
#include <cstring>

namespace nubo {
namespace {

constexpr const char* nothing_cleared = "NOTHING CLEARED: ";

struct BlankWorkspace {
    OwnedBitmap frame, cel, nail, tip;
    std::vector<std::uint8_t> state{};
};

template <std::size_t N> void set_text(std::array<char, N>& buffer, const char* text) {
    buffer.fill('\0');
    std::strncpy(buffer.data(), text, N - 1);
}

/// The state that it will have, and memory as it was. Behind a clear the file browser opens in the program's folder.
std::vector<std::uint8_t> blank_state() {
    const std::vector<std::uint8_t> old = pack_state();
    handlers_locked = 1;
    set_workspace_defaults();
    browse_in(program_folder());
    if (image_dir[0] != '\0') image_dir = browse_dir;
    std::vector<std::uint8_t> bytes = pack_state();
    unpack_state(old, state_file);
    handlers_locked = 0;
    return bytes;
}

bool stage(const BlankWorkspace& blank) {
    const std::string state = workspace_folder().file(side_file_name(STEM_LOADED, "spa"));
    SafeFile file(state);
    file.write(blank.state.data(), blank.state.size());
    return stage_picture("000", blank.frame.get()) && stage_picture("cel", blank.cel.get()) &&
           stage_picture("nal", blank.nail.get()) && stage_picture("tip", blank.tip.get()) &&
           file.commit(SYNC_WITH_DISK);
}

/// The state on disk has the old words, until it is written the next time.
void take_into_memory(const BlankWorkspace& blank) {
    const auto kept_dir = image_dir;
    renumber_changed_frame([](int) { return -1; });
    unpack_state(blank.state, state_file);
    image_dir = kept_dir;
    blank_side_content();
    set_text(workspace_title, "UNNAMED WORKSPACE");
    set_text(workspace_notes, "...");
    set_text(text_tool_text, "");
    handlers_locked = 0;
}

std::string replace_by(BlankWorkspace& blank) {
    const auto adopt = [&] {
        handlers_locked = 1;
        const bool placed = take_as_saved(std::move(blank.frame));
        if (!placed) handlers_locked = 0;
        return placed;
    };
    const auto stage_it = [&](ProgressBox&) {
        blank.state = blank_state();
        return stage(blank);
    };
    return replace_workspace(
        {.title = LABEL_SAVING_WORKSPACE, .stage = stage_it, .adopt = adopt, .take = [&] { take_into_memory(blank); }});
}

}  // namespace

bool clear_workspace() {
    settle_rescue();
    if (!reach_workspace()) {
        UA_log("[ ERROR ] : WORKSPACE directory unavailable. Aborting clear operation!");
        flash_message(MESSAGE_SAVE_FAILED);
        return false;
    }
    BlankWorkspace blank{make_bitmap(view_w, view_h), make_bitmap(cel_mask->w, cel_mask->h),
                         make_bitmap(nail_sheet->w, nail_sheet->h), make_bitmap(custom_tip_w, custom_tip_h)};
    const bool has_memory = blank.frame && blank.cel && blank.nail && blank.tip;
    const std::string fault = has_memory ? replace_by(blank) : "NOT ENOUGH MEMORY";
    if (!fault.empty()) flash_text(nothing_cleared + fault);
    browse_in(program_folder());
    return fault.empty();
}

}  // namespace nubo
