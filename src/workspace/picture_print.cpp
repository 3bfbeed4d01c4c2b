#include "workspace/picture_print.h"

#include "base/bitmap.h"
#include <array>
#include <cstring>

namespace nubo {

// Four lanes, so that the multiplications don't wait for each other.
Print print_of(BITMAP* picture) {
    constexpr std::uint64_t prime = 0x9e3779b97f4a7c15, color_bits = 0x00ffffff00ffffff;
    constexpr int lanes = 4, lane_pixels = 2;
    std::array<std::uint64_t, lanes> hash{1, 2, 3, static_cast<std::uint64_t>(picture->w)};
    for (int y = 0; y < picture->h; ++y) {
        const Color* const row = pixels_at(picture, 0, y);
        int x = 0;
        for (; x + lanes * lane_pixels <= picture->w; x += lanes * lane_pixels) {
            std::array<std::uint64_t, lanes> words{};
            std::memcpy(words.data(), row + x, sizeof words);
            for (std::size_t i = 0; i < lanes; ++i)
                hash[i] = (hash[i] ^ (words[i] & color_bits)) * prime, hash[i] ^= hash[i] >> 32;
        }
        for (; x < picture->w; ++x)
            hash[0] = (hash[0] ^ (row[x] & static_cast<Color>(color_bits))) * prime, hash[0] ^= hash[0] >> 32;
    }
    return ((hash[0] * prime + hash[1]) * prime + hash[2]) * prime + hash[3];
}

}  // namespace nubo
