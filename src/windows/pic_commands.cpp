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
    if (!save_undo(false)) return;
    const int width = frame_w, height = frame_h;
    if (!take_original())
        drop_undo();
    else if (frame_w != width || frame_h != height)  // a state of another size can't be brought back by undo
        reset_undo_slots();
}

}  // namespace nubo
