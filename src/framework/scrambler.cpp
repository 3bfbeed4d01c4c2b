#include "framework/scrambler.h"

#include <array>

namespace nubo {
namespace {

constexpr unsigned key_size = 64;
/// Chosen once: files scrambled with one key can't be read with another.
constexpr std::array<std::uint8_t, key_size> key{
    0x9d, 0x37, 0xc2, 0x58, 0xeb, 0x14, 0x7f, 0xa6, 0x03, 0xd1, 0x6c, 0xb9, 0x25, 0xf4, 0x4a, 0x81,
    0x5e, 0xe7, 0x1b, 0x90, 0xcd, 0x32, 0x76, 0xaf, 0x08, 0x63, 0xda, 0xb5, 0x49, 0xfc, 0x27, 0x8e,
    0xd4, 0x11, 0x6a, 0xc7, 0x3f, 0x95, 0xe0, 0x5b, 0xbc, 0x02, 0x79, 0xae, 0x46, 0xf3, 0x1d, 0x88,
    0x60, 0xdb, 0x34, 0xa9, 0x17, 0xc5, 0x7e, 0x52, 0xef, 0x9b, 0x20, 0x4d, 0xb6, 0x0f, 0xe8, 0x73};

constexpr std::uint8_t reversed(std::uint8_t byte) {
    unsigned bits = byte;
    bits = (bits & 0xf0U) >> 4 | (bits & 0x0fU) << 4;
    bits = (bits & 0xccU) >> 2 | (bits & 0x33U) << 2;
    bits = (bits & 0xaaU) >> 1 | (bits & 0x55U) << 1;
    return static_cast<std::uint8_t>(bits);
}

/// The walk through the key: an index and a step of 1, 3, 5 to 31, which both start anew with each file.
class KeyWalk {
public:
    explicit KeyWalk(unsigned seed) : index_(seed) {}
    std::uint8_t next() {
        const std::uint8_t byte = key[index_];
        index_ = (index_ + 1 + byte % step_) % key_size;
        step_ = ((step_ + 1) & 30U) + 1;
        return byte;
    }

private:
    unsigned index_, step_ = 1;
};

}  // namespace

std::vector<std::uint8_t> scramble_bytes(std::span<const std::uint8_t> payload, int seed) {
    const auto start = static_cast<unsigned>(seed) % scramble_seeds;
    std::vector<std::uint8_t> file{static_cast<std::uint8_t>(start)};
    file.reserve(payload.size() + 1);
    KeyWalk walk(start);
    for (const std::uint8_t byte : payload) file.push_back(reversed(byte) ^ walk.next());
    return file;
}

std::optional<std::vector<std::uint8_t>> unscramble_bytes(std::span<const std::uint8_t> file) {
    if (file.empty() || file[0] >= scramble_seeds) return std::nullopt;
    std::vector<std::uint8_t> payload;
    payload.reserve(file.size() - 1);
    KeyWalk walk(file[0]);
    for (const std::uint8_t byte : file.subspan(1)) payload.push_back(reversed(byte ^ walk.next()));
    return payload;
}

}  // namespace nubo
