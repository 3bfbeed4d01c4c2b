#include "codecs/rgb_rows.h"

#if defined(__x86_64__)
#include <tmmintrin.h>
#endif

namespace nubo {
namespace {

#if defined(__x86_64__)
/// Four pixels a step. The last steps write past their twelve bytes, into those of the next pixels: a row's last four
/// pixels are left to the plain way. How many pixels were packed.
__attribute__((target("ssse3"))) int pack_by_shuffle(const Color* from, std::uint8_t* to, int width, ByteOrder order) {
    const __m128i bytes = order == BYTES_BGR ? _mm_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1)
                                             : _mm_setr_epi8(2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1);
    int i = 0;
    for (; i + 8 <= width; i += 4, to += 12) {
        const __m128i pixels = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + i));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm_shuffle_epi8(pixels, bytes));
    }
    return i;
}

/// The reverse, with the same care at the end of a row.
__attribute__((target("ssse3"))) int unpack_by_shuffle(const std::uint8_t* from, Color* to, int width,
                                                       ByteOrder order) {
    const __m128i pixels = order == BYTES_BGR ? _mm_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1)
                                              : _mm_setr_epi8(2, 1, 0, -1, 5, 4, 3, -1, 8, 7, 6, -1, 11, 10, 9, -1);
    int i = 0;
    for (; i + 8 <= width; i += 4, from += 12) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to + i), _mm_shuffle_epi8(bytes, pixels));
    }
    return i;
}

const bool has_shuffle = __builtin_cpu_supports("ssse3") != 0;
#else
constexpr bool has_shuffle = false;
int pack_by_shuffle(const Color*, std::uint8_t*, int, ByteOrder) { return 0; }
int unpack_by_shuffle(const std::uint8_t*, Color*, int, ByteOrder) { return 0; }
#endif

}  // namespace

void pack_row(const Color* from, std::uint8_t* to, int width, ByteOrder order) {
    int i = has_shuffle ? pack_by_shuffle(from, to, width, order) : 0;
    const int first_shift = order == BYTES_RGB ? 16 : 0;
    for (to += i * 3; i < width; ++i, to += 3) {
        to[0] = static_cast<std::uint8_t>(from[i] >> first_shift);
        to[1] = static_cast<std::uint8_t>(from[i] >> 8);
        to[2] = static_cast<std::uint8_t>(from[i] >> (16 - first_shift));
    }
}

void unpack_row(const std::uint8_t* from, Color* to, int width, ByteOrder order) {
    int i = has_shuffle ? unpack_by_shuffle(from, to, width, order) : 0;
    const int first_shift = order == BYTES_RGB ? 16 : 0;
    for (from += i * 3; i < width; ++i, from += 3)
        to[i] = static_cast<Color>(from[0] << first_shift | from[1] << 8 | from[2] << (16 - first_shift));
}

}  // namespace nubo
