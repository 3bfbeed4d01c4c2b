// Reading a GIF: its blocks up to the first image, the indexes decoded, the bitmap brought to the depth asked for.
#include "base/bitmap.h"
#include "base/color.h"
#include "codecs/gif.h"
#include "codecs/gif_lzw.h"

#include <algorithm>
#include <allegro/internal/aintern.h>
#include <climits>
#include <cstring>
#include <optional>

namespace nubo {
namespace {

enum GifBlock : int { GIF_BLOCK_EXTENSION = 0x21, GIF_BLOCK_IMAGE = ',', GIF_BLOCK_TRAILER = ';' };
constexpr int graphic_control = 0xf9;  // the one extension that matters to us

// Bits of flag bytes.
constexpr int has_color_table = 0x80, table_size_bits = 0x07, is_interlaced = 0x40, is_transparent = 0x01;

constexpr int palette_entries = 256, no_transparency = -1;

// An image that its end code ends early is filled up with index 0, but not to any size that its header may claim.
constexpr std::size_t largest_unfinished = std::size_t{1} << 24;

/// What the file has told so far.
struct GifFile {
    PACKFILE* file;
    bool is_plain = false;                        // 32 bits are wanted, with exact colours
    std::array<RGB, palette_entries> palette{};   // 6 bits a channel
    std::array<Color, palette_entries> colors{};  // the same, exact
    int screen_width = 0, screen_height = 0;
    int transparent = no_transparency;  // index
    int width = 0, height = 0;          // of the image
    int shown_w = 0, shown_h = 0;       // of its part on the screen, which becomes the bitmap
    bool interlaced = false;
};

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

bool read_start(GifFile& gif) {
    std::array<std::uint8_t, 6> signature{};  // with the version, any of which will do
    std::array<std::uint8_t, 7> screen{};     // width, height, flags, background, aspect
    if (!read_bytes(gif.file, signature) || std::memcmp(signature.data(), "GIF", 3) != 0) return false;
    if (!read_bytes(gif.file, screen)) return false;
    gif.screen_width = word_at(screen, 0);
    gif.screen_height = word_at(screen, 2);
    return read_color_table(gif, screen[4]);
}

bool skip_sub_blocks(PACKFILE* file) {
    for (int size = pack_getc(file); size != 0; size = pack_getc(file))
        if (size == EOF || pack_fseek(file, size) != 0) return false;
    return true;
}

bool read_graphic_control(GifFile& gif) {
    std::array<std::uint8_t, 5> bytes{};  // the block's size, flags, delay (2), transparent index
    if (!read_bytes(gif.file, bytes)) return false;
    gif.transparent = (bytes[1] & is_transparent) != 0 ? bytes[4] : no_transparency;
    return skip_sub_blocks(gif.file);  // the terminator, as a rule
}

/// Walks to the first image descriptor. False when the file ends before.
bool find_image(GifFile& gif) {
    for (int block = pack_getc(gif.file); block != GIF_BLOCK_IMAGE; block = pack_getc(gif.file)) {
        if (block == EOF || block == GIF_BLOCK_TRAILER) return false;
        if (block != GIF_BLOCK_EXTENSION) continue;  // padding, which some files have between blocks
        const bool read =
            pack_getc(gif.file) == graphic_control ? read_graphic_control(gif) : skip_sub_blocks(gif.file);
        if (!read) return false;
    }
    return true;
}

/// How much of an image's side lies on the screen. A screen without a size cuts nothing off.
int side_on_screen(int side, int start, int screen_side) {
    return screen_side == 0 ? side : std::min(side, screen_side - start);
}

bool read_descriptor(GifFile& gif) {
    std::array<std::uint8_t, 9> bytes{};  // left, top, width, height, flags
    if (!read_bytes(gif.file, bytes)) return false;
    gif.width = word_at(bytes, 4);
    gif.height = word_at(bytes, 6);
    gif.interlaced = (bytes[8] & is_interlaced) != 0;
    if (gif.width == 0 || gif.height == 0) return false;
    gif.shown_w = side_on_screen(gif.width, word_at(bytes, 0), gif.screen_width);
    gif.shown_h = side_on_screen(gif.height, word_at(bytes, 2), gif.screen_height);
    if (gif.shown_w < 1 || gif.shown_h < 1) return false;
    const auto width = static_cast<std::size_t>(gif.width), height = static_cast<std::size_t>(gif.height);
    // Allegro works out the bytes of a bitmap in an int.
    if (size_fault(width, height) != nullptr || width * height > INT_MAX / sizeof(Color)) return false;
    return read_color_table(gif, bytes[8]);
}

/// Gathers the image's data. Data that the file's end cuts off counts as far as it goes: the decoder knows if it does.
bool read_data(PACKFILE* file, GrowingBytes& data) {
    for (int size = pack_getc(file); size != 0 && size != EOF; size = pack_getc(file)) {
        if (!data.make_room(static_cast<std::size_t>(size))) return false;
        const long got = pack_fread(data.end(), size, file);
        if (got < 0) return false;
        data.advance(static_cast<std::size_t>(got));
    }
    return true;
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

OwnedBitmap read_pixels(GifFile& gif) {
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

/// Makes index 0 the transparent one: it and the file's change places.
void move_transparency_to_zero(GifFile& gif, BITMAP* bitmap) {
    gif.palette[static_cast<std::size_t>(gif.transparent)] = gif.palette[0];
    const std::uint8_t transparent = static_cast<std::uint8_t>(gif.transparent);
    for (int y = 0; y < bitmap->h; ++y)
        for (int x = 0; x < bitmap->w; ++x) {
            std::uint8_t& index = bitmap->line[y][x];
            index = index == transparent ? 0 : index == 0 ? transparent : index;
        }
}

OwnedBitmap convert_bitmap(GifFile& gif, OwnedBitmap indexed) {
    const int depth = _color_load_depth(8, 0);
    if (depth == 8) return indexed;
    OwnedBitmap bitmap(create_bitmap_ex(depth, gif.shown_w, gif.shown_h));
    if (!bitmap) return nullptr;
    select_palette(gif.palette.data());
    if (gif.transparent != no_transparency) {
        clear_to_color(bitmap.get(), makecol_depth(depth, 255, 0, 255));
        draw_sprite(bitmap.get(), indexed.get(), 0, 0);
    } else {
        blit(indexed.get(), bitmap.get(), 0, 0, 0, 0, gif.shown_w, gif.shown_h);
    }
    unselect_palette();
    return bitmap;
}

/// The image in its exact colours; what is transparent is magenta.
OwnedBitmap colors_of_indexes(GifFile& gif, BITMAP* indexed) {
    if (gif.transparent != no_transparency)
        gif.colors[static_cast<std::size_t>(gif.transparent)] = pack_color(255, 0, 255);
    OwnedBitmap bitmap = make_uncleared_bitmap(indexed->w, indexed->h);
    for (int y = 0; bitmap && y < bitmap->h; ++y)
        std::transform(indexed->line[y], indexed->line[y] + indexed->w, pixels_at(bitmap.get(), 0, y),
                       [&](std::uint8_t index) { return gif.colors[index]; });
    return bitmap;
}

/// Goes over the image that find_image has found.
bool skip_image(PACKFILE* file) {
    std::array<std::uint8_t, 9> bytes{};
    if (!read_bytes(file, bytes)) return false;
    const int table_bytes = (bytes[8] & has_color_table) != 0 ? 3 << ((bytes[8] & table_size_bits) + 1) : 0;
    constexpr int minimum_bits_byte = 1;
    return pack_fseek(file, table_bytes + minimum_bits_byte) == 0 && skip_sub_blocks(file);
}

OwnedBitmap read_image(GifFile& gif) {
    if (!read_start(gif) || !find_image(gif) || !read_descriptor(gif)) return nullptr;
    OwnedBitmap bitmap = read_pixels(gif);
    if (!bitmap) return nullptr;
    if (gif.is_plain) return colors_of_indexes(gif, bitmap.get());
    if (gif.transparent > 0) move_transparency_to_zero(gif, bitmap.get());
    return convert_bitmap(gif, std::move(bitmap));
}

}  // namespace

BITMAP* load_gif_pf(PACKFILE* file, RGB* palette) {
    GifFile gif{file};
    if (palette != nullptr) std::copy_n(palette, palette_entries, gif.palette.begin());
    OwnedBitmap bitmap = read_image(gif);
    if (bitmap && palette != nullptr) std::copy(gif.palette.begin(), gif.palette.end(), palette);
    return bitmap.release();
}

ReadPicture read_gif(FileBytes bytes) {
    PACKFILE* const file = open_for_reading(bytes);
    if (file == nullptr) return {nullptr, "there isn't memory enough"};
    GifFile gif{.file = file, .is_plain = true};
    ReadPicture picture = plain_picture(read_image(gif), "it is no GIF file, or is damaged");
    while (picture.bitmap && find_image(gif) && skip_image(file)) ++picture.loss.images;
    pack_fclose(file);
    return picture;
}

BITMAP* load_gif(const char* path, RGB* palette) {
    PACKFILE* const file = pack_fopen(path, "r");
    if (file == nullptr) return nullptr;
    BITMAP* const bitmap = load_gif_pf(file, palette);
    pack_fclose(file);
    return bitmap;
}

}  // namespace nubo
