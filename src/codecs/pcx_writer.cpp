// Writing a PCX: three planes a row, each packed by itself.
#include "codecs/growing_bytes.h"
#include "codecs/pcx.h"

#include <array>
#include <vector>

namespace nubo {
namespace {

constexpr std::size_t head_bytes = 128;

std::array<std::uint8_t, head_bytes> make_head(int width, int height, std::size_t row_bytes) {
    constexpr int dots_per_inch = 72;
    std::array<std::uint8_t, head_bytes> head{};
    const auto put = [&](std::size_t at, std::size_t word) {
        head[at] = static_cast<std::uint8_t>(word);
        head[at + 1] = static_cast<std::uint8_t>(word >> 8);
    };
    head[0] = 10;  // the signature
    head[1] = 5;   // version, with any number of colours
    head[2] = 1;   // packed
    head[3] = 8;   // bits of a pixel in each plane
    put(8, static_cast<std::size_t>(width) - 1);
    put(10, static_cast<std::size_t>(height) - 1);
    put(12, dots_per_inch);
    put(14, dots_per_inch);
    head[65] = 3;  // planes
    put(66, row_bytes);
    head[68] = 1;  // colours, not grays
    return head;
}

/// Packs one plane of a row; `to` has room for twice its bytes. The end of what was written. Runs are of up to 63
/// bytes; a byte of 0xc0 or more would be taken for a run's length, and is a run of one.
std::uint8_t* pack_plane(const std::vector<std::uint8_t>& plane, std::uint8_t* to) {
    constexpr std::uint8_t run_bits = 0xc0;
    constexpr std::size_t longest_run = 63;
    for (std::size_t at = 0; at < plane.size();) {
        const std::uint8_t value = plane[at];
        std::size_t run = 1;
        while (run < longest_run && at + run < plane.size() && plane[at + run] == value) ++run;
        if (run > 1 || value >= run_bits) *to++ = static_cast<std::uint8_t>(run_bits | run);
        *to++ = value;
        at += run;
    }
    return to;
}

}  // namespace

bool write_pcx(BITMAP* bitmap, Bytes& bytes) {
    const auto row_bytes = static_cast<std::size_t>(bitmap->w + bitmap->w % 2);  // an even number is asked for
    if (row_bytes > 0xffff) return false;
    const auto head = make_head(bitmap->w, bitmap->h, row_bytes);
    std::vector<std::uint8_t> plane(row_bytes);
    GrowingBytes packed;
    for (int y = 0; y < bitmap->h; ++y) {
        const Color* const pixels = pixels_at(bitmap, 0, y);
        for (const int shift : {16, 8, 0}) {
            for (std::size_t x = 0; x < static_cast<std::size_t>(bitmap->w); ++x)
                plane[x] = static_cast<std::uint8_t>(pixels[x] >> shift);
            if (!packed.make_room(2 * row_bytes)) return false;
            packed.advance(static_cast<std::size_t>(pack_plane(plane, packed.end()) - packed.end()));
        }
    }
    bytes.insert(bytes.end(), head.begin(), head.end());
    bytes.insert(bytes.end(), packed.data(), packed.end());
    return true;
}

}  // namespace nubo
