#include "workspace/history_format.h"

#include "state/frames.h"
#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace nubo {
namespace {

constexpr std::string_view magic = "NUBOHIST";
constexpr std::uint32_t version = 1;
constexpr std::size_t header_bytes = 8 + 4 + 4 + 8, length_bytes = 4, sum_bytes = 8;
constexpr char kind_step = 'S', kind_place = 'P', kind_start = 'B';
constexpr std::uint32_t flag_elsewhere = 1;

using ByteSpan = std::span<const std::uint8_t>;

std::uint64_t mixed(std::uint64_t sum, std::uint64_t word) {
    constexpr std::uint64_t prime = 0x9e3779b97f4a7c15;
    sum = (sum ^ word) * prime;
    return sum ^ sum >> 32;
}

template <typename Number> void put(std::vector<std::uint8_t>& bytes, Number value) {
    for (int shift = 8 * static_cast<int>(sizeof value); (shift -= 8) >= 0;)
        bytes.push_back(static_cast<std::uint8_t>(value >> shift));
}
void put_word(std::vector<std::uint8_t>& bytes, int value) { put(bytes, static_cast<std::uint32_t>(value)); }

// ---- Reading -------------------------------------------------------------------------------------------------------

/// Takes numbers from bytes; once they end it is not `sound`, and all further numbers are 0.
struct Taker {
    ByteSpan left;
    bool sound = true;

    ByteSpan bytes(std::size_t count) {
        sound = sound && count <= left.size();
        if (!sound) return {};
        const ByteSpan taken = left.first(count);
        left = left.subspan(count);
        return taken;
    }
    std::uint64_t number(std::size_t count) {
        std::uint64_t value = 0;
        for (const std::uint8_t byte : bytes(count)) value = value << 8 | byte;
        return value;
    }
    int word() { return static_cast<int>(static_cast<std::uint32_t>(number(4))); }
};

bool is_side(int pixels) { return pixels >= 1 && pixels <= max_frame_side; }

/// The tiles of a step, by rising numbers within its grid; looked at alone unless `keeps` them.
bool take_tiles(Taker& from, Step& step, bool keeps) {
    const int count = step.grid().count(), tiles = from.word();
    const auto made = std::make_shared<StepTiles>();
    for (int i = 0, before = -1; i < tiles; ++i) {
        const int tile = from.word();
        const ByteSpan bytes = from.bytes(static_cast<std::uint32_t>(from.word()));
        if (!from.sound || tile <= before || tile >= count) return false;
        before = tile;
        if (!keeps) continue;
        made->bytes += sizeof(StepTile) + bytes.size();
        made->tiles.push_back({tile, {bytes.begin(), bytes.end()}});
    }
    step.deflated = made;
    return tiles >= 0;
}

bool take_step(Taker& from, int& number, Step& step, bool keeps_tiles) {
    number = from.word();
    step.before_w = from.word(), step.before_h = from.word();
    step.after_w = from.word(), step.after_h = from.word();
    step.elsewhere = (from.number(1) & flag_elsewhere) != 0;
    for (const int side : {step.before_w, step.before_h, step.after_w, step.after_h})
        if (!is_side(side)) return false;
    return take_tiles(from, step, keeps_tiles) && from.sound && from.left.empty();
}

struct Size {
    int w = 0, h = 0;
    bool operator==(const Size&) const = default;
};

/// What the records tell, one by one.
class Replay {
public:
    Replay(int first, bool keeps_tiles) : keeps_tiles_(keeps_tiles) { read_.history.first = first; }

    /// False for a record that doesn't fit what came before.
    bool take(ByteSpan payload) {
        Taker from{payload.subspan(1)};
        switch (payload[0]) {
        case kind_step: return take_new_step(from);
        case kind_place: return take_place(from);
        case kind_start: return take_start(from);
        default: return false;
        }
    }
    ReadHistory& read() { return read_; }

private:
    bool reaches(int position) const { return position >= read_.history.first && position <= read_.history.end(); }
    /// Of the picture at a position; 0 where no step tells it.
    Size size_at(int position) const {
        const History& history = read_.history;
        if (history.steps.empty()) return {};
        if (position == history.first) return {history.steps.front().before_w, history.steps.front().before_h};
        return {history.step(position - 1).after_w, history.step(position - 1).after_h};
    }
    bool take_new_step(Taker& from) {
        int number = 0;
        Step step;
        if (!nubo::take_step(from, number, step, keeps_tiles_) || !reaches(number)) return false;
        History& history = read_.history;
        if (number > history.first && size_at(number) != Size{step.before_w, step.before_h}) return false;
        history.position = number;
        history.cut_redo();
        history.steps.push_back(std::move(step));
        history.bytes += history.steps.back().bytes();
        return true;
    }
    bool take_place(Taker& from) {
        HistoryPlace place;
        place.position = from.word();
        place.width = from.word(), place.height = from.word();
        place.print = from.number(8);
        const bool fits = from.sound && from.left.empty() && reaches(place.position);
        if (!fits || (!read_.history.steps.empty() && size_at(place.position) != Size{place.width, place.height}))
            return false;
        read_.place = place;
        return true;
    }
    bool take_start(Taker& from) {
        const int position = from.word();
        const std::uint64_t run = from.number(8);
        if (!from.sound || !from.left.empty() || !reaches(position)) return false;
        read_.history.started = position;
        read_.run = run;
        return true;
    }

