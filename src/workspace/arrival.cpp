#include "workspace/arrival.h"

#include "base/bitmap.h"
#include "platform/input_file.h"
#include "platform/safe_file.h"
#include "state/cel.h"
#include "state/colors.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "state/stroke.h"
#include "workspace/byte_fields.h"
#include "workspace/folders.h"
#include "workspace/frame_slot.h"
#include "workspace/previous.h"
#include "workspace/rescue_folder.h"
#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <sstream>

namespace nubo {
namespace {

std::string note_file() { return workspace_folder().file("arrived.sum"); }

// ---- Sums ----------------------------------------------------------------------------------------------------------

/// A sum of 64 bits. No defence against bytes that were made to meet, which nobody gains by.
class Sum {
public:
    void add(std::uint64_t word) {
        constexpr std::uint64_t odd = 0x9e3779b97f4a7c15;
        value_ = (value_ ^ word) * odd + 1;  // zeros count too
        value_ ^= value_ >> 29;
    }
    void add(const std::uint8_t* bytes, std::size_t size) {
        for (; size >= sizeof(std::uint64_t); bytes += sizeof(std::uint64_t), size -= sizeof(std::uint64_t)) {
            std::uint64_t word = 0;
            std::memcpy(&word, bytes, sizeof word);
            add(word);
        }
        for (; size > 0; --size) add(*bytes++);
    }
    std::uint64_t value() const { return value_; }

private:
    std::uint64_t value_ = 0xcbf29ce484222325;
};

std::uint64_t sum_of_picture(const BITMAP* picture, int x0, int y0, int w, int h) {
    Sum sum;
    sum.add(static_cast<std::uint64_t>(w));
    sum.add(static_cast<std::uint64_t>(h));
    for (int y = y0; y < y0 + h; ++y)
        sum.add(reinterpret_cast<const std::uint8_t*>(picture->line[y]) + static_cast<std::size_t>(x0) * sizeof(Color),
                static_cast<std::size_t>(w) * sizeof(Color));
    return sum.value();
}

/// 0 for a file that can't be read, which no other sum is likely to be.
std::uint64_t sum_of_file(const std::string& path) {
    const InputFile file(path);
    std::array<std::uint8_t, 32 * 1024> block;  // on the stack: NEW can't be refused here any more
    Sum sum;
    for (std::size_t at = 0; at < file.size(); at += block.size()) {
        const std::size_t count = std::min(block.size(), file.size() - at);
        if (!file.read_at(at, block.data(), count)) return 0;
        sum.add(block.data(), count);
    }
    return file.is_open() ? sum.value() : 0;
}

std::uint64_t sum_of_colors_and_texts() {
    FieldWriter fields;
    for (const Color color : color_slots) fields.color(color, "");
    for (const Color color : favorites) fields.color(color, "");
    for (const Color color : {brush_color, mask_color, spectrum_start, spectrum_end}) fields.color(color, "");
    fields.text(workspace_title, "");
    fields.text(workspace_notes, "");
    fields.text(text_tool_text, "");
    Sum sum;
    sum.add(fields.bytes.data(), fields.bytes.size());
    return sum.value();
}

/// The quick ones first, so that a change is mostly seen without reading the Frames.
enum SumIndex : int { SUM_STATE, SUM_CEL, SUM_TIP, SUM_FRAMES };

std::uint64_t sum_of(int index) {
    switch (index) {
    case SUM_STATE: return sum_of_colors_and_texts();
    case SUM_CEL: return sum_of_picture(cel_mask, 0, 0, cel_mask->w, cel_mask->h);
    case SUM_TIP: return sum_of_picture(tip_sheet, 0, custom_tip_y, custom_tip_w, custom_tip_h);
    default: return sum_of_file(slot_of_row(index - SUM_FRAMES).frame());
    }
}

// ---- The source ----------------------------------------------------------------------------------------------------

bool is_same(const std::string& path, const ArrivalSource& source) {
    const ArrivalSource there = source_of_archive(path);
    return file_exists(path) && there.size == source.size && there.time == source.time;
}

bool is_still_there(const ArrivalSource& source) {
    if (source.path.empty() || is_same(source.path, source)) return true;
    const auto kept = list_previous_workspaces();
    return std::any_of(kept.begin(), kept.end(),
                       [&](const PreviousWorkspace& one) { return is_same(one.path, source); });
}

}  // namespace

ArrivalSource source_of_archive(const std::string& path) {
    std::error_code away;
    return {std::filesystem::absolute(path, away), std::filesystem::file_size(path, away), time_of_file(path)};
}

void note_arrival(const ArrivalSource& source) {
    std::ostringstream text;
    text << source.size << ' ' << source.time.first << ' ' << source.time.second << ' ' << frame_count;
    for (int i = 0; i < SUM_FRAMES + frame_count; ++i) text << ' ' << sum_of(i);
    text << '\n' << source.path << '\n';
    const std::string bytes = text.str();
    write_file(note_file(), bytes.data(), bytes.size());
}

bool is_as_it_came() {
    constexpr std::size_t longest = 64 * 1024;
    std::vector<std::uint8_t> bytes;
    if (!file_exists(note_file()) || !read_file(note_file(), longest, bytes)) return false;
    std::istringstream text(std::string(bytes.begin(), bytes.end()));
    ArrivalSource source;
    int frames = 0;
    if (!(text >> source.size >> source.time.first >> source.time.second >> frames) || frames != frame_count)
        return false;
    std::uint64_t sum = 0;
    for (int i = 0; i < SUM_FRAMES + frame_count; ++i)
        if (!(text >> sum) || sum != sum_of(i) || sum == 0) return false;
    text.ignore(1);
    return std::getline(text, source.path) && is_still_there(source);
}

}  // namespace nubo
