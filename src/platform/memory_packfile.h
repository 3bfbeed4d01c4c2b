#pragma once
// Packfiles over bytes in memory: so codecs read what InputFile read, and write what SafeFile puts in its place.
#include <allegro.h>
#include <cstdint>
#include <span>
#include <vector>

namespace nubo {

using Bytes = std::vector<std::uint8_t>;

/// A packfile that reads `bytes`, which must live as long. Closed by `pack_fclose`. Null without memory.
PACKFILE* open_for_reading(std::span<const std::uint8_t> bytes);

/// A packfile that appends to `bytes` and fails as a full disk does where they would be more than `room`.
PACKFILE* open_for_writing(Bytes& bytes, std::size_t room = SIZE_MAX);

}  // namespace nubo
