#include "base/bitmap.h"

#include "base/bitmap_memory.h"
#include "state/frames.h"
#include <climits>
#include <fstream>
#include <string>

namespace nubo {
namespace {

int bitmaps_until_refusal = -1;                // -1: none is refused but by the memory itself
long long largest_bytes = INT_MAX;             // Allegro works out the bytes of the whole bitmap in an int
constexpr long long unasked_bytes = 64 << 20;  // a bitmap up to this size is made without looking at the memory

/// What the machine can give without ending a program for it. It promises more, so that asking for a bitmap is no test.
long long available_bytes() {
    std::ifstream file("/proc/meminfo");
    for (std::string name; file >> name;) {
        long long kibibytes = 0;
        if (name == "MemAvailable:" && file >> kibibytes) return kibibytes << 10;
    }
    return LLONG_MAX;  // it doesn't say
}

bool may_be_made(long long width, long long height) {
    const long long bytes = width * height * static_cast<long long>(sizeof(Color));
    if (bitmaps_until_refusal >= 0 && bitmaps_until_refusal-- == 0) return false;
    return bytes <= largest_bytes && (bytes <= unasked_bytes || bytes <= available_bytes());
}

/// Null if it can't or may not be had.
OwnedBitmap make_of_depth(int depth, int width, int height) {
    if (!may_be_made(width, height)) return nullptr;
    OwnedBitmap bitmap(create_bitmap_ex(depth, width, height));
    if (bitmap) prefer_large_pages(bitmap.get());
    return bitmap;
}

}  // namespace

OwnedBitmap make_uncleared_bitmap(int width, int height) {
    if (width < 1 || height < 1 || width > max_frame_side || height > max_frame_side) return nullptr;
    return make_of_depth(32, width, height);
}

OwnedBitmap make_bitmap(int width, int height, Color color) {
    OwnedBitmap bitmap = make_uncleared_bitmap(width, height);
    if (!bitmap) return nullptr;
    take_rows(bitmap.get(), 0, height);
    clear_to_color(bitmap.get(), static_cast<int>(color));
    return bitmap;
}

OwnedBitmap copy_bitmap(BITMAP* source) {
    OwnedBitmap copy = make_of_depth(bitmap_color_depth(source), source->w, source->h);
    if (!copy) return nullptr;
    take_rows(copy.get(), 0, source->h);
    blit(source, copy.get(), 0, 0, 0, 0, source->w, source->h);
    return copy;
}

void replace_bitmap(BITMAP*& handle, OwnedBitmap bitmap) {
    if (handle != nullptr) destroy_bitmap(handle);
    handle = bitmap.release();
}

void refuse_bitmap(int bitmaps_before) { bitmaps_until_refusal = bitmaps_before; }

void refuse_larger_bitmaps(int bytes) { largest_bytes = bytes; }

}  // namespace nubo
