#pragma once
// Colours of a true-colour bitmap reduced to a palette, for a program that shows 8 bits.
#include "base/bitmap.h"

namespace nubo {

/// An 8-bit bitmap with the pixels of `source` (32 bits; alpha is left aside), and in `palette` its colours, up to 256
/// of 6 bits a channel; the entries behind them are black. Null when the memory can't be had.
OwnedBitmap octree_reduce(const BITMAP* source, RGB* palette);

}  // namespace nubo
