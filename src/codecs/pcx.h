#pragma once
// PCX pictures: 1 to 24 bits a pixel, in one plane or several.
#include "codecs/read_picture.h"
#include "platform/memory_packfile.h"

namespace nubo {

/// Reads 1, 2, 4, 8 bits in a plane, 1 bit in up to 4 planes, and 8 bits in three or four (whose fourth, alpha, is left
/// out), packed or not. Bytes that end before the pixels do are refused.
ReadPicture read_pcx(FileBytes bytes);

/// Appends the 32-bit `bitmap` as a packed PCX of 24 bits. False, with nothing appended, when the memory can't be had.
bool write_pcx(BITMAP* bitmap, Bytes& bytes);

}  // namespace nubo
