#include "workspace/workspace.h"

#include "base/log.h"
#include "platform/safe_file.h"
#include "state/frames.h"
#include "workspace/folders.h"
#include "workspace/frame_files.h"

namespace nubo {

bool open_workspace() {
    set_workspace_defaults();
    const bool there = enter_workspace() && file_exists(frame_file_name(STEM_CURRENT, frame_index));
    const bool opened = there ? load_frame_or_blank(frame_index) : place_blank_frame();
    enter_program_dir();
    return opened;
}

void close_workspace() {
    if (enter_workspace()) save_frame_to_slot(frame_index);
    enter_program_dir();
}

}  // namespace nubo