    ReadHistory read_;
    bool keeps_tiles_;
};

/// Calls `take(payload, end, sum)` for each record that is whole, until it gives false.
template <typename Take> void for_each_record(ByteSpan bytes, std::uint64_t sum, Take take) {
    std::size_t at = header_bytes;
    for (;;) {
        Taker from{bytes.subspan(at)};
        const auto length = static_cast<std::size_t>(from.number(length_bytes));
        const ByteSpan payload = from.bytes(length);
        const std::uint64_t told = from.number(sum_bytes);
        if (!from.sound || payload.empty()) return;
        sum = history_sum(sum, bytes.subspan(at, length_bytes + length));
        if (told != sum) return;
        at += length_bytes + length + sum_bytes;
        if (!take(payload, at, sum)) return;
    }
}

}  // namespace

std::uint64_t history_sum(std::uint64_t sum, std::span<const std::uint8_t> bytes) {
    std::size_t at = 0;
    for (std::uint64_t word = 0; at + sizeof word <= bytes.size(); at += sizeof word) {
        std::memcpy(&word, bytes.data() + at, sizeof word);
        sum = mixed(sum, word);
    }
    for (; at < bytes.size(); ++at) sum = mixed(sum, bytes[at]);
    return mixed(sum, bytes.size());
}

HistoryWriter::HistoryWriter(std::uint64_t salt, int first) : sum_(0) {
    bytes_.assign(magic.begin(), magic.end());
    put(bytes_, version);
    put_word(bytes_, first);
    put(bytes_, salt);
    sum_ = history_sum(0, bytes_);
}

void HistoryWriter::record(char kind) {
    record_ = bytes_.size();
    put_word(bytes_, 0);
    bytes_.push_back(static_cast<std::uint8_t>(kind));
}

void HistoryWriter::end_record() {
    const auto length = static_cast<std::uint32_t>(bytes_.size() - record_ - length_bytes);
    for (std::size_t i = 0; i < length_bytes; ++i)
        bytes_[record_ + i] = static_cast<std::uint8_t>(length >> 8 * (length_bytes - 1 - i));
    sum_ = history_sum(sum_, ByteSpan(bytes_).subspan(record_));
    put(bytes_, sum_);
}

void HistoryWriter::step(int number, const Step& step) {
    record(kind_step);
    for (const int value : {number, step.before_w, step.before_h, step.after_w, step.after_h}) put_word(bytes_, value);
    bytes_.push_back(static_cast<std::uint8_t>(step.elsewhere ? flag_elsewhere : 0));
    const auto deflated = deflated_tiles(step);
    put_word(bytes_, static_cast<int>(deflated->tiles.size()));
    for (const StepTile& tile : deflated->tiles) {
        put_word(bytes_, tile.tile);
        put_word(bytes_, static_cast<int>(tile.bytes.size()));
        bytes_.insert(bytes_.end(), tile.bytes.begin(), tile.bytes.end());
    }
    end_record();
}

void HistoryWriter::place(const HistoryPlace& place) {
    record(kind_place);
    for (const int value : {place.position, place.width, place.height}) put_word(bytes_, value);
    put(bytes_, place.print);
    end_record();
}

void HistoryWriter::start(int position, std::uint64_t run) {
    record(kind_start);
    put_word(bytes_, position);
    put(bytes_, run);
    end_record();
}

namespace {

/// Up to the last place for which `is_wanted` says so.
template <typename Wanted> std::optional<ReadHistory> read_up_to(ByteSpan bytes, Wanted is_wanted) {
    Taker header{bytes};
    const ByteSpan begin = header.bytes(magic.size());
    const bool is_history = std::ranges::equal(begin, magic) && header.number(4) == version;
    const int first = header.word();
    header.number(8);
    constexpr int first_max = 1 << 30;  // so that no number beyond it overflows
    if (!is_history || !header.sound || first < 0 || first > first_max) return std::nullopt;
    const std::uint64_t salted = history_sum(0, bytes.first(header_bytes));

    // What follows the place that is asked for may have cut what stood before it: so it is looked for first.
    std::size_t end = 0;
    Replay whole(first, false);
    for_each_record(bytes, salted, [&](ByteSpan payload, std::size_t behind, std::uint64_t) {
        if (!whole.take(payload)) return false;
        if (payload[0] == kind_place && is_wanted(whole.read().place)) end = behind;
        return true;
    });
    if (end == 0) return std::nullopt;
    Replay replay(first, true);
    for_each_record(bytes.first(end), salted, [&](ByteSpan payload, std::size_t behind, std::uint64_t sum) {
        replay.read().end = behind;
        replay.read().sum = sum;
        return replay.take(payload);
    });
    ReadHistory& read = replay.read();
    read.history.position = read.place.position;
    read.history.floor = first;
    read.history.ceiling = read.history.end();
    for (Step& step : read.history.steps) step.is_in_file = true;
    return std::move(read);
}

}  // namespace

std::optional<ReadHistory> read_history(ByteSpan bytes, int width, int height, Print print) {
    return read_up_to(bytes, [=](const HistoryPlace& place) {
        return place.print == print && place.width == width && place.height == height;
    });
}

std::optional<ReadHistory> read_newest_history(ByteSpan bytes) {
    return read_up_to(bytes, [](const HistoryPlace&) { return true; });
}

}  // namespace nubo
