#include "windows/pic_commands.h"

#include "base/log.h"
#include "paint/surfaces.h"
#include "paint/undo.h"
#include "state/options.h"
#include "view/view.h"
#include "workspace/notices.h"
#include <utility>

namespace nubo {
namespace {

void refuse_for_memory() {
    UA_log("[ ERROR ] : Not enough memory to restore the frame");
    flash_message(MESSAGE_NO_MEMORY);
}

/// The step may have changed the Frame's size.
void tell_step(const UndoReach& before) {
    const UndoReach now = undo_reach();
    if (now.done == before.done) return;
    view_clamp();
    flash_text("UNDO " + std::to_string(now.done) + " OF " + std::to_string(now.all));
}

/// Who has set a depth knows that it ends.
void tell_end_of_history() {
    if (opt_undo_depth != undo_depth_all) return;
    const int last = last_changed_frame();
    if (last < 0 || last == frame_index) return flash_text("NOTHING TO UNDO IN THIS FRAME");
    flash_text("NOTHING TO UNDO IN THIS FRAME. FRAME " + std::to_string(last) + " WAS CHANGED LAST");
}

}  // namespace

void clear_frame() {
    if (!save_undo(false)) return;
    clear_to_color(current_frame, static_cast<int>(mask_color));
    note_all_touched();
}

void restore_frame() {
    OwnedBitmap frame = original_frame != nullptr ? copy_bitmap(original_frame) : nullptr;
    if (!frame) return refuse_for_memory();
    if (frame->w != frame_w || frame->h != frame_h) {  // more than a step of the picture
        if (!change_frame(std::move(frame))) refuse_for_memory();
    } else if (take_step()) {
        adopt_frame(std::move(frame));  // needs no more memory at the same size
        count_step();
    }
}

void undo_by_user() {
    const UndoReach before = undo_reach();
    if (before.done == 0) return tell_end_of_history();
    if (undo_last()) return flash_text("WHAT CAME FROM ANOTHER FRAME IS THE CEL NOW");
    tell_step(before);
}

void redo_by_user() {
    const UndoReach before = undo_reach();
    if (redo_last()) return flash_text("THE CEL IS THE ONE BEFORE AGAIN");
    tell_step(before);
}

}  // namespace nubo
