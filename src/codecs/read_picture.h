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

/// What a file holds and a picture here can't, and so was left out.
struct PictureLoss {
    bool alpha = false;             // of at least one pixel that is neither clear nor whole
    std::uint32_t moved = 0;        // pixels that had the mask colour and aren't clear: they are a step beside it
    std::uint32_t images = 1;       // the file holds so many, of which the first was read
    std::uint32_t sample_bits = 8;  // of a channel; of more than 8 the highest were read

    bool operator==(const PictureLoss&) const = default;
};

/// What a reader makes of a file's bytes.
struct ReadPicture {
    OwnedBitmap bitmap{};    // of 32 bits, every top byte 0; null: refused
    std::string cause{};     // why it is refused, or in what the picture falls short; empty: all is well
    bool has_alpha = false;  // the top bytes are the alpha, below 255 somewhere, until `settle_alpha` (codecs/alpha.h)
    PictureLoss loss{};
};

/// How a file's pixels lie in rows: what its reader's checks, buffers and loops all go by. With sides and a `unit` up
/// to 65,536 and at most 64 bits a pixel, which each reader sees to first, nothing here overflows.
struct PixelRows {
    std::uint32_t width = 0, height = 0;
    std::size_t bits = 0;    // of a pixel in each plane
    std::size_t planes = 1;  // which follow each other in each row
    std::size_t unit = 1;    // bytes: a plane's row is filled up to a multiple of them

    /// Bytes of a row of one plane that hold pixels, and with those that fill it up.
    constexpr std::size_t used_bytes() const { return (width * bits + 7) / 8; }
    constexpr std::size_t plane_bytes() const { return (used_bytes() + unit - 1) / unit * unit; }
    constexpr std::size_t row_bytes() const { return plane_bytes() * planes; }
    /// Of the whole picture; what fills up its last row may be missing.
    constexpr std::size_t fewest_bytes() const { return height * row_bytes() - (plane_bytes() - used_bytes()); }
};

/// Null when a picture of that size can be a Frame on this machine: itself, its coverage map, the copy for RESTORE and
/// one undo. Else what is wrong, a constant.
const char* size_fault(std::uint64_t width, std::uint64_t height);

/// Whether a file of `bytes` bytes, of which each stands for at most `pixels_of_a_byte` pixels, may hold a picture of
/// that size. A head that promises far more is refused before the memory is taken; small pictures are always tried.
bool can_fill(std::uint64_t width, std::uint64_t height, std::size_t bytes, std::size_t pixels_of_a_byte);

/// A new bitmap for a reader to fill, not cleared; null, with the cause, when the size can't be held.
OwnedBitmap bitmap_to_fill(std::uint64_t width, std::uint64_t height, std::string& cause);

/// Brings what a packfile's reader gave to the form of a `ReadPicture`; null: refused with `cause`. The alpha in the
/// top bytes goes unless `keeps_alpha`.
ReadPicture plain_picture(OwnedBitmap bitmap, const char* cause, bool keeps_alpha = false);

}  // namespace nubo
