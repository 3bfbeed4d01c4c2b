#pragma once
// ILBM pictures, usually called .lbm or .iff: bit planes in chunks.
#include "codecs/read_picture.h"

namespace nubo {

/// Reads 1 to 8 planes with a palette, half-brite, HAM of 6 and 8 planes, and 24 planes of true colour, packed or not,
/// with or without a plane that masks (left out); also the form that has bytes for 8 planes ("PBM "). Bytes that
/// end before the pixels do are refused.
ReadPicture read_ilbm(FileBytes bytes);

}  // namespace nubo
