#include "workspace/frame_history.h"

#include "base/log.h"
#include "base/memory.h"
#include "platform/append_file.h"
#include "platform/input_file.h"
#include "platform/safe_file.h"
#include "state/frames.h"
#include "workspace/folders.h"
#include "workspace/notices.h"
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <random>
#include <utility>

namespace nubo {
namespace {

/// What the file has of the history in memory.
struct InFile {
    std::size_t end = 0;  // its bytes up to the last place; 0 without a file
    std::uint64_t sum = 0;
    HistoryPlace place;
    std::uint64_t run = 0;  // the last run that it tells of
    bool off = false;       // it couldn't be written
};
InFile in_file;

std::uint64_t this_run = 0;
std::size_t bytes_on_disk_max = histories_max;

std::uint64_t random_number() {
    std::random_device device;
    return std::uint64_t{device()} << 32 | device();
}

std::optional<std::vector<std::uint8_t>> bytes_of(const std::string& path) {
    constexpr std::size_t limit = std::size_t{1} << 30;
    std::vector<std::uint8_t> bytes;
    return read_file(path, limit, bytes) ? std::optional(std::move(bytes)) : std::nullopt;
}

/// The history of a slot that leads to a picture, or with none to the newest that it knows.
std::optional<ReadHistory> read_file_of(const FrameSlot& slot, BITMAP* picture) {
    const auto read = [&]() -> std::optional<ReadHistory> {
        const auto bytes = bytes_of(slot.history());
        if (!bytes) return std::nullopt;
        return picture == nullptr ? read_newest_history(*bytes)
                                  : read_history(*bytes, picture->w, picture->h, print_of(picture));
    };
    return unless_memory_ends(read, std::nullopt);
}

void turn_off() {
    in_file.off = true;
    flash_text("THE HISTORY OF THIS FRAME CAN'T BE KEPT. SEE UA_LOG.TXT");
}

/// Another program has changed the Frame, or an older one of this.
void set_history_aside(const FrameSlot& slot) {
    char name[32];
    std::snprintf(name, sizeof name, "history-old.%03d", slot.number);
    if (!rename_file(slot.history(), slot.folder.file(name))) return;
    UA_log("[ INFO ] : The history of frame %d doesn't lead to its picture and was kept aside as %s", slot.number,
           name);
}

std::size_t size_of(const std::string& path) {
    std::error_code missing;
    const auto size = std::filesystem::file_size(path, missing);
    return missing ? 0 : size;
}

// ---- Files that have grown too large -------------------------------------------------------------------------------

/// Writes a history anew, without what was cut. False after a failure, with the old file in its place.
bool rewrite(const std::string& path, const History& history, const HistoryPlace& place, std::uint64_t run,
             InFile& now) {
    const auto write = [&] {
        HistoryWriter writer(random_number(), history.first);
        if (run != 0 && history.started >= history.first) writer.start(history.started, run);
        for (int number = history.first; number < history.end(); ++number) writer.step(number, history.step(number));
        writer.place(place);
        if (!write_file(path, writer.bytes().data(), writer.bytes().size())) return false;
        now = {writer.bytes().size(), writer.sum(), place, run};
        return true;
    };
    return unless_memory_ends(write, false);
}

void rewrite_own(const FrameSlot& slot, std::size_t most) {
    History* const history = settled_history();
    if (history == nullptr) return;
    history->shrink_to(most);
    if (!rewrite(slot.history(), *history, in_file.place, this_run, in_file)) return;
    for (Step& step : history->steps) step.is_in_file = true;
}

void rewrite_other(const FrameSlot& slot) {
    std::optional<ReadHistory> read = read_file_of(slot, nullptr);
    if (!read) return;
    read->history.shrink_to(0);
    InFile unused;
    rewrite(slot.history(), read->history, read->place, read->run, unused);
}

/// Of the deflated tiles alone; what surrounds them is little.
std::size_t live_bytes(const History& history) {
    std::size_t sum = 0;
    for (const Step& step : history.steps) sum += step.deflated ? step.deflated->bytes : step.bytes();
    return sum;
}

struct HistoryOnDisk {
    FrameSlot slot;
    std::size_t bytes = 0;
    std::filesystem::file_time_type time{};
};

/// The oldest first.
std::vector<HistoryOnDisk> histories_on_disk(const Folder& folder) {
    std::vector<HistoryOnDisk> found;
    for (int number = 0; number < frame_slots; ++number) {
        HistoryOnDisk one{{folder, number}};
        one.bytes = size_of(one.slot.history());
        if (one.bytes == 0) continue;
        std::error_code unknown;
        one.time = std::filesystem::last_write_time(one.slot.history(), unknown);
        found.push_back(one);
    }
    std::ranges::stable_sort(found, {}, &HistoryOnDisk::time);
    return found;
}

}  // namespace

void begin_history_run() { this_run = random_number() | 1; }

void begin_history() {
    in_file = {};
    History fresh;
    fresh.started = 0;
    take_history(std::move(fresh));
}

void open_history(const FrameSlot& slot) {
    begin_history();
    if (!file_exists(slot.history())) return;
    std::optional<ReadHistory> read = read_file_of(slot, current_frame);
    // At start a rescue may be what it leads to.
    if (!read && !slot.has_rescue()) {
        set_history_aside(slot);
        flash_text("THE HISTORY OF THIS FRAME IS OF ANOTHER PICTURE AND WAS SET ASIDE");
    }
    if (!read) return;
    if (read->run != this_run) read->history.started = read->history.position;
    in_file = {read->end, read->sum, read->place, read->run};
    take_history(std::move(read->history));
}

bool has_history_of(const FrameSlot& slot, BITMAP* picture) {
    return file_exists(slot.history()) && read_file_of(slot, picture).has_value();
}

// ---- Writing -------------------------------------------------------------------------------------------------------

HistoryWrite history_to_write(const FrameSlot& slot, std::optional<Print> saved, std::optional<Print> print) {
    HistoryWrite write;
    if (in_file.off || workspace_is_away() || slot.folder.path() != workspace_folder().path()) return write;
    const std::optional<HistoryToStore> stored = history_to_store();
    if (!stored) return turn_off(), write;
    const History& history = stored->history;
    if (in_file.end == 0 && history.steps.empty()) return write;
    for (int number = history.first; number < history.end(); ++number)
        if (!history.step(number).is_in_file || in_file.end == 0) write.steps.push_back({number, history.step(number)});
    write.place = {history.position, current_frame->w, current_frame->h, print ? *print : print_of(current_frame)};
    if (write.steps.empty() && write.place == in_file.place) return write;
    if (in_file.end == 0 && file_exists(slot.history())) set_history_aside(slot);  // of a Frame that couldn't be read
    write.path = slot.history();
    write.keep = in_file.end;
    write.sum = in_file.end == 0 ? random_number() : in_file.sum;
    write.first = history.first;
    write.run = this_run;
    if (in_file.run != this_run && history.started >= history.first) write.start = history.started;
    if (in_file.end == 0 && saved && history.first == 0) {
        const Step& oldest = history.step(0);
        write.loaded = HistoryPlace{0, oldest.before_w, oldest.before_h, *saved};
    }
    if (BITMAP* const before = stored->before_hole; before != nullptr)
        write.before_hole = HistoryPlace{history.position - 1, before->w, before->h, print_of(before)};
    return write;
}

void HistoryWrite::carry_out() {
    if (path.empty()) return;
    const auto write = [this] {
        HistoryWriter writer = keep == 0 ? HistoryWriter(sum, first) : HistoryWriter(sum);
        if (loaded) writer.place(*loaded);
        for (const NumberedStep& one : steps) {
            if (before_hole && before_hole->position == one.number) writer.place(*before_hole);
            writer.step(one.number, one.step);
        }
        if (start) writer.start(*start, run);
        writer.place(place);
        if (!append_file(path, keep, writer.bytes().data(), writer.bytes().size())) return false;
        written_end = keep + writer.bytes().size();
        sum = writer.sum();
        return true;
    };
    unless_memory_ends(write, false);
}

void take_written(HistoryWrite& write) {
    const HistoryWrite done = std::exchange(write, {});
    if (done.path.empty()) return;
    if (done.written_end == 0) return turn_off();
    in_file = {done.written_end, done.sum, done.place, done.start ? this_run : in_file.run};
    History* const history = settled_history();
    if (history == nullptr) return;
    for (const HistoryWrite::NumberedStep& one : done.steps)
        if (one.number >= history->first && one.number < history->end() && history->step(one.number).id == one.step.id)
            history->step(one.number).is_in_file = true;
}

void keep_histories_in_bounds(const FrameSlot& slot) {
    constexpr std::size_t garbage_max = std::size_t{1} << 20;
    if (in_file.end == 0 || slot.folder.path() != workspace_folder().path()) return;
    if (const History* const history = settled_history();
        history != nullptr && in_file.end > 2 * live_bytes(*history) + garbage_max)
        rewrite_own(slot, History::bytes_max);
    std::vector<HistoryOnDisk> found = histories_on_disk(slot.folder);
    std::size_t sum = 0;
    for (const HistoryOnDisk& one : found) sum += one.bytes;
    for (auto one = found.begin(); sum > bytes_on_disk_max && one != found.end(); ++one) {
        if (one->slot.number == slot.number) continue;
        rewrite_other(one->slot);
        sum -= one->bytes - std::min(one->bytes, size_of(one->slot.history()));
    }
    if (sum > bytes_on_disk_max) rewrite_own(slot, 0);
}

void limit_histories(std::size_t bytes) { bytes_on_disk_max = bytes; }

// ---- Forgetting ----------------------------------------------------------------------------------------------------

void forget_history(const FrameSlot& slot) {
    begin_history();
    if (file_exists(slot.history())) remove_file(slot.history());
}

void forget_all_histories(const Folder& folder) {
    for (const HistoryOnDisk& one : histories_on_disk(folder)) remove_file(one.slot.history());
    forget_history(slot_of_row(frame_index));
}

}  // namespace nubo
