#pragma once
// What a picture looks like, in 64 bits.
#include <allegro.h>
#include <cstdint>

namespace nubo {

using Print = std::uint64_t;

/// The print of a 32-bit bitmap's pixels; its order of pixels and its width count, what lies above their 24 bits
/// doesn't. It stands in files: pictures of one print are taken for one.
Print print_of(BITMAP* picture);

}  // namespace nubo
