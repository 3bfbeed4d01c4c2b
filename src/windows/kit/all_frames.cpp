#include "windows/kit/all_frames.h"

#include "gui/progress_box.h"
#include "gui/waiting.h"
#include "paint/surfaces.h"
#include "paint/undo.h"
#include "state/frames.h"
#include "state/run.h"
#include "windows/kit/run_window.h"
#include "workspace/bmp_files.h"
#include "workspace/folders.h"
#include "workspace/frame_store.h"

namespace nubo {
namespace {

/// Calls `visit(slot)` for each Frame until it says false. False then, and when the user or the program ends it.
template <typename Visit> bool for_each_frame(Label title, Visit visit) {
    constexpr int all = 100;  // percent
    const ClearedScreen cleared;
    ProgressBox box(title);
    Escape escape;
    for (int slot = 0; slot < frame_count; ++slot) {
        box.tell(all * slot / frame_count);
        if (escape.asked() || exit_requested != 0 || !visit(slot)) return false;
    }
    return true;
}

/// Null where it can't be read. `read` owns it if that isn't the Frame in memory.
BITMAP* picture_of(int slot, OwnedBitmap& read) {
    if (slot == frame_index) return current_frame;
    read = load_bmp_file(slot_of_row(slot).frame());
    return read.get();
}

}  // namespace

bool look_at_all_frames(Label title, const std::function<void(BITMAP* picture)>& look) {
    return for_each_frame(title, [&](int slot) {
        OwnedBitmap read;
        if (BITMAP* const picture = picture_of(slot, read)) look(picture);
        return true;
    });
}

FramesChanged change_all_frames(Label title, const FrameChange& change) {
    const int home = frame_index;
    FramesChanged changed;
    changed.is_whole = for_each_frame(title, [&](int slot) {
        OwnedBitmap read;
        BITMAP* const picture = picture_of(slot, read);
        if (picture == nullptr || !change.is_needed(picture)) return true;
        if (slot != frame_index && !fetch_frame(frame_index, slot)) return false;
        if (!save_undo(false)) return false;
        change.make(current_frame);
        note_all_touched();
        ++changed.count;
        return true;
    });
    if (frame_index != home) fetch_frame(frame_index, home);
    return changed;
}

}  // namespace nubo
