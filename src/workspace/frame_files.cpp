#include "workspace/frame_files.h"

#include "base/color.h"
#include "base/log.h"
#include "paint/surfaces.h"
#include "paint/undo.h"
#include "platform/safe_file.h"
#include "state/frames.h"
#include "state/run.h"
#include "state/view.h"
#include "view/view.h"
#include "workspace/bmp_file.h"
#include "workspace/frame_moves.h"
#include "workspace/nail.h"
#include "workspace/notices.h"
#include "workspace/rescue.h"
#include <algorithm>
#include <array>
#include <cstdio>
#include <future>
#include <latch>
#include <utility>

namespace nubo {
namespace {

constexpr std::array<const char*, STEM_COUNT> stem_names{"current", "alternate", "backup",
                                                         "rescue",  "inserted",  "deleted"};
constexpr int none = -1;

/// The slot whose file is unreadable and couldn't be renamed aside: it must not be written before that has been done.
int slot_in_the_way = none;

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

/// Makes `picture` the Frame and, by a copy, what RESTORE returns to: both are replaced or none. A bitmap of the right
/// size is used again, since fresh memory costs more than the copy.
bool take_as_frame(OwnedBitmap picture) {
    if (!picture) return false;
    OwnedBitmap original;
    if (!same_size(original_frame, picture.get())) {
        original = copy_bitmap(picture.get());
        if (!original) return false;
    }
    if (!place_picture(std::move(picture))) return false;
    if (original)
        replace_bitmap(original_frame, std::move(original));
    else
        blit(current_frame, original_frame, 0, 0, 0, 0, frame_w, frame_h);
    return true;
}

/// False while what stands under the slot's name mustn't be written over.
bool may_write(int slot) {
    const std::string file = frame_file_name(STEM_CURRENT, slot);
    if (!row_is_whole()) return false;
    if (slot != slot_in_the_way) return true;
    if (file_exists(file) && !set_aside(file)) return false;
    slot_in_the_way = none;
    return true;
}

void frame_was_saved(int slot) {
    note_frame_saved();
    forget_rescue(slot);
}

}  // namespace

int count_slot_files(FrameStem stem) {
    int count = 0;
    for (int slot = 0; slot < frame_slots; ++slot) count += file_exists(frame_file_name(stem, slot)) ? 1 : 0;
    return count;
}

bool set_aside(const std::string& file) {
    const std::string ending = file.substr(file.rfind('.'));
    std::string aside = "unreadable" + ending;
    for (int i = 2; file_exists(aside); ++i) aside = "unreadable-" + std::to_string(i) + ending;
    if (!rename_file(file, aside)) return false;
    UA_log("[ INFO ] : The file %s was kept aside as %s", file.c_str(), aside.c_str());
    return true;
}

std::string frame_file_name(FrameStem stem, int slot) {
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), "%s.%03d", stem_names[static_cast<unsigned>(stem)], slot);
    return name.data();
}

bool place_picture(OwnedBitmap picture) {
    if (!picture || !adopt_frame(std::move(picture))) {
        UA_log("[ ERROR ] : There isn't memory enough for the frame");
        return false;
    }
    view_clamp();
    if (frame_w < view_w || frame_h < view_h) checker_index = backdrop_of(current_frame);
    reset_undo_slots();
    return true;
}

OwnedBitmap read_frame_file(const std::string& path) {
    if (file_exists(path)) return load_bmp_file(path);
    UA_log("[ ERROR ] : Tried to load non-existent file! Name = %s", path.c_str());
    return nullptr;
}

bool load_frame_file(const std::string& path) { return take_as_frame(read_frame_file(path)); }

bool place_blank_frame() { return take_as_frame(make_bitmap(view_w, view_h)); }

bool load_frame_or_blank(int slot) {
    return take_frame_or_blank(slot, read_frame_file(frame_file_name(STEM_CURRENT, slot)));
}

bool take_frame_or_blank(int slot, OwnedBitmap picture) {
    const std::string file = frame_file_name(STEM_CURRENT, slot);
    slot_in_the_way = none;
    if (take_as_frame(std::move(picture))) {
        note_frame_saved();
        return true;
    }
    const bool there = file_exists(file), aside = there && set_aside(file);
    if (there && !aside) slot_in_the_way = slot;
    if (!place_blank_frame()) return false;
    if (there) {
        mark_damage();
        flash_message(MESSAGE_FRAME_UNREADABLE);
    }
    if (aside) save_frame_to_slot(slot);  // without a file the slot would be a gap in the row of Frames
    return true;
}

bool save_frame_to_slot(int slot) {
    if (!may_write(slot) || !save_bmp_file(frame_file_name(STEM_CURRENT, slot), current_frame)) return false;
    frame_was_saved(slot);
    return true;
}

bool save_frame_and_nail(int slot, const std::function<void()>& meanwhile) {
    if (!may_write(slot)) return false;
    SafeFile frame(frame_file_name(STEM_CURRENT, slot));
    write_bmp(frame, current_frame);
    std::latch tile_made(1);
    // Where no thread is to be had this runs at `get`.
    std::future<bool> saved = std::async(std::launch::async | std::launch::deferred, [&] {
        const bool committed = frame.commit(SYNC_FOLDER_WITH_NEXT);
        tile_made.wait();
        return committed && save_nail();
    });
    make_nail_tile(current_frame, slot);
    tile_made.count_down();
    meanwhile();
    if (!saved.get()) return false;
    frame_was_saved(slot);
    return true;
}

}  // namespace nubo
