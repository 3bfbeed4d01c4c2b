#pragma once
// What the writers of PNG files share: chunks, and the rows of a bitmap on their way into one. `png_error` holds the
// cause of each failure.
#include "base/bitmap.h"
#include "codecs/growing_bytes.h"
#include "codecs/png_format.h"
#include <span>

namespace nubo {

/// A bitmap whose pixels can be read where they stand; nearly all that is written is one.
inline bool has_plain_pixels(BITMAP* bitmap) { return bitmap_color_depth(bitmap) == 32 && is_memory_bitmap(bitmap); }

/// Each is false when the file doesn't take all of it, or the content is longer than a chunk may be.
bool write_png_bytes(PACKFILE* file, std::span<const std::uint8_t> bytes);
bool write_png_chunk(PACKFILE* file, std::uint32_t type, std::span<const std::uint8_t> content);
bool write_png_header(PACKFILE* file, const PngHeader& header);

/// The word at the front of `bytes`, its most significant byte first.
void put_png_word(std::uint32_t word, std::uint8_t* bytes);

/// The header of an image of 8 bits a sample.
PngHeader png_header_of(BITMAP* bitmap, PngColorType type);

/// Appends the filtered and deflated rows of the bitmap, which `header` is of. False without memory for it.
bool deflate_png_rows(BITMAP* bitmap, const PngHeader& header, PngEffort effort, GrowingBytes& deflated);

}  // namespace nubo
