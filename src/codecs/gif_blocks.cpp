#include "codecs/gif_blocks.h"

#include "base/bitmap.h"
#include "base/color.h"
#include "codecs/gif_lzw.h"

#include <algorithm>
#include <climits>
#include <cstring>

namespace nubo {
namespace {

enum GifBlock : int { GIF_BLOCK_EXTENSION = 0x21, GIF_BLOCK_IMAGE = ',', GIF_BLOCK_TRAILER = ';' };
enum GifExtension : int { GIF_GRAPHIC_CONTROL = 0xf9, GIF_APPLICATION = 0xff };

// Bits of flag bytes.
constexpr int has_color_table = 0x80, table_size_bits = 0x07, is_interlaced = 0x40, is_transparent = 0x01;
constexpr int disposal_shift = 2, disposal_bits = 0x07;

// An image that its end code ends early is filled up with index 0, but not to any size that its header may claim.
constexpr std::size_t largest_unfinished = std::size_t{1} << 24;

// ---- Bytes and blocks ----------------------------------------------------------------------------------------------

template <std::size_t count> bool read_bytes(PACKFILE* file, std::array<std::uint8_t, count>& bytes) {
    return pack_fread(bytes.data(), static_cast<long>(count), file) == static_cast<long>(count);
}

template <std::size_t count> int word_at(const std::array<std::uint8_t, count>& bytes, std::size_t at) {
    return bytes[at] | bytes[at + 1] << 8;
}

bool read_color_table(GifFile& gif, int flags) {
    if ((flags & has_color_table) == 0) return true;
    const int entries = 1 << ((flags & table_size_bits) + 1);
    for (int i = 0; i < entries; ++i) {
        std::array<std::uint8_t, 3> color{};
        if (!read_bytes(gif.file, color)) return false;
        const auto six_bits = [&](std::size_t k) { return static_cast<unsigned char>(color[k] >> 2); };
        gif.palette[static_cast<std::size_t>(i)] = RGB{six_bits(0), six_bits(1), six_bits(2), 0};
        gif.colors[static_cast<std::size_t>(i)] = pack_color(color[0], color[1], color[2]);
    }
    return true;
}

bool skip_sub_blocks(PACKFILE* file) {
    for (int size = pack_getc(file); size != 0; size = pack_getc(file))
        if (size == EOF || pack_fseek(file, size) != 0) return false;
    return true;
}

bool read_graphic_control(GifFile& gif) {
    std::array<std::uint8_t, 5> bytes{};  // the block's size, flags, delay (2), transparent index
    if (!read_bytes(gif.file, bytes)) return false;
    gif.transparent = (bytes[1] & is_transparent) != 0 ? bytes[4] : gif_no_transparency;
    gif.disposal = bytes[1] >> disposal_shift & disposal_bits;
    gif.delay = word_at(bytes, 2);
    return skip_sub_blocks(gif.file);  // the terminator, as a rule
}

/// Gathers an image's data, or an extension. Data that the file's end cuts off counts as far as it goes: the decoder
/// knows if it does.
bool read_data(PACKFILE* file, GrowingBytes& data) {
    for (int size = pack_getc(file); size != 0 && size != EOF; size = pack_getc(file)) {
        if (!data.make_room(static_cast<std::size_t>(size))) return false;
        const long got = pack_fread(data.end(), size, file);
        if (got < 0) return false;
        data.advance(static_cast<std::size_t>(got));
    }
    return true;
}

/// How often an animation plays stands in a block that a program has named after itself first, and others since.
bool read_application(GifFile& gif) {
    constexpr std::size_t name_bytes = 11, kind_at = name_bytes, loops_at = kind_at + 1, size = loops_at + 2;
    GrowingBytes block;
    if (!read_data(gif.file, block)) return false;
    const auto is_named = [&](const char* name) { return std::memcmp(block.data(), name, name_bytes) == 0; };
    if (block.size() < size || !(is_named("NETSCAPE2.0") || is_named("ANIMEXTS1.0"))) return true;
    if (block.data()[kind_at] != 1) return true;
    gif.has_loop = true;
    gif.loops = block.data()[loops_at] | block.data()[loops_at + 1] << 8;
    return true;
}

bool read_extension(GifFile& gif) {
    const int kind = pack_getc(gif.file);
    if (kind == GIF_GRAPHIC_CONTROL) return read_graphic_control(gif);
    if (kind == GIF_APPLICATION) return read_application(gif);
    return skip_sub_blocks(gif.file);
}

/// How much of an image's side lies on the screen. A screen without a size cuts nothing off.
int side_on_screen(int side, int start, int screen_side) {
    return screen_side == 0 ? side : std::min(side, screen_side - start);
}

// ---- Indexes to bitmap ---------------------------------------------------------------------------------------------

struct InterlacePass {
    int first, step;  // rows
};
constexpr std::array<InterlacePass, 4> interlace_passes{{{0, 8}, {4, 8}, {2, 4}, {1, 2}}};
constexpr std::array<InterlacePass, 1> plain_pass{{{0, 1}}};

OwnedBitmap spread_rows(const GifFile& gif, const std::uint8_t* indexes) {
    OwnedBitmap bitmap(create_bitmap_ex(8, gif.shown_w, gif.shown_h));
    if (!bitmap) return nullptr;
    const std::span<const InterlacePass> passes =
        gif.interlaced ? std::span<const InterlacePass>(interlace_passes) : std::span<const InterlacePass>(plain_pass);
    for (const InterlacePass& pass : passes)
        for (int y = pass.first; y < gif.height; y += pass.step, indexes += gif.width)
            if (y < gif.shown_h) std::memcpy(bitmap->line[y], indexes, static_cast<std::size_t>(gif.shown_w));
    return bitmap;
}

}  // namespace

bool read_gif_start(GifFile& gif) {
    std::array<std::uint8_t, 6> signature{};  // with the version, any of which will do
    std::array<std::uint8_t, 7> screen{};     // width, height, flags, background, aspect
    if (!read_bytes(gif.file, signature) || std::memcmp(signature.data(), "GIF", 3) != 0) return false;
    if (!read_bytes(gif.file, screen)) return false;
    gif.screen_width = word_at(screen, 0);
    gif.screen_height = word_at(screen, 2);
    return read_color_table(gif, screen[4]);
}

bool find_gif_image(GifFile& gif) {
    for (int block = pack_getc(gif.file); block != GIF_BLOCK_IMAGE; block = pack_getc(gif.file)) {
        if (block == EOF || block == GIF_BLOCK_TRAILER) return false;
        if (block != GIF_BLOCK_EXTENSION) continue;  // padding, which some files have between blocks
        if (!read_extension(gif)) return false;
    }
    return true;
}

bool read_gif_descriptor(GifFile& gif) {
    std::array<std::uint8_t, 9> bytes{};  // left, top, width, height, flags
    if (!read_bytes(gif.file, bytes)) return false;
    gif.width = word_at(bytes, 4);
    gif.height = word_at(bytes, 6);
    gif.interlaced = (bytes[8] & is_interlaced) != 0;
    if (gif.width == 0 || gif.height == 0) return false;
    gif.left = word_at(bytes, 0);
    gif.top = word_at(bytes, 2);
    gif.shown_w = side_on_screen(gif.width, gif.left, gif.screen_width);
    gif.shown_h = side_on_screen(gif.height, gif.top, gif.screen_height);
    const auto width = static_cast<std::size_t>(gif.width), height = static_cast<std::size_t>(gif.height);
    // Allegro works out the bytes of a bitmap in an int.
    if (size_fault(width, height) != nullptr || width * height > INT_MAX / sizeof(Color)) return false;
    return read_color_table(gif, bytes[8]);
}

OwnedBitmap read_gif_pixels(GifFile& gif) {
    const std::size_t pixels = static_cast<std::size_t>(gif.width) * static_cast<std::size_t>(gif.height);
    const int minimum_bits = pack_getc(gif.file);
    GrowingBytes data, indexes;
    if (minimum_bits == EOF || !read_data(gif.file, data)) return nullptr;
    if (!decode_gif_indexes({data.data(), data.size()}, minimum_bits, pixels, indexes)) return nullptr;
    const std::size_t missing = pixels - indexes.size();
    if (missing > 0) {
        if (pixels > largest_unfinished || !indexes.make_room(missing)) return nullptr;
        std::memset(indexes.end(), 0, missing);
    }
    return spread_rows(gif, indexes.data());
}

bool skip_gif_pixels(PACKFILE* file) {
    constexpr int minimum_bits_byte = 1;
    return pack_fseek(file, minimum_bits_byte) == 0 && skip_sub_blocks(file);
}

bool skip_gif_image(PACKFILE* file) {
    std::array<std::uint8_t, 9> bytes{};
    if (!read_bytes(file, bytes)) return false;
    const int table_bytes = (bytes[8] & has_color_table) != 0 ? 3 << ((bytes[8] & table_size_bits) + 1) : 0;
    return pack_fseek(file, table_bytes) == 0 && skip_gif_pixels(file);
}

}  // namespace nubo
