// Any bytes, read as the history of a Frame; and once more with the sums made right, which else keep all but the seeds
// from being read. What is read is undone and redone.
#include "fuzz/start.h"
#include "workspace/history_format.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;

void put_big_endian(std::uint8_t* to, std::uint64_t value) {
    for (int i = 0; i < 8; ++i) to[i] = static_cast<std::uint8_t>(value >> (56 - 8 * i));
}

/// A header of 24 bytes, then records: a length of 4 bytes, so many bytes, their sum.
void make_sums_right(Bytes& bytes) {
    constexpr std::size_t header = 24, length_bytes = 4, sum_bytes = 8;
    if (bytes.size() < header) return;
    std::uint64_t sum = nubo::history_sum(0, {bytes.data(), header});
    for (std::size_t at = header; at + length_bytes <= bytes.size();) {
        std::size_t length = length_bytes;
        for (std::size_t i = 0, value = 0; i < length_bytes; ++i) {
            value = value << 8 | bytes[at + i];
            if (i + 1 == length_bytes) length += value;
        }
        if (length + sum_bytes > bytes.size() - at) return;
        sum = nubo::history_sum(sum, {bytes.data() + at, length});
        put_big_endian(bytes.data() + at + length, sum);
        at += length + sum_bytes;
    }
}

/// Pictures beyond this cost the fuzzer more than they find.
constexpr int side_max = 300;

void play(const nubo::ReadHistory& read) {
    const nubo::History& history = read.history;
    if (read.place.width > side_max || read.place.height > side_max) return;
    nubo::OwnedBitmap picture = nubo::make_bitmap(read.place.width, read.place.height);
    for (int number = history.position; picture && number-- > history.first;) {
        const nubo::Step& step = history.step(number);
        if (std::max(step.before_w, step.before_h) > side_max) return;
        if (step.after_w != picture->w || step.after_h != picture->h) std::abort();
        picture = nubo::picture_beyond(step, picture.get(), true);
    }
}

void try_bytes(const Bytes& bytes) {
    const auto read = nubo::read_newest_history(bytes);
    if (!read) return;
    if (read->end > bytes.size() || read->history.position > read->history.end()) std::abort();
    play(*read);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const int started = nubo::start_fuzzing();
    Bytes bytes(data, data + size);
    try_bytes(bytes);
    make_sums_right(bytes);
    try_bytes(bytes);
    return started;
}
