#include "platform/input_queue.h"

#include "state/shared.h"
#include <cstdint>

namespace nubo {
namespace {

// A main flow that is busy for seconds still finds every stroke of a pair of hands. Beyond that presses are forgotten,
// and the last places are kept for the releases of what is down: nothing may stay down for ever.
constexpr unsigned capacity = 1'024, kept_for_releases = input_codes;

std::array<InputChange, capacity> changes;
Shared<unsigned> written = 0, read = 0;  // counts; the slot is the count modulo the capacity

std::array<bool, input_codes> is_down{};  // as written
Shared<std::uint64_t> place_word = 0;     // both coordinates in one word, so that none is of another place
Place place_written;

constexpr unsigned half_bits = 32;

void note_place(Place place) {
    place_written = place;
    place_word.publish(std::uint64_t{static_cast<std::uint32_t>(place.x)} << half_bits |
                       static_cast<std::uint32_t>(place.y));
}

/// False if the change found no place.
bool put_change(const InputChange& change) {
    const unsigned end = written, waiting = end - read.acquire();
    if (change.down && waiting >= capacity - kept_for_releases) return false;
    changes[end % capacity] = change;
    written.publish(end + 1);
    return true;
}

void note_change(int code, bool down, char32_t character = character_unknown) {
    bool& was_down = is_down[static_cast<std::size_t>(code)];
    if (was_down != down && put_change({code, down, place_written, character})) was_down = down;
}

}  // namespace

void note_mouse(int x, int y, int buttons) {
    note_place({x, y});
    for (int button = 0; button < input_buttons; ++button)
        note_change(input_keys + button, (buttons >> button & 1) != 0);
}

void note_key(int code, bool down, char32_t character) {
    if (code > 0 && code < input_keys) note_change(code, down, character);
}

void note_close() { put_change({.code = input_close, .down = true, .place = place_written}); }

Place newest_place() {
    const std::uint64_t word = place_word.acquire();
    return {static_cast<std::int32_t>(word >> half_bits), static_cast<std::int32_t>(word)};
}

const InputChange* first_change() {
    const unsigned next = read;
    return written.acquire() == next ? nullptr : &changes[next % capacity];
}

void drop_first_change() { read.publish(read + 1); }

}  // namespace nubo
