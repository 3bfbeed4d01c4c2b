#include "workspace/pack.h"

#include "base/log.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "workspace/bmp_files.h"
#include "workspace/folders.h"
#include "workspace/frame_memory.h"
#include "workspace/notices.h"
#include "workspace/state_file.h"
#include "workspace/workspace_files.h"
#include <algorithm>
#include <array>
#include <cstdio>

namespace nubo {
namespace {

/// As the status bar counts them.
std::string number_of(int slot) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%02d", slot);
    return text.data();
}

ArchiveHead head_in_memory() { return {workspace_title.data(), workspace_notes.data(), frame_count}; }

// ---- Missing Frames ------------------------------------------------------------------------------------------------

std::string told;

enum Replaced : int { REPLACED_NOT, REPLACED_WHOLE, REPLACED_BY_BLANK };

Replaced replace_frame(const FrameSlot& slot) {
    const std::string file = slot.frame();
    UA_log("[ ERROR ] : The file %s is gone", file.c_str());
    forget_unread(file);
    if (slot.number == frame_index) return store_frame(slot) ? REPLACED_WHOLE : REPLACED_NOT;
    if (slot.has_rescue()) return rename_file(slot.rescue(), file) ? REPLACED_WHOLE : REPLACED_NOT;
    const OwnedBitmap blank = make_bitmap(view_w, view_h);
    return blank && save_bmp_file(file, blank.get()) ? REPLACED_BY_BLANK : REPLACED_NOT;
}

void tell(const std::string& numbers, int count, const char* what_stands_there) {
    if (count == 0) return;
    told = count == 1 ? "FRAME" : "FRAMES";
    told.append(numbers).append(count == 1 ? " WAS" : " WERE").append(" MISSING, ").append(what_stands_there);
}

}  // namespace

CopyBuffer buffer_of(ProgressBox& box, int frames) {
    CopyBuffer buffer;
    buffer.told = [&box, frames](int component, double share) {
        constexpr double below_all = 99;
        box.tell(std::min((component + share) * 100 / frames, below_all));
    };
    return buffer;
}

std::string pack_workspace(SafeFile& archive, ProgressBox& box, FileSync sync) {
    if (!settle_job()) return see_log;
    CopyBuffer buffer = buffer_of(box, frame_count);
    if (!write_archive(archive, workspace_folder(), head_in_memory(), buffer))
        return buffer.component < frame_count
                   ? std::string("FRAME ").append(number_of(buffer.component)).append(" CAN'T BE READ")
                   : see_log;
    return archive.commit(sync) ? "" : see_log;
}

bool replace_missing_frames() {
    std::array<std::string, 3> numbers;
    std::array<int, 3> counts{};
    for (int number = 0; number < frame_count; ++number) {
        const FrameSlot slot = slot_of_row(number);
        if (slot.has_frame()) continue;
        const Replaced how = replace_frame(slot);
        numbers[how].append(" ").append(number_of(number));
        ++counts[how];
    }
    told.clear();
    tell(numbers[REPLACED_WHOLE], counts[REPLACED_WHOLE], "WRITTEN ANEW");
    tell(numbers[REPLACED_BY_BLANK], counts[REPLACED_BY_BLANK], "NOW BLANK");  // the worse of the two
    return counts[REPLACED_BY_BLANK] == 0;
}

const std::string& missing_frames_told() { return told; }

}  // namespace nubo
