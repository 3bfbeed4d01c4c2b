// Writing a PNG: rows gathered and filtered, deflated as one chunk.
#include "codecs/clear_ground.h"
#include "codecs/png_parts.h"

#include <algorithm>

namespace nubo {
namespace {

bool has_alpha(BITMAP* bitmap) {
    if (bitmap_color_depth(bitmap) != 32) return false;
    const Color alpha_bits = Color{0xff} << _rgb_a_shift_32;
    Color seen = 0;
    for (int y = 0; y < bitmap->h; ++y) {
        if (has_plain_pixels(bitmap)) {
            const Color* const pixels = pixels_at(bitmap, 0, y);
            for (int x = 0; x < bitmap->w; ++x) seen |= pixels[x];
        } else {
            for (int x = 0; x < bitmap->w; ++x) seen |= static_cast<Color>(getpixel(bitmap, x, y));
        }
    }
    return (seen & alpha_bits) != 0;
}

PngColorType color_type_of(BITMAP* bitmap) {
    if (bitmap_color_depth(bitmap) == 8) return PNG_PALETTE;
    return has_alpha(bitmap) ? PNG_RGB_ALPHA : PNG_RGB;
}

bool write_palette(PACKFILE* file, const RGB* palette) {
    PALETTE current;
    if (palette == nullptr) {
        get_palette(current);
        palette = current;
    }
    std::array<std::uint8_t, 3 * palette_entries> bytes{};
    for (std::size_t i = 0; i < palette_entries; ++i) {
        bytes[3 * i] = static_cast<std::uint8_t>(palette[i].r << 2);
        bytes[3 * i + 1] = static_cast<std::uint8_t>(palette[i].g << 2);
        bytes[3 * i + 2] = static_cast<std::uint8_t>(palette[i].b << 2);
    }
    return write_png_chunk(file, png_chunk_palette, bytes);
}

bool write_pixels(PACKFILE* file, BITMAP* bitmap, const PngHeader& header, PngEffort effort) {
    GrowingBytes deflated;
    if (!deflate_png_rows(bitmap, header, effort, deflated)) return png_fail("Cannot allocate memory!");
    return write_png_chunk(file, png_chunk_pixels, {deflated.data(), deflated.size()});
}

bool write_image(PACKFILE* file, BITMAP* bitmap, PngColorType type, const RGB* palette, PngEffort effort) {
    if (bitmap->w <= 0 || bitmap->h <= 0) return png_fail("Width or height or both of the image are 0!");
    const PngHeader header = png_header_of(bitmap, type);
    return write_png_bytes(file, png_signature) && write_png_header(file, header) &&
           (header.color_type != PNG_PALETTE || write_palette(file, palette)) &&
           write_pixels(file, bitmap, header, effort) && write_png_chunk(file, png_chunk_end, {});
}

bool write_acquired(PACKFILE* file, BITMAP* bitmap, const RGB* palette, PngEffort effort) {
    acquire_bitmap(bitmap);
    const bool written = write_image(file, bitmap, color_type_of(bitmap), palette, effort);
    release_bitmap(bitmap);
    return written;
}

/// What `write(file)` writes is appended, or nothing when it is false.
template <typename Write> bool append_image(Bytes& bytes, Write write) {
    const std::size_t size_before = bytes.size();
    PACKFILE* const file = open_for_writing(bytes);
    if (file == nullptr) return png_fail("Cannot allocate memory!");
    const bool written = write(file);
    pack_fclose(file);
    if (!written) bytes.resize(size_before);
    return written;
}

}  // namespace

int save_png_pf(PACKFILE* file, BITMAP* bitmap, const RGB* palette) {
    return write_acquired(file, bitmap, palette, PNG_BEST) ? 0 : -1;
}

bool write_png(BITMAP* bitmap, Bytes& bytes, PngEffort effort) {
    return append_image(bytes, [&](PACKFILE* file) { return write_acquired(file, bitmap, nullptr, effort); });
}

bool write_clear_png(BITMAP* bitmap, Color ground, Bytes& bytes, PngEffort effort) {
    const OwnedBitmap clear = with_clear_ground(bitmap, ground);
    if (!clear) return png_fail("Cannot allocate memory!");
    return append_image(bytes,
                        [&](PACKFILE* file) { return write_image(file, clear.get(), PNG_RGB_ALPHA, nullptr, effort); });
}

bool write_png(BITMAP* bitmap, Bytes& bytes) { return write_png(bitmap, bytes, PNG_BEST); }

int save_png(const char* path, BITMAP* bitmap, const RGB* palette) {
    PACKFILE* const file = pack_fopen(path, "w");
    if (file == nullptr) return png_fail("Cannot open file!"), -1;
    const int result = save_png_pf(file, bitmap, palette);
    if (pack_fclose(file) != 0 && result == 0) return png_fail("Cannot write to the file!"), -1;  // its last bytes
    return result;
}

}  // namespace nubo
