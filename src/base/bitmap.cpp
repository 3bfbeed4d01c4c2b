#include "base/bitmap.h"

#include "state/frames.h"
#include <climits>

namespace nubo {
namespace {

int bitmaps_until_refusal = -1;  // -1: none is refused but by the memory itself

bool is_refused() { return bitmaps_until_refusal >= 0 && bitmaps_until_refusal-- == 0; }

}  // namespace

OwnedBitmap make_uncleared_bitmap(int width, int height) {
    if (width < 1 || height < 1 || width > max_frame_side || height > max_frame_side) return nullptr;
    // Allegro works out the bytes of the whole bitmap in an int.
    if (static_cast<long long>(width) * height > INT_MAX / static_cast<int>(sizeof(Color))) return nullptr;
    return is_refused() ? nullptr : OwnedBitmap(create_bitmap_ex(32, width, height));
}

OwnedBitmap make_bitmap(int width, int height, Color color) {
    OwnedBitmap bitmap = make_uncleared_bitmap(width, height);
    if (bitmap) clear_to_color(bitmap.get(), static_cast<int>(color));
    return bitmap;
}

OwnedBitmap copy_bitmap(BITMAP* source) {
    if (is_refused()) return nullptr;
    OwnedBitmap copy(create_bitmap_ex(bitmap_color_depth(source), source->w, source->h));
    if (copy) blit(source, copy.get(), 0, 0, 0, 0, source->w, source->h);
    return copy;
}

void replace_bitmap(BITMAP*& handle, OwnedBitmap bitmap) {
    if (handle != nullptr) destroy_bitmap(handle);
    handle = bitmap.release();
}

void refuse_bitmap(int bitmaps_before) { bitmaps_until_refusal = bitmaps_before; }

}  // namespace nubo
