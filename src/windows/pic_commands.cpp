#include "windows/pic_commands.h"

#include "base/log.h"
#include "paint/surfaces.h"
#include "paint/undo.h"
#include <utility>

namespace nubo {
namespace {

bool take_original() {
    OwnedBitmap frame = original_frame != nullptr ? copy_bitmap(original_frame) : nullptr;
    const bool taken = frame && adopt_frame(std::move(frame));
    if (!taken) UA_log("[ ERROR ] : Not enough memory to restore the frame");
    return taken;
}

}  // namespace

void clear_frame() {
    if (save_undo(false)) clear_to_color(current_frame, static_cast<int>(mask_color));
}

void restore_frame() {
    if (take_original()) reset_undo_slots();
}

void restore_frame_by_key() {
    if (!save_undo(false)) return;
    const int width = frame_w, height = frame_h;
    // A state of another size can't be brought back by undo.
    if (take_original() && (frame_w != width || frame_h != height)) reset_undo_slots();
}

}  // namespace nubo
