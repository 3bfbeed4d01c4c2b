#pragma once
// What the tests of the codecs share.
#include "base/bitmap.h"
#include "platform/input_file.h"
#include "platform/memory_packfile.h"
#include <cstring>
#include <string>

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

inline bool same_pixels(BITMAP* a, BITMAP* b) {
    if (a->w != b->w || a->h != b->h) return false;
    for (int y = 0; y < a->h; ++y)
        if (std::memcmp(pixels_at(a, 0, y), pixels_at(b, 0, y), static_cast<std::size_t>(a->w) * sizeof(Color)) != 0)
            return false;
    return true;
}

}  // namespace nubo
