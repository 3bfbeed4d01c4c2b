#pragma once
// From the inflated bytes of a PNG to a bitmap. Called by the reader; `png_error` holds the cause of each failure.
#include "base/bitmap.h"
#include "codecs/png_format.h"

namespace nubo {

/// The seven sub-images of an interlaced image, in the file's order.
std::array<PngHeader, 7> png_sub_images(const PngHeader& whole);

/// The bytes that the image's data inflate to, sub-images and filter bytes counted.
std::size_t png_filtered_size(const PngHeader& header);

/// The bitmap of a whole image of `size` inflated bytes, whose filters are undone in place: 8 bits of indexes for a
/// palette image, else 32 bits with the alpha of the types and keys that have one and 0 in the others.
OwnedBitmap png_build_image(const PngHeader& header, std::uint8_t* rows, std::size_t size);

}  // namespace nubo
