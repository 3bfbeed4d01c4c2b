#include "codecs/read_picture.h"

#include "state/frames.h"
#include <unistd.h>

namespace nubo {

const char* size_fault(std::uint64_t width, std::uint64_t height) {
    constexpr double copies = 4;
    if (width < 1 || height < 1 || width > max_frame_side || height > max_frame_side) return "its size is out of range";
    const double bytes = static_cast<double>(width) * static_cast<double>(height) * sizeof(Color) * copies;
    const bool has_memory =
        bytes <= static_cast<double>(sysconf(_SC_PHYS_PAGES)) * static_cast<double>(sysconf(_SC_PAGESIZE));
    return has_memory ? nullptr : "there isn't memory enough";
}

bool can_fill(std::uint64_t width, std::uint64_t height, std::size_t bytes, std::size_t pixels_of_a_byte) {
    constexpr std::uint64_t always_tried = 4'000'000;
    return width * height <= always_tried || width * height / pixels_of_a_byte <= bytes;
}

OwnedBitmap bitmap_to_fill(std::uint64_t width, std::uint64_t height, std::string& cause) {
    const char* const fault = size_fault(width, height);
    OwnedBitmap bitmap =
        fault == nullptr ? make_uncleared_bitmap(static_cast<int>(width), static_cast<int>(height)) : nullptr;
    if (!bitmap) cause = fault != nullptr ? fault : "there isn't memory enough";
    return bitmap;
}

namespace {

bool has_clear_pixel(BITMAP* bitmap) {
    constexpr Color whole_alpha = 0xff000000;
    Color all = whole_alpha;
    for (int y = 0; y < bitmap->h && all == whole_alpha; ++y) {
        const Color* const pixels = pixels_at(bitmap, 0, y);
        for (int x = 0; x < bitmap->w; ++x) all &= pixels[x];
    }
    return all != whole_alpha;
}

}  // namespace

ReadPicture plain_picture(OwnedBitmap bitmap, const char* cause, bool keeps_alpha) {
    constexpr Color color_bits = 0xffffff;
    if (!bitmap) return {nullptr, cause};
    ReadPicture picture;
    if (bitmap_color_depth(bitmap.get()) == 32) {
        picture.bitmap = std::move(bitmap);
    } else {
        const auto side = [](int pixels) { return static_cast<std::uint64_t>(pixels); };
        picture.bitmap = bitmap_to_fill(side(bitmap->w), side(bitmap->h), picture.cause);
        if (picture.bitmap) blit(bitmap.get(), picture.bitmap.get(), 0, 0, 0, 0, bitmap->w, bitmap->h);
    }
    picture.has_alpha = keeps_alpha && picture.bitmap && has_clear_pixel(picture.bitmap.get());
    for (int y = 0; picture.bitmap && !picture.has_alpha && y < picture.bitmap->h; ++y) {
        Color* const pixels = pixels_at(picture.bitmap.get(), 0, y);
        for (int x = 0; x < picture.bitmap->w; ++x) pixels[x] &= color_bits;
    }
    return picture;
}

}  // namespace nubo
