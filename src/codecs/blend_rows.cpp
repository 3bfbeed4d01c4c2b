#include "codecs/blend_rows.h"

#include <array>

// The loops below are written once, as the formulas stand, and compiled for each width: the compiler makes code of
// four, eight or sixteen pixels a step of the same lines, so the forms can't differ. (Function multiversioning would
// pick the form by itself, but its resolvers run before a sanitizer is up.)
#if defined(__x86_64__)
#define NUBO_FOR_AVX2 [[gnu::target("avx2")]]
#define NUBO_FOR_AVX512 [[gnu::target("avx512f,avx512bw")]]
#endif
#define NUBO_IN_PLACE [[gnu::always_inline]] inline

namespace nubo {
namespace {

// ---- Formulas ------------------------------------------------------------------------------------------------------

constexpr Color red_blue = 0xff00ff, green = 0x00ff00;
constexpr Color half_bits = 0xfefefe, lowest_bits = 0x010101;

/// The difference may be negative and the product wrap: the masks drop all of it that doesn't belong to a channel.
constexpr Color blend_masked(Color d, Color s, Color fact, Color mask) {
    return ((((s & mask) - (d & mask)) * fact >> 8) + (d & mask)) & mask;
}
constexpr Color blend_blit_pixel(Color d, Color s, Color fact) {
    return blend_masked(d, s, fact, green) | blend_masked(d, s, fact, red_blue);
}
constexpr Color blend_half_pixel(Color d, Color s) {
    return ((d & half_bits) >> 1) + ((s & half_bits) >> 1) + (d & s & lowest_bits);
}

// ---- 32-bit loops --------------------------------------------------------------------------------------------------

NUBO_IN_PLACE void fill_loop(Color* row, int length, Color color, int fact) {
    for (int i = 0; i < length; ++i) row[i] = blend_fill_pixel(row[i], color, fact);
}
NUBO_IN_PLACE void blit_loop(const Color* source, Color* target, int length, int fact) {
    for (int i = 0; i < length; ++i) {
        const Color s = source[i], d = target[i];
        target[i] = s == transparent_color ? d : blend_blit_pixel(d, s, static_cast<Color>(fact));
    }
}
NUBO_IN_PLACE void half_loop(const Color* source, Color* target, int length) {
    for (int i = 0; i < length; ++i) {
        const Color s = source[i], d = target[i];
        target[i] = s == transparent_color ? d : blend_half_pixel(d, s);
    }
}

// ---- 32-bit forms --------------------------------------------------------------------------------------------------

void fill_plain(Color* row, int length, Color color, int fact) { fill_loop(row, length, color, fact); }
void blit_plain(const Color* source, Color* target, int length, int fact) { blit_loop(source, target, length, fact); }
void half_plain(const Color* source, Color* target, int length) { half_loop(source, target, length); }

#ifdef NUBO_FOR_AVX2
NUBO_FOR_AVX2 void fill_avx2(Color* row, int length, Color color, int fact) { fill_loop(row, length, color, fact); }
NUBO_FOR_AVX2 void blit_avx2(const Color* source, Color* target, int length, int fact) {
    blit_loop(source, target, length, fact);
}
NUBO_FOR_AVX2 void half_avx2(const Color* source, Color* target, int length) { half_loop(source, target, length); }

NUBO_FOR_AVX512 void fill_avx512(Color* row, int length, Color color, int fact) { fill_loop(row, length, color, fact); }
NUBO_FOR_AVX512 void blit_avx512(const Color* source, Color* target, int length, int fact) {
    blit_loop(source, target, length, fact);
}
NUBO_FOR_AVX512 void half_avx512(const Color* source, Color* target, int length) { half_loop(source, target, length); }
#endif

constexpr std::array forms{
    BlendRows{"plain", fill_plain, blit_plain, half_plain},
#ifdef NUBO_FOR_AVX2
    BlendRows{"avx2", fill_avx2, blit_avx2, half_avx2},
    BlendRows{"avx512", fill_avx512, blit_avx512, half_avx512},
#endif
};

/// How many of the forms, each of which asks for all that the one before it does, this processor runs.
std::size_t usable_forms() {
#ifdef NUBO_FOR_AVX2
    if (__builtin_cpu_supports("avx2") == 0) return 1;
    return __builtin_cpu_supports("avx512f") != 0 && __builtin_cpu_supports("avx512bw") != 0 ? 3 : 2;
#else
    return 1;
#endif
}

// ---- Narrow formulas -----------------------------------------------------------------------------------------------

constexpr std::uint32_t spread_pixel(const NarrowDepth& depth, std::uint32_t pixel) {
    return (pixel | pixel << 16) & depth.spread;
}
constexpr std::uint16_t fold_pixel(std::uint32_t spread) { return static_cast<std::uint16_t>(spread | spread >> 16); }

}  // namespace

std::span<const BlendRows> blend_row_forms() {
    static const std::size_t usable = usable_forms();
    return std::span(forms).first(usable);
}

const BlendRows& blend_rows() { return blend_row_forms().back(); }

void fill_narrow_row(const NarrowDepth& depth, std::uint16_t* row, int length, std::uint16_t color, int s) {
    const std::uint32_t mask = depth.spread, strength = static_cast<std::uint32_t>(s), rest = narrow_full - strength;
    const std::uint32_t added = (spread_pixel(depth, color) * strength >> narrow_shift) & mask;
    for (int i = 0; i < length; ++i)
        row[i] = fold_pixel(((spread_pixel(depth, row[i]) * rest >> narrow_shift) & mask) + added);
}

void blit_narrow_row(const NarrowDepth& depth, const std::uint16_t* source, std::uint16_t* target, int length, int s) {
    const std::uint16_t key = depth.color_key;
    for (int i = 0; i < length; ++i) {
        const std::uint32_t d = spread_pixel(depth, target[i]);
        const std::uint32_t p = source[i] == key ? d : spread_pixel(depth, source[i]);
        target[i] = fold_pixel((((p - d) * static_cast<std::uint32_t>(s) >> narrow_shift) + d) & depth.spread);
    }
}

}  // namespace nubo
