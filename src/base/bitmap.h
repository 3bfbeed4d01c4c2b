#pragma once
// Memory bitmaps of 32 bits: making, owning, and reaching their pixels.
#include "state/colors.h"
#include <allegro.h>
#include <cstdint>
#include <memory>

namespace nubo {

struct BitmapDestroyer {
    void operator()(BITMAP* bitmap) const { destroy_bitmap(bitmap); }
};
/// A bitmap that goes with its holder. Long-lived bitmaps are the global handles of state/ instead.
using OwnedBitmap = std::unique_ptr<BITMAP, BitmapDestroyer>;

/// A new 32-bit memory bitmap of `width` by `height`, filled with `color`. Null when a side is below 1 or above 65,535
/// or the memory can't be had, also when the machine would only promise it; nothing is logged.
OwnedBitmap make_bitmap(int width, int height, Color color = 0);

/// The same with whatever the memory held, for one whose pixels are all written next.
OwnedBitmap make_uncleared_bitmap(int width, int height);

/// A new bitmap with the pixels of `source`, or null.
OwnedBitmap copy_bitmap(BITMAP* source);

/// Puts a new bitmap into a global handle and destroys what it held.
void replace_bitmap(BITMAP*& handle, OwnedBitmap bitmap);

/// For tests of what is done without memory: the bitmap that is asked for after `bitmaps_before` others can't be had.
void refuse_bitmap(int bitmaps_before);
/// The same for all that take more than so many bytes.
void refuse_larger_bitmaps(int bytes);

/// The pixels of row `y` from column `x` on, of a 32-bit memory bitmap.
inline Color* pixels_at(BITMAP* bitmap, int x, int y) { return reinterpret_cast<Color*>(bitmap->line[y]) + x; }

/// True for 0 <= x < width and 0 <= y < height.
inline bool frame_contains(const BITMAP* bitmap, int x, int y) {
    return static_cast<unsigned>(x) < static_cast<unsigned>(bitmap->w) &&
           static_cast<unsigned>(y) < static_cast<unsigned>(bitmap->h);
}

}  // namespace nubo
