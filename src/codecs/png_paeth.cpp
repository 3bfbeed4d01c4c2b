#include "codecs/png_paeth.h"

#include "codecs/png_format.h"
#include <array>
#include <cstring>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace nubo {
namespace {

/// The pixel's bytes are carried in registers from one pixel to the next; through memory the way would be longer.
template <int step> void undo_row(std::uint8_t* row, const std::uint8_t* above, std::size_t size) {
    std::array<std::int16_t, step> left{}, corner{};
    for (std::size_t i = 0; i + step <= size; i += step)
        for (std::size_t k = 0; k < step; ++k) {
            const std::int16_t up = above[i + k];
            row[i + k] = static_cast<std::uint8_t>(row[i + k] + png_paeth(left[k], up, corner[k]));
            left[k] = row[i + k];
            corner[k] = up;
        }
}

#ifdef __SSE2__
// Four rows go as a wave, each one pixel behind the row above it: what a row needs from there has just been worked out,
// and four pixels wait together for their left neighbours instead of one after the other. A register holds the pixels
// of two rows as words of 16 bits.

int load_pixel(const std::uint8_t* bytes, int step) {
    std::uint16_t low = 0, high = bytes[2];  // a copy of 3 bytes would go through memory
    std::memcpy(&low, bytes, sizeof low);
    if (step == 4) std::memcpy(&high, bytes + 2, sizeof high);
    return low | high << 16;
}

void store_pixel(int pixel, std::uint8_t* bytes, int step) {
    std::memcpy(bytes, &pixel, sizeof(std::uint16_t));
    bytes[2] = static_cast<std::uint8_t>(pixel >> 16);
    if (step == 4) bytes[3] = static_cast<std::uint8_t>(pixel >> 24);
}

__m128i choose(__m128i condition, __m128i yes, __m128i no) {
    return _mm_or_si128(_mm_and_si128(condition, yes), _mm_andnot_si128(condition, no));
}

/// `png_paeth` on eight words.
__m128i predict(__m128i left, __m128i above, __m128i corner) {
    const __m128i corner_thrice = _mm_add_epi16(corner, _mm_add_epi16(corner, corner));
    const __m128i limit = _mm_sub_epi16(_mm_sub_epi16(corner_thrice, above), left);
    const __m128i lower = _mm_min_epi16(left, above), higher = _mm_max_epi16(left, above);
    const __m128i inner = choose(_mm_cmpgt_epi16(higher, limit), corner, lower);
    return choose(_mm_cmpgt_epi16(limit, lower), inner, higher);
}

template <int step> class Wave {
public:
    Wave(std::uint8_t* first, std::size_t stride, const std::uint8_t* above, std::size_t size)
        : above_(above), size_(static_cast<std::ptrdiff_t>(size)) {
        for (std::size_t k = 0; k < rows_.size(); ++k) rows_[k] = first + k * stride - k * step;
    }

    void run() {
        constexpr std::ptrdiff_t behind = (png_paeth_rows - 1) * step;  // the last row's distance to the first
        std::ptrdiff_t at = 0;
        for (; at < behind; at += step) advance<false>(at);
        for (; at < size_; at += step) advance<true>(at);
        for (; at < size_ + behind; at += step) advance<false>(at);
    }

private:
    /// One pixel of each row, of the first the one at byte `at`. `inside`: all four are within their rows; where one is
    /// not, it counts as 0, which is what stands left of a row.
    template <bool inside> void advance(std::ptrdiff_t at) {
        const auto is_in = [&](int k) { return inside || (at >= k * step && at < size_ + k * step); };
        const auto difference = [&](int k) { return is_in(k) ? load_pixel(row(k) + at, step) : 0; };
        const __m128i zero = _mm_setzero_si128();
        const __m128i differences = _mm_set_epi32(difference(3), difference(2), difference(1), difference(0));
        const __m128i top = _mm_unpacklo_epi8(_mm_cvtsi32_si128(is_in(0) ? load_pixel(above_ + at, step) : 0), zero);
        const __m128i up_front = _mm_unpacklo_epi64(top, front_);  // a row's above is its upper neighbour's last pixel
        const __m128i up_back = _mm_unpacklo_epi64(_mm_unpackhi_epi64(front_, front_), back_);
        front_ = _mm_add_epi8(_mm_unpacklo_epi8(differences, zero), predict(front_, up_front, corner_front_));
        back_ = _mm_add_epi8(_mm_unpackhi_epi8(differences, zero), predict(back_, up_back, corner_back_));
        corner_front_ = up_front;
        corner_back_ = up_back;
        std::array<int, png_paeth_rows> pixels;
        _mm_storeu_si128(reinterpret_cast<__m128i*>(pixels.data()), _mm_packus_epi16(front_, back_));
        for (int k = 0; k < png_paeth_rows; ++k)
            if (is_in(k)) store_pixel(pixels[static_cast<std::size_t>(k)], row(k) + at, step);
    }

    std::uint8_t* row(int k) { return rows_[static_cast<std::size_t>(k)]; }

    std::array<std::uint8_t*, png_paeth_rows> rows_;  // each set back by its distance to the first
    const std::uint8_t* above_;
    std::ptrdiff_t size_;
    __m128i front_ = _mm_setzero_si128(), back_ = front_;  // the last pixels of rows 0 and 1, 2 and 3
    __m128i corner_front_ = front_, corner_back_ = front_;
};
#endif

}  // namespace

void png_undo_paeth(std::uint8_t* row, const std::uint8_t* above, std::size_t size, std::size_t step) {
    switch (step) {
    case 1: return undo_row<1>(row, above, size);
    case 2: return undo_row<2>(row, above, size);
    case 3: return undo_row<3>(row, above, size);
    case 4: return undo_row<4>(row, above, size);
    case 6: return undo_row<6>(row, above, size);
    case 8: return undo_row<8>(row, above, size);
    }
}

void png_undo_paeth_rows(std::uint8_t* first, std::size_t stride, const std::uint8_t* above, std::size_t size,
                         std::size_t step) {
#ifdef __SSE2__
    if (step == 3) return Wave<3>(first, stride, above, size).run();
    if (step == 4) return Wave<4>(first, stride, above, size).run();
#endif
    for (int k = 0; k < png_paeth_rows; ++k, above = first, first += stride) png_undo_paeth(first, above, size, step);
}

}  // namespace nubo
