#pragma once
// What the tests of the codecs share.
#include "harness/harness.h"
#include "platform/input_file.h"
#include "platform/memory_packfile.h"

namespace nubo {

/// The bytes of a file in tests/files.
inline Bytes test_file(const std::string& name) {
    Bytes bytes;
    read_file(std::string(NUBO_TEST_DATA) + "/" + name, SIZE_MAX, bytes);
    return bytes;
}

inline void append(Bytes& bytes, const Bytes& more) {
    for (const std::uint8_t byte : more) bytes.push_back(byte);
}

/// A palette of 6 bits is widened as v * 255 / 63, which has the bits of v twice.
constexpr int through_six_bits(int v) { return (v >> 2 << 2) | v >> 6; }

/// Colour k of the paletted files, gif_* and png_palette*, and what 6 bits leave of it.
inline Color table_color(int k) { return pack_color(k * 37 % 256, (k * 91 + 50) % 256, (k * 151 + 9) % 256); }
inline Color six_bit_color(int k) {
    return pack_color(through_six_bits(k * 37 % 256), through_six_bits((k * 91 + 50) % 256),
                      through_six_bits((k * 151 + 9) % 256));
}

inline bool same_pixels(BITMAP* a, BITMAP* b) {
    if (a->w != b->w || a->h != b->h) return false;
    for (int y = 0; y < a->h; ++y)
        if (std::memcmp(pixels_at(a, 0, y), pixels_at(b, 0, y), static_cast<std::size_t>(a->w) * sizeof(Color)) != 0)
            return false;
    return true;
}

}  // namespace nubo
