#pragma once
// The scrambling of resource files: a light cover that keeps the artwork from being opened by accident. The program and
// the asset builder use the same code and the same key.
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace nubo {

inline constexpr int scramble_seeds = 8;  // a seed is 0 to 7

/// The bytes of a scrambled file: the seed, then the payload under it. A seed outside 0 to 7 is taken modulo 8.
std::vector<std::uint8_t> scramble_bytes(std::span<const std::uint8_t> payload, int seed);

/// The payload of a scrambled file's bytes; empty for a file of one byte. Nothing for an empty file or a seed above 7.
std::optional<std::vector<std::uint8_t>> unscramble_bytes(std::span<const std::uint8_t> file);

}  // namespace nubo
