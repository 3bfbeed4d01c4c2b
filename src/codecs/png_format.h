#pragma once
// What the reader and the writer of PNG files share: the format's constants, the record of an image, buffers.
#include "codecs/png.h"
#include <array>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

namespace nubo {

inline constexpr std::array<std::uint8_t, 8> png_signature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
inline constexpr std::size_t png_signature_length = png_signature.size();

/// A chunk's type word, as it stands in the file with its most significant byte first.
constexpr std::uint32_t png_chunk_type(const char (&name)[5]) {
    std::uint32_t word = 0;
    for (int i = 0; i < 4; ++i) word = word << 8 | static_cast<std::uint8_t>(name[i]);
    return word;
}
inline constexpr std::uint32_t png_chunk_header = png_chunk_type("IHDR"), png_chunk_palette = png_chunk_type("PLTE"),
                               png_chunk_alpha = png_chunk_type("tRNS"), png_chunk_animation = png_chunk_type("acTL"),
                               png_chunk_frame = png_chunk_type("fcTL"), png_chunk_pixels = png_chunk_type("IDAT"),
                               png_chunk_frame_pixels = png_chunk_type("fdAT"), png_chunk_end = png_chunk_type("IEND");

inline constexpr std::uint32_t png_header_length = 13;                           // bytes in an IHDR chunk
inline constexpr std::uint32_t png_animation_length = 8, png_frame_length = 26;  // in an acTL, in an fcTL chunk
inline constexpr int palette_entries = 256;

/// What is done with the place of an animation's image before the next comes, and how it is laid there.
enum PngDisposal : int { PNG_STAYS, PNG_TO_CLEAR, PNG_TO_BEFORE, PNG_DISPOSAL_COUNT };
enum PngBlend : int { PNG_REPLACES, PNG_LIES_OVER, PNG_BLEND_COUNT };

enum PngColorType : int {
    PNG_GREY = 0,
    PNG_RGB = 2,
    PNG_PALETTE = 3,
    PNG_GREY_ALPHA = 4,
    PNG_RGB_ALPHA = 6,
};

enum PngFilter : int { PNG_FILTER_NONE, PNG_FILTER_SUB, PNG_FILTER_UP, PNG_FILTER_AVERAGE, PNG_FILTER_PAETH };

/// An image, or one of the seven sub-images of an interlaced one.
struct PngHeader {
    int width = 0, height = 0;  // pixels, 1 to max_frame_side; a sub-image without pixels has 0
    int bit_depth = 0;          // of a sample: 1, 2, 4, 8 or 16
    PngColorType color_type = PNG_GREY;
    bool interlaced = false;
    std::size_t row_bytes = 0;                 // one filtered row, without its filter byte
    bool has_key = false;                      // grey or RGB: pixels of these samples are clear, all others get an
    std::array<std::uint16_t, 3> clear_key{};  // alpha of 255

    /// The bytes of all its rows with their filter bytes.
    std::size_t filtered_size() const { return width == 0 ? 0 : static_cast<std::size_t>(height) * (row_bytes + 1); }
};

/// Samples in a pixel.
constexpr int png_channels(PngColorType type) {
    switch (type) {
    case PNG_GREY:
    case PNG_PALETTE: return 1;
    case PNG_GREY_ALPHA: return 2;
    case PNG_RGB: return 3;
    case PNG_RGB_ALPHA: return 4;
    }
    return 1;
}

constexpr bool png_has_alpha(PngColorType type) { return type == PNG_GREY_ALPHA || type == PNG_RGB_ALPHA; }

/// The bytes of one filtered row, from the header's width and pixel format.
constexpr std::size_t png_row_bytes(const PngHeader& header) {
    return PixelRows{.width = static_cast<std::uint32_t>(header.width),
                     .height = static_cast<std::uint32_t>(header.height),
                     .bits = static_cast<std::size_t>(header.bit_depth * png_channels(header.color_type))}
        .row_bytes();
}

/// Keeps the cause of a failure. Always false, so that a failing function can return it.
inline bool png_fail(const char* cause) {
    png_error = cause;
    return false;
}

struct Freer {
    void operator()(void* memory) const { std::free(memory); }
};
/// Bytes that are not cleared first; null when they can't be had.
using PngBytes = std::unique_ptr<std::uint8_t[], Freer>;
inline PngBytes png_bytes(std::size_t size) {
    return PngBytes(static_cast<std::uint8_t*>(std::malloc(size == 0 ? 1 : size)));
}

/// The predictor of filter 4: of the bytes left, above and corner (above left), the one nearest to p = left + above -
/// corner, the first of them where two are as near. With a corner between the two others, p lies higher - corner away
/// from the lower of them, corner - lower from the higher, and the difference of these from the corner: so the lower is
/// nearest just when 2 * (higher - corner) <= corner - lower, that is higher <= 3 * corner - left - above, and likewise
/// the higher. Two comparisons in place of three distances are a shorter way from pixel to pixel. Words of 16 bits hold
/// all of it, and a vector register holds twice as many of them as of 32.
constexpr std::int16_t png_paeth(std::int16_t left, std::int16_t above, std::int16_t corner) {
    const auto limit = static_cast<std::int16_t>(3 * corner - above - left);
    const std::int16_t lower = left < above ? left : above, higher = left < above ? above : left;
    const std::int16_t inner = higher <= limit ? lower : corner;
    return limit <= lower ? higher : inner;
}

}  // namespace nubo
