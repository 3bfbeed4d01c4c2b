#pragma once
// What all readers of pictures share: their result, and which sizes they believe.
#include "base/bitmap.h"
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace nubo {

/// The bytes of a whole file, at most this many.
using FileBytes = std::span<const std::uint8_t>;
inline constexpr std::size_t picture_file_max = std::size_t{1} << 30;

/// What a reader makes of a file's bytes.
struct ReadPicture {
    OwnedBitmap bitmap;  // of 32 bits, every top byte 0; null: refused
    std::string cause;   // why it is refused, or in what the picture falls short; empty: all is well
};

/// Null when a picture of that size can be a Frame on this machine: itself, its coverage map, the copy for RESTORE and
/// one undo. Else what is wrong, a constant.
const char* size_fault(std::uint64_t width, std::uint64_t height);

/// Whether a file of `bytes` bytes, of which each stands for at most `pixels_of_a_byte` pixels, may hold a picture of
/// that size. A head that promises far more is refused before the memory is taken; small pictures are always tried.
bool can_fill(std::uint64_t width, std::uint64_t height, std::size_t bytes, std::size_t pixels_of_a_byte);

/// A new bitmap for a reader to fill, not cleared; null, with the cause, when the size can't be held.
OwnedBitmap bitmap_to_fill(std::uint64_t width, std::uint64_t height, std::string& cause);

/// Brings what a packfile's reader gave to the form of a `ReadPicture`; null: refused with `cause`.
ReadPicture plain_picture(OwnedBitmap bitmap, const char* cause);

}  // namespace nubo
