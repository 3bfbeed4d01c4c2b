#include "windows/pic_commands.h"

#include "base/log.h"
#include "paint/surfaces.h"
#include "paint/undo.h"
#include "workspace/notices.h"
#include <utility>

namespace nubo {
namespace {

bool take_original() {
    OwnedBitmap frame = original_frame != nullptr ? copy_bitmap(original_frame) : nullptr;
    const bool taken = frame && adopt_frame(std::move(frame));
    if (taken) return true;
    UA_log("[ ERROR ] : Not enough memory to restore the frame");
    flash_message(MESSAGE_NO_MEMORY);
    return false;
}

}  // namespace

void clear_frame() {
    if (save_undo(false)) clear_to_color(current_frame, static_cast<int>(mask_color));
}

void restore_frame() {
    if (!take_step()) return;
    if (take_original() && step_is_of_frame()) return count_step();
    if (!step_is_of_frame()) reset_undo_slots();  // a state of another size can't be brought back by undo
    drop_step();
}

void undo_by_user() {
    if (undo_last()) flash_text("WHAT CAME FROM ANOTHER FRAME IS THE CEL NOW");
}

void redo_by_user() {
    if (redo_last()) flash_text("THE CEL IS THE ONE BEFORE AGAIN");
}

}  // namespace nubo
