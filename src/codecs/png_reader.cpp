// Reading a PNG: its chunks one after the other, the data inflated, the bitmap brought to the depth asked for.
#include "codecs/growing_bytes.h"
#include "codecs/png_octree.h"
#include "codecs/png_pixels.h"

#include <algorithm>
#include <allegro/internal/aintern.h>
#include <optional>
#include <zlib.h>

namespace nubo {
namespace {

constexpr std::uint32_t skip_limit = INT_MAX;  // pack_fseek takes an int, and would go back with a negative one
constexpr std::size_t fewest_data_bytes = 7;   // no deflated image is shorter
constexpr std::size_t deflate_limit = 1032;    // bytes that one deflated byte can stand for, at most
constexpr std::size_t piece_bytes = 1 << 16;

constexpr Color half_clear = 128;  // alpha from which on a pixel shows

/// What the file has told so far.
struct PngFile {
    PACKFILE* file;
    PngHeader header{};
    std::array<RGB, palette_entries> palette{};
    bool has_palette = false;
    bool is_cut_out = false;  // then kept: the alpha of the palette's first entries, and what the pixels' indexes were
    Bytes palette_alpha{};
    OwnedBitmap indexes{};
};

struct ChunkStart {
    std::uint32_t length, type;
};

// ---- Numbers and chunks --------------------------------------------------------------------------------------------

std::optional<std::uint32_t> read_word(PACKFILE* file) {
    std::array<std::uint8_t, 4> bytes{};
    if (pack_fread(bytes.data(), 4, file) != 4) return std::nullopt;
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 | bytes[3];
}

std::optional<ChunkStart> read_chunk_start(PACKFILE* file) {
    const std::optional<std::uint32_t> length = read_word(file);
    if (!length) return png_fail("Cannot read chunk length!"), std::nullopt;
    const std::optional<std::uint32_t> type = read_word(file);
    if (!type) return png_fail("Cannot read chunk type!"), std::nullopt;
    return ChunkStart{*length, *type};
}

bool skip(PACKFILE* file, std::uint32_t length) {
    if (length > skip_limit || pack_fseek(file, static_cast<int>(length)) != 0) return png_fail("Cannot fseek!");
    return true;
}

/// A checksum tells nothing that the inflated size and the checks of every number don't.
bool skip_crc(PACKFILE* file) { return skip(file, 4); }

bool skip_chunk(PACKFILE* file, const ChunkStart& chunk) { return skip(file, chunk.length) && skip_crc(file); }

bool read_signature(PACKFILE* file) {
    std::array<std::uint8_t, png_signature_length> bytes{};
    if (pack_fread(bytes.data(), png_signature_length, file) != static_cast<long>(png_signature_length))
        return png_fail("File shorter than PNG signature!");
    return bytes == png_signature || png_fail("File signature mismatch!");
}

// ---- IHDR ----------------------------------------------------------------------------------------------------------

struct DepthRow {
    int color_type;
    std::array<int, 5> depths;  // 0 in an unused place
};
constexpr std::array<DepthRow, 5> accepted_depths{{
    {PNG_GREY, {1, 2, 4, 8, 16}},
    {PNG_RGB, {8, 16}},
    {PNG_PALETTE, {1, 2, 4, 8}},
    {PNG_GREY_ALPHA, {8, 16}},
    {PNG_RGB_ALPHA, {8, 16}},
}};

bool is_accepted(int color_type, int depth) {
    const auto row = std::find_if(accepted_depths.begin(), accepted_depths.end(),
                                  [&](const DepthRow& r) { return r.color_type == color_type; });
    return row != accepted_depths.end() && depth != 0 &&
           std::find(row->depths.begin(), row->depths.end(), depth) != row->depths.end();
}

bool read_size(PngFile& png) {
    const std::optional<std::uint32_t> width = read_word(png.file);
    if (!width) return png_fail("Cannot read image width!");
    if (*width == 0) return png_fail("Zero width!");
    const std::optional<std::uint32_t> height = read_word(png.file);
    if (!height) return png_fail("Cannot read image height!");
    if (*height == 0) return png_fail("Zero height!");
    // Allegro works out the bytes of a bitmap in an int; what can't be held is refused before anything is read for it.
    if (size_fault(*width, *height) != nullptr || std::uint64_t{*width} * *height > INT_MAX / sizeof(Color))
        return png_fail("Cannot allocate bitmap!");
    png.header.width = static_cast<int>(*width);
    png.header.height = static_cast<int>(*height);
    return true;
}

bool read_pixel_format(PngFile& png) {
    const int depth = pack_getc(png.file);
    if (depth == EOF) return png_fail("Cannot read image bit depth!");
    const int color_type = pack_getc(png.file);
    if (color_type == EOF) return png_fail("Cannot read image color type!");
    if (!is_accepted(color_type, depth)) return png_fail("Unsupported color type/depth combination!");
    png.header.bit_depth = depth;
    png.header.color_type = static_cast<PngColorType>(color_type);
    png.header.row_bytes = png_row_bytes(png.header);
    return true;
}

bool read_methods(PngFile& png) {
    const int compression = pack_getc(png.file);
    if (compression == EOF) return png_fail("Cannot read image compression method!");
    if (compression != 0) return png_fail("Unsupported compression method!");
    const int filter = pack_getc(png.file);
    if (filter == EOF) return png_fail("Cannot read filter method!");
    if (filter != 0) return png_fail("Unsupported filter method!");
    const int interlace = pack_getc(png.file);
    if (interlace == EOF) return png_fail("Cannot read interlace method!");
    if (interlace > 1) return png_fail("Interlace not supported!");
    png.header.interlaced = interlace == 1;
    return true;
}

bool read_header(PngFile& png) {
    const std::optional<ChunkStart> chunk = read_chunk_start(png.file);
    if (!chunk) return false;
    if (chunk->type != png_chunk_header) return png_fail("First chunk must be of IHDR type!");
    if (chunk->length != png_header_length) return png_fail("Incorrect IHDR length!");
    return read_size(png) && read_pixel_format(png) && read_methods(png) && skip_crc(png.file);
}

// ---- Chunks before, of and behind the data -------------------------------------------------------------------------

bool read_palette(PngFile& png, std::uint32_t length) {
    if (length % 3 != 0) return png_fail("Palette chunk length not divisible by 3!");
    if (length == 0 || length > 3 * palette_entries) return png_fail("Incorrect number of palette entries!");
    std::array<std::uint8_t, 3 * palette_entries> bytes{};
    if (pack_fread(bytes.data(), static_cast<long>(length), png.file) != static_cast<long>(length))
        return png_fail("Cannot read palette!");
    for (std::size_t i = 0; i < png.palette.size(); ++i) {  // the bytes behind the file's are 0, black
        const auto six_bits = [&](std::size_t k) { return static_cast<unsigned char>(bytes[3 * i + k] >> 2); };
        png.palette[i] = RGB{six_bits(0), six_bits(1), six_bits(2), 0};
    }
    png.has_palette = true;
    return skip_crc(png.file);
}

/// More entries than a palette has, or those of another kind of picture, mean nothing here.
bool read_palette_alpha(PngFile& png, const ChunkStart& chunk) {
    const bool is_meant = png.is_cut_out && png.header.color_type == PNG_PALETTE && chunk.length <= palette_entries;
    if (!is_meant) return skip_chunk(png.file, chunk);
    png.palette_alpha.resize(chunk.length);
    const auto length = static_cast<long>(chunk.length);
    if (pack_fread(png.palette_alpha.data(), length, png.file) != length) return png_fail("Cannot read palette!");
    return skip_crc(png.file);
}

bool read_chunk(PngFile& png, const ChunkStart& chunk) {
    if (chunk.type == png_chunk_palette) return read_palette(png, chunk.length);
    if (chunk.type == png_chunk_alpha) return read_palette_alpha(png, chunk);
    return skip_chunk(png.file, chunk);
}

/// Walks to the first data chunk, whose start is returned.
std::optional<ChunkStart> read_up_to_data(PngFile& png) {
    std::optional<ChunkStart> chunk = read_chunk_start(png.file);
    while (chunk && chunk->type != png_chunk_pixels) {
        chunk = read_chunk(png, *chunk) ? read_chunk_start(png.file) : std::nullopt;
    }
    if (chunk && png.header.color_type == PNG_PALETTE && !png.has_palette)
        return png_fail("Palette required but not found!"), std::nullopt;
    return chunk;
}

bool read_data_chunk(PACKFILE* file, std::uint32_t length, GrowingBytes& data) {
    while (length > 0) {
        const std::size_t piece = std::min<std::size_t>(length, piece_bytes);
        if (!data.make_room(piece)) return png_fail("Cannot allocate memory!");
        if (pack_fread(data.end(), static_cast<long>(piece), file) != static_cast<long>(piece))
            return png_fail("Cannot read image data!");
        data.advance(piece);
        length -= static_cast<std::uint32_t>(piece);
    }
    return skip_crc(file);
}

/// Gathers the data chunks from `chunk` on; `chunk` becomes the start of the first one behind them.
bool read_data(PACKFILE* file, ChunkStart& chunk, GrowingBytes& data) {
    while (chunk.type == png_chunk_pixels) {
        if (!read_data_chunk(file, chunk.length, data)) return false;
        const std::optional<ChunkStart> next = read_chunk_start(file);
        if (!next) return false;
        chunk = *next;
    }
    return data.size() >= fewest_data_bytes || png_fail("File without data!");
}

bool read_up_to_end(PACKFILE* file, ChunkStart chunk) {
    while (chunk.type != png_chunk_end) {
        if (!skip_chunk(file, chunk)) return false;
        const std::optional<ChunkStart> next = read_chunk_start(file);
        if (!next) return false;
        chunk = *next;
    }
    return chunk.length == 0 || png_fail("Incorrect IEND length!");
}

// ---- Data to bitmap ------------------------------------------------------------------------------------------------

OwnedBitmap inflate_image(const PngHeader& header, const GrowingBytes& data) {
    const std::size_t size = png_filtered_size(header);
    // A header that promises more than these bytes can hold is known before the memory for it is asked for.
    if (size / deflate_limit > data.size()) return png_fail("Not enough data!"), nullptr;
    const PngBytes rows = png_bytes(size);
    if (!rows) return png_fail("Cannot allocate memory!"), nullptr;
    uLongf inflated = size;
    if (uncompress(rows.get(), &inflated, data.data(), data.size()) != Z_OK)
        return png_fail("Cannot decompress data!"), nullptr;
    if (inflated != size) return png_fail("Not enough data!"), nullptr;
    return png_build_image(header, rows.get(), size);
}

/// Brings the bitmap to the depth that Allegro wants for it, and `png.palette` to what its indexes mean.
OwnedBitmap convert_bitmap(PngFile& png, OwnedBitmap bitmap) {
    const bool indexed = png.header.color_type == PNG_PALETTE, alpha = png_has_alpha(png.header.color_type);
    const int depth = indexed ? _color_load_depth(8, 0) : alpha ? _color_load_depth(32, 1) : _color_load_depth(24, 0);
    if (depth == bitmap_color_depth(bitmap.get())) return bitmap;
    if (!png.palette_alpha.empty()) png.indexes = copy_bitmap(bitmap.get());
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
    if (!read_signature(png.file) || !read_header(png)) return nullptr;
    std::optional<ChunkStart> chunk = read_up_to_data(png);
    GrowingBytes data;
    if (!chunk || !read_data(png.file, *chunk, data)) return nullptr;
    OwnedBitmap bitmap = inflate_image(png.header, data);
    if (bitmap) bitmap = convert_bitmap(png, std::move(bitmap));
    if (!bitmap || !read_up_to_end(png.file, *chunk)) return nullptr;
    return bitmap;
}

// ---- Cut-outs ------------------------------------------------------------------------------------------------------

void clear_by_alpha(BITMAP* bitmap) {
    constexpr Color color_bits = 0xffffff;
    for (int y = 0; y < bitmap->h; ++y) {
        Color* const pixels = pixels_at(bitmap, 0, y);
        for (int x = 0; x < bitmap->w; ++x) {
            const Color alpha = pixels[x] >> _rgb_a_shift_32 & 0xff;
            pixels[x] = alpha < half_clear ? clear_pixel : pixels[x] & color_bits;
        }
    }
}

void clear_by_index(const PngFile& png, BITMAP* bitmap) {
    for (int y = 0; y < bitmap->h; ++y) {
        Color* const pixels = pixels_at(bitmap, 0, y);
        const std::uint8_t* const indexes = png.indexes->line[y];
        for (int x = 0; x < bitmap->w; ++x)
            if (indexes[x] < png.palette_alpha.size() && png.palette_alpha[indexes[x]] < half_clear)
                pixels[x] = clear_pixel;
    }
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
    OwnedBitmap bitmap(load_png_pf(file, nullptr));
    pack_fclose(file);
    return plain_picture(std::move(bitmap), png_error);
}

ReadPicture read_cut_out_png(FileBytes bytes) {
    PACKFILE* const file = open_for_reading(bytes);
    if (file == nullptr) return {nullptr, "there isn't memory enough"};
    PngFile png{.file = file, .is_cut_out = true};
    OwnedBitmap bitmap = read_image(png);
    pack_fclose(file);
    if (bitmap && png_has_alpha(png.header.color_type) && bitmap_color_depth(bitmap.get()) == 32) {
        clear_by_alpha(bitmap.get());
        return {std::move(bitmap), {}};
    }
    ReadPicture picture = plain_picture(std::move(bitmap), png_error);
    if (picture.bitmap && png.indexes) clear_by_index(png, picture.bitmap.get());
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
