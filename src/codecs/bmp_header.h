#pragma once
// The head of a BMP file: everything in front of its pixels, checked.
#include "codecs/read_picture.h"
#include "state/colors.h"
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace nubo {

enum BmpPacking : int { BMP_PLAIN = 0, BMP_RLE8 = 1, BMP_RLE4 = 2, BMP_BITFIELDS = 3, BMP_ALPHA_BITFIELDS = 6 };

struct BmpHeader {
    int width = 0, height = 0;  // 1 to `max_frame_side`
    bool top_down = false;      // the first row of the file is the top one
    int bits = 0;               // of a pixel: 1, 4, 8, 16, 24, 32
    int packing = BMP_PLAIN;
    std::size_t pixels_at = 0;             // offset of the first pixel, inside the file
    std::array<Color, 256> palette{};      // black where the file names no colour
    std::array<std::uint32_t, 3> masks{};  // bits of red, green, blue, at 16 and 32 bits
    std::uint32_t alpha_mask = 0;          // 0: there is no alpha

    PixelRows rows() const {
        return {.width = static_cast<std::uint32_t>(width),
                .height = static_cast<std::uint32_t>(height),
                .bits = static_cast<std::size_t>(bits),
                .unit = 4};
    }
    bool is_run_length() const { return packing == BMP_RLE8 || packing == BMP_RLE4; }
};

inline constexpr std::size_t bmp_head_limit = 4096;  // the longest head known, 124 bytes, with masks and palette fits

/// Reads and checks the head: the first bytes of a file, at most `bmp_head_limit`. Null if it may be believed, else
/// what is wrong with it.
const char* read_bmp_header(const std::vector<std::uint8_t>& bytes, std::size_t file_size, BmpHeader& header);

}  // namespace nubo
