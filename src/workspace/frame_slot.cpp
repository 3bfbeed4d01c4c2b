#include "workspace/frame_slot.h"

#include "platform/safe_file.h"
#include "state/frames.h"
#include <algorithm>
#include <cstdio>

namespace nubo {
namespace {

constexpr std::array<const char*, STEM_COUNT> stem_names{"current", "alternate", "backup",  "rescue", "inserted",
                                                         "deleted", "loaded",    "history", "dropped"};

}  // namespace

std::string frame_file_name(FrameStem stem, int slot) {
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), "%s.%03d", stem_names[static_cast<unsigned>(stem)], slot);
    return name.data();
}

std::string side_file_name(FrameStem stem, const char* ending) {
    return std::string(stem_names[static_cast<unsigned>(stem)]) + "." + ending;
}

bool is_stem(std::string_view name) {
    return std::find(stem_names.begin(), stem_names.end(), name) != stem_names.end();
}

bool FrameSlot::has_frame() const { return file_exists(frame()); }

bool FrameSlot::has_rescue() const { return file_exists(rescue()); }

int count_frames_in(const Folder& folder) {
    int count = 0;
    for (int slot = 0; slot < frame_slots; ++slot) count += FrameSlot{folder, slot}.has_frame() ? 1 : 0;
    return count;
}

}  // namespace nubo
