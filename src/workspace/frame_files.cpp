#include "workspace/frame_files.h"

#include "base/color.h"
#include "base/log.h"
#include "paint/surfaces.h"
#include "paint/undo.h"
#include "platform/safe_file.h"
#include "state/flow.h"
#include "state/frames.h"
#include "state/run.h"
#include "state/view.h"
#include "workspace/bmp_file.h"
#include "workspace/frame_moves.h"
#include "workspace/notices.h"
#include "workspace/rescue.h"
#include <algorithm>
#include <array>
#include <cstdio>
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

/// Makes `picture` the Frame and, by a copy, what RESTORE returns to. The copy is made first: either both are replaced
/// or none.
bool take_as_frame(OwnedBitmap picture) {
    OwnedBitmap original = copy_bitmap(picture.get());
    if (!original || !place_picture(std::move(picture))) return false;
    replace_bitmap(original_frame, std::move(original));
    return true;
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

bool load_frame_file(const std::string& path) {
    if (!file_exists(path)) {
        UA_log("[ ERROR ] : Tried to load non-existent file! Name = %s", path.c_str());
        return false;
    }
    OwnedBitmap picture = load_bmp_file(path);
    return picture && take_as_frame(std::move(picture));
}

bool place_blank_frame() { return take_as_frame(make_bitmap(view_w, view_h)); }

bool load_frame_or_blank(int slot) {
    const std::string file = frame_file_name(STEM_CURRENT, slot);
    slot_in_the_way = none;
    if (load_frame_file(file)) {
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
    const std::string file = frame_file_name(STEM_CURRENT, slot);
    if (!row_is_whole()) return false;
    if (slot == slot_in_the_way) {
        if (file_exists(file) && !set_aside(file)) return false;
        slot_in_the_way = none;
    }
    if (!save_bmp_file(file, current_frame)) return false;
    note_frame_saved();
    forget_rescue(slot);
    return true;
}

}  // namespace nubo
