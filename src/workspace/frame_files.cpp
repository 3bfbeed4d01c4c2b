#include "workspace/frame_files.h"

#include "base/log.h"
#include "platform/safe_file.h"
#include "state/frames.h"
#include "state/run.h"
#include "state/view.h"
#include "workspace/frame_memory.h"
#include "workspace/nail.h"
#include "workspace/notices.h"
#include "workspace/rename_job.h"
#include "workspace/rescue.h"
#include "workspace/workspace_files.h"
#include <future>
#include <utility>

namespace nubo {
namespace {

void frame_was_saved(const Folder& folder, int slot) {
    note_frame_saved();
    forget_rescue(folder, slot);
}

}  // namespace

FramePicture read_frame_file(const Folder& folder, int slot) {
    const std::string file = frame_path(folder, STEM_CURRENT, slot);
    FramePicture read;
    if (file_exists(file))
        read.bitmap = load_bmp_file(file, read.fault);
    else
        UA_log("[ ERROR ] : Tried to load non-existent file! Name = %s", file.c_str());
    return read;
}

bool take_frame(const Folder& folder, int slot, FramePicture read) {
    const std::string file = frame_path(folder, STEM_CURRENT, slot);
    if (read.fault == PICTURE_OUT_OF_REACH) return false;
    if (read.fault == PICTURE_FINE) {
        if (!place_frame(std::move(read.bitmap))) return false;
        forget_unread(file);
        note_frame_saved();
        return true;
    }
    OwnedBitmap blank = make_bitmap(view_w, view_h);
    const bool malformed = read.fault == PICTURE_MALFORMED;
    if (!blank || (malformed && !set_aside(file)) || !place_frame(std::move(blank))) return false;
    mark_damage();
    flash_message(malformed ? MESSAGE_FRAME_UNREADABLE : MESSAGE_FRAME_MISSING);
    save_frame_to_slot(folder, slot);  // without a file the slot would be a gap in the row of Frames
    return true;
}

bool load_frame(const Folder& folder, int slot) { return take_frame(folder, slot, read_frame_file(folder, slot)); }

bool load_frame_or_another(const Folder& folder, int slot) {
    if (slot != frame_index) show_slot(slot);
    if (load_frame(folder, slot)) return true;
    keep_unread(frame_path(folder, STEM_CURRENT, slot));
    flash_message(MESSAGE_FRAME_OUT_OF_REACH);
    for (int other = 0; other < frame_slots; ++other)
        if (file_exists(frame_path(folder, STEM_CURRENT, other)) && load_frame(folder, other))
            return show_slot(other), true;
    return place_blank_frame();
}

bool save_frame_to_slot(const Folder& folder, int slot) {
    if (!row_is_whole(folder) || !save_picture(frame_path(folder, STEM_CURRENT, slot), current_frame)) return false;
    frame_was_saved(folder, slot);
    return true;
}

bool save_frame_and_nail(const Folder& folder, int slot, const std::function<void()>& meanwhile) {
    const std::string frame_file = frame_path(folder, STEM_CURRENT, slot), nail_path = folder.file(nail_file);
    if (is_kept_unread(frame_file)) {  // its tile still shows what the file holds
        meanwhile();
        return save_frame_to_slot(folder, slot);
    }
    if (!row_is_whole(folder) || !make_way(nail_path)) return false;
    // Where no thread is to be had the syncing runs at `get`.
    constexpr auto apart = std::launch::async | std::launch::deferred;
    SafeFile frame(frame_file), nail(nail_path);
    write_bmp(frame, current_frame);
    std::future<void> frame_synced = std::async(apart, [&frame] { frame.sync(); });
    make_nail_tile(current_frame, slot);
    write_bmp(nail, nail_sheet);
    std::future<void> nail_synced = std::async(apart, [&nail] { nail.sync(); });
    meanwhile();
    frame_synced.get();
    nail_synced.get();
    if (!frame.commit(SYNC_NAME_WITH_NEXT) || !nail.commit()) return false;
    frame_was_saved(folder, slot);
    return true;
}

}  // namespace nubo
