// Reading a PNG: its chunks one after the other, the data inflated, the bitmap brought to the depth asked for.
#include "base/color.h"
#include "codecs/png_chunks.h"
#include "codecs/png_octree.h"

#include <algorithm>
#include <allegro/internal/aintern.h>

namespace nubo {
namespace {

/// Walks to the first data chunk, whose start is returned.
std::optional<PngChunkStart> read_up_to_data(PngFile& png) {
    std::optional<PngChunkStart> chunk = read_png_chunk_start(png.file);
    while (chunk && chunk->type != png_chunk_pixels) {
        chunk = read_png_chunk(png, *chunk) ? read_png_chunk_start(png.file) : std::nullopt;
    }
    if (chunk && png.header.color_type == PNG_PALETTE && !png.has_palette)
        return png_fail("Palette required but not found!"), std::nullopt;
    return chunk;
}

/// Gathers the data chunks from `chunk` on; `chunk` becomes the start of the first one behind them. False when the file
/// ends before that: what was gathered may be all the same.
bool read_data(PACKFILE* file, PngChunkStart& chunk, GrowingBytes& data) {
    while (chunk.type == png_chunk_pixels) {
        if (!read_png_data(file, chunk.length, data)) return false;
        const std::optional<PngChunkStart> next = read_png_chunk_start(file);
        if (!next) return false;
        chunk = *next;
    }
    return true;
}

/// Behind the data nothing is needed, be the end of the file missing.
bool read_up_to_end(PACKFILE* file, PngChunkStart chunk) {
    while (chunk.type != png_chunk_end) {
        if (!skip_png_chunk(file, chunk)) return true;
        const std::optional<PngChunkStart> next = read_png_chunk_start(file);
        if (!next) return true;
        chunk = *next;
    }
    return chunk.length == 0 || png_fail("Incorrect IEND length!");
}

/// Brings the bitmap to the depth that Allegro wants for it, and `png.palette` to what its indexes mean.
OwnedBitmap convert_bitmap(PngFile& png, OwnedBitmap bitmap) {
    const bool indexed = png.header.color_type == PNG_PALETTE, alpha = png_tells_alpha(png);
    if (png.is_plain && indexed) return png_colors_of_indexes(png, bitmap.get());
    const int depth = indexed ? _color_load_depth(8, 0) : alpha ? _color_load_depth(32, 1) : _color_load_depth(24, 0);
    if (depth == bitmap_color_depth(bitmap.get())) return bitmap;
    if (depth == 8) {
        png.has_palette = true;
        OwnedBitmap reduced = octree_reduce(bitmap.get(), png.palette.data());
        if (!reduced) png_fail("Cannot do quantization!");
        return reduced;
    }
    OwnedBitmap converted(_fixup_loaded_bitmap(bitmap.release(), png.palette.data(), depth));
    if (!converted) png_fail("Cannot allocate bitmap!");
    return converted;
}

OwnedBitmap read_image(PngFile& png) {
    if (!read_png_start(png)) return nullptr;
    std::optional<PngChunkStart> chunk = read_up_to_data(png);
    GrowingBytes data;
    if (!chunk) return nullptr;
    const bool goes_on = read_data(png.file, *chunk, data);
    OwnedBitmap bitmap = inflate_png_image(png.header, data, goes_on ? nullptr : png_error);
    if (bitmap) bitmap = convert_bitmap(png, std::move(bitmap));
    if (bitmap && goes_on && !read_up_to_end(png.file, *chunk)) return nullptr;
    return bitmap;
}

}  // namespace

BITMAP* load_png_pf(PACKFILE* file, RGB* palette) {
    PngFile png{file};
    OwnedBitmap bitmap = read_image(png);
    if (bitmap && palette != nullptr) {
        if (png.has_palette)
            std::copy(png.palette.begin(), png.palette.end(), palette);
        else
            generate_332_palette(palette);
    }
    return bitmap.release();
}

ReadPicture read_png(FileBytes bytes) {
    PACKFILE* const file = open_for_reading(bytes);
    if (file == nullptr) return {nullptr, "there isn't memory enough"};
    PngFile png{.file = file, .is_plain = true};
    OwnedBitmap bitmap = read_image(png);
    pack_fclose(file);
    const bool alpha = bitmap && png_tells_alpha(png) && bitmap_color_depth(bitmap.get()) == 32;
    ReadPicture picture = plain_picture(std::move(bitmap), png_error, alpha);
    picture.loss.images = png.images;
    picture.loss.sample_bits = png.header.bit_depth == 16 ? 16U : 8U;
    return picture;
}

BITMAP* load_png(const char* path, RGB* palette) {
    PACKFILE* const file = pack_fopen(path, "r");
    if (file == nullptr) return png_fail("Cannot open file!"), nullptr;
    BITMAP* const bitmap = load_png_pf(file, palette);
    pack_fclose(file);
    return bitmap;
}

}  // namespace nubo
