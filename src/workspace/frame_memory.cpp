#include "workspace/frame_memory.h"

#include "base/color.h"
#include "base/log.h"
#include "paint/surfaces.h"
#include "paint/undo.h"
#include "platform/safe_file.h"
#include "state/frames.h"
#include "state/run.h"
#include "state/view.h"
#include "view/view.h"
#include "workspace/bmp_files.h"
#include "workspace/frame_history.h"
#include "workspace/ghosts.h"
#include "workspace/nail.h"
#include "workspace/notices.h"
#include "workspace/rename_job.h"
#include "workspace/rescue.h"
#include "workspace/workspace_files.h"
#include <algorithm>
#include <future>
#include <utility>

namespace nubo {
namespace {

// ---- A picture becomes the Frame in memory -------------------------------------------------------------------------

/// The mean lightness of all pixels picks one of the three backdrops. A pixel's lightness in HLS is half the sum of its
/// largest and its smallest component.
int backdrop_of(BITMAP* frame) {
    constexpr unsigned long long levels_per_backdrop = 86;
    unsigned long long doubled = 0;
    for (int y = 0; y < frame->h; ++y) {
        const Color* const row = pixels_at(frame, 0, y);
        for (int x = 0; x < frame->w; ++x) {
            const auto [low, high] = std::minmax({red_of(row[x]), green_of(row[x]), blue_of(row[x])});
            doubled += static_cast<unsigned>(low + high);
        }
    }
    const auto pixels = static_cast<unsigned long long>(frame->w) * static_cast<unsigned long long>(frame->h);
    return static_cast<int>(doubled / (2 * pixels) / levels_per_backdrop);
}

bool same_size(const BITMAP* a, const BITMAP* b) { return a != nullptr && a->w == b->w && a->h == b->h; }

/// Of the same Frame, or of another one.
enum Placing : int { PLACE_CHANGED, PLACE_ANOTHER };

/// With what belongs to it.
bool place_picture(OwnedBitmap picture, Placing how) {
    const bool placed =
        picture && (how == PLACE_CHANGED ? change_frame(std::move(picture)) : adopt_frame(std::move(picture)));
    if (!placed) {
        UA_log("[ ERROR ] : There isn't memory enough for the frame");
        return false;
    }
    view_clamp();
    if (frame_w < view_w || frame_h < view_h) checker_index = backdrop_of(current_frame);
    if (how == PLACE_ANOTHER) reset_undo_slots();
    return true;
}

/// The same, and `picture` is what RESTORE returns to. Both are replaced or none. A bitmap of the right
/// size is used again, since fresh memory costs more than the copy.
bool place_frame(OwnedBitmap picture) {
    if (!picture) return false;
    OwnedBitmap original;
    if (!same_size(original_frame, picture.get())) {
        original = copy_bitmap(picture.get());
        if (!original) return false;
    }
    if (!place_picture(std::move(picture), PLACE_ANOTHER)) return false;
    if (original)
        replace_bitmap(original_frame, std::move(original));
    else
        blit(current_frame, original_frame, 0, 0, 0, 0, frame_w, frame_h);
    return true;
}

void show_slot(int number) {
    frame_index = number;
    const FrameView& view = frame_view[at(number)];
    pan_x = view.pan_x;
    pan_y = view.pan_y;
    zoom = std::max(view.zoom, zoom_min);
}

// ---- From the file of a slot ---------------------------------------------------------------------------------------

bool take_frame(const FrameSlot& slot, FramePicture read) {
    if (read.fault == PICTURE_OUT_OF_REACH) return false;
    if (read.fault == PICTURE_FINE) {
        if (!place_frame(std::move(read.bitmap))) return false;
        forget_unread(slot.frame());
        note_frame_saved();
        return true;
    }
    OwnedBitmap blank = make_bitmap(view_w, view_h);
    const bool malformed = read.fault == PICTURE_MALFORMED;
    if (!blank || (malformed && !set_aside(slot.frame())) || !place_frame(std::move(blank))) return false;
    mark_damage();
    flash_message(malformed ? MESSAGE_FRAME_UNREADABLE : MESSAGE_FRAME_MISSING);
    store_frame(slot);  // without a file the slot would be a gap in the row of Frames
    return true;
}

bool load_frame(const FrameSlot& slot) { return take_frame(slot, read_frame_file(slot)); }

// ---- To the file of a slot -----------------------------------------------------------------------------------------

void frame_was_stored(const FrameSlot& slot) {
    note_frame_saved();
    forget_rescue(slot);
    forget_ghost(slot.number);
}

bool store_frame_and_nail(const FrameSlot& slot, const std::function<void()>& meanwhile) {
    const std::string nail_path = slot.folder.file(nail_file);
    if (is_kept_unread(slot.frame())) {  // its tile still shows what the file holds
        meanwhile();
        return store_frame(slot);
    }
    if (!row_is_whole(slot.folder) || !make_way(nail_path)) return false;
    // Where no thread is to be had the syncing runs at `get`.
    constexpr auto apart = std::launch::async | std::launch::deferred;
    SafeFile frame(slot.frame()), nail(nail_path);
    write_bmp(frame, current_frame);
    HistoryWrite history = history_to_write(slot, print_of_saved_frame());
    std::future<void> history_written = std::async(apart, [&history] { history.carry_out(); });
    std::future<void> frame_synced = std::async(apart, [&frame] { frame.sync(); });
    make_nail_tile(current_frame, slot.number);
    write_bmp(nail, nail_sheet);
    std::future<void> nail_synced = std::async(apart, [&nail] { nail.sync(); });
    meanwhile();
    frame_synced.get();
    nail_synced.get();
    history_written.get();
    take_written(history);
    if (!frame.commit(SYNC_NAME_WITH_NEXT) || !nail.commit()) return false;
    frame_was_stored(slot);
    keep_histories_in_bounds(slot);
    return true;
}

}  // namespace

FramePicture read_frame_file(const FrameSlot& slot) {
    const std::string file = slot.frame();
    FramePicture read;
    if (file_exists(file))
        read.bitmap = load_bmp_file(file, read.fault);
    else
        UA_log("[ ERROR ] : Tried to load non-existent file! Name = %s", file.c_str());
    return read;
}

bool bring_in(const FrameSlot& slot, FramePicture read, const std::function<void()>& once_placed) {
    if (!take_frame(slot, std::move(read))) return false;
    if (once_placed) once_placed();
    show_slot(slot.number);
    open_history(slot);
    return true;
}

bool open_frame(const FrameSlot& slot) {
    if (slot.number != frame_index) show_slot(slot.number);
    if (load_frame(slot)) return open_history(slot), true;
    keep_unread(slot.frame());
    flash_message(MESSAGE_FRAME_OUT_OF_REACH);
    for (int number = 0; number < frame_slots; ++number)
        if (const FrameSlot other{slot.folder, number}; other.has_frame() && load_frame(other))
            return show_slot(number), open_history(other), true;
    return open_blank_frame();
}

bool open_blank_frame() {
    if (!place_frame(make_bitmap(view_w, view_h))) return false;
    begin_history();
    note_frame_saved();
    return true;
}

bool take_as_changed(OwnedBitmap picture) {
    take_saved_print();  // of what the file holds
    return place_picture(std::move(picture), PLACE_CHANGED);
}

bool take_as_saved(OwnedBitmap picture) {
    if (!place_picture(std::move(picture), PLACE_ANOTHER)) return false;
    begin_history();
    note_frame_saved();
    return true;
}

bool take_as_rescued(const FrameSlot& slot, OwnedBitmap picture) {
    if (!has_history_of(slot, picture.get())) return take_as_changed(std::move(picture));
    take_saved_print();
    if (!place_picture(std::move(picture), PLACE_ANOTHER)) return false;
    open_history(slot);
    return true;
}

bool store_frame(const FrameSlot& slot) {
    if (!row_is_whole(slot.folder)) return false;
    HistoryWrite history = history_to_write(slot, print_of_saved_frame());
    history.carry_out();
    take_written(history);
    if (!save_picture(slot.frame(), current_frame)) return false;
    frame_was_stored(slot);
    keep_histories_in_bounds(slot);
    return true;
}

bool leave_frame(const FrameSlot& slot, const std::function<void()>& meanwhile) {
    if (!rescue_cut_frame(slot) || !store_frame_and_nail(slot, meanwhile)) return false;
    renew_cut_rescue(slot);
    keep_view(slot.number);
    return true;
}

void give_up_slot(const FrameSlot& slot) { forget_rescue(slot); }

void keep_view(int number) { frame_view[at(number)] = {pan_x, pan_y, zoom}; }

void end_frame_preview() {
    if (frame_behind_preview == nullptr) return;
    adopt_frame(OwnedBitmap(std::exchange(frame_behind_preview, nullptr)));
}

}  // namespace nubo
