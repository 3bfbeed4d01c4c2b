#pragma once
// The "MOJO" container: bytes packed in chunks by copies of what stood before.
//
//   0  "MOJO"
//   4  chunk count, one byte
//   5  for each chunk: packed size and unpacked size, two bytes each, high byte first, then the packed bytes
//
// A chunk's packed bytes begin with its marker, the least frequent byte of the chunk. Then any other byte stands for
// itself; marker, 0 for the marker itself; marker, length, distance for a copy. Numbers are written in groups of 7
// bits, the highest group first, with the top bit set on every byte but the last.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace nubo {

inline constexpr std::size_t pack_chunk_size = 32768, pack_chunks_max = 255;

/// The container of `source`; nothing when it is longer than 255 chunks of 32,768 bytes.
std::optional<std::vector<std::uint8_t>> pack_bytes(std::span<const std::uint8_t> source);

/// The source of a container; nothing when it is not a whole one: cut, with bytes left over, a chunk of
/// another size than it says, or a copy that reaches out of its chunk.
std::optional<std::vector<std::uint8_t>> unpack_bytes(std::span<const std::uint8_t> packed);

/// True when the bytes begin with the container's four letters.
bool has_pack_magic(std::span<const std::uint8_t> bytes);

}  // namespace nubo
