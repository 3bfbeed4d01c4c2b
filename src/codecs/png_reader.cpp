// Reading a PNG: its chunks one after the other, the data inflated, the bitmap brought to the depth asked for.
#include "base/color.h"
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
    std::array<RGB, palette_entries> palette{};   // 6 bits a channel
    std::array<Color, palette_entries> colors{};  // the same, exact
    bool has_palette = false;
    bool is_plain = false;  // 32 bits are wanted with exact colours, and the alpha that stands beside the pixels too:
                            // of a colour, of the palette's first entries
    Bytes palette_alpha{};
    std::uint32_t images = 1;  // of an animation
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
        png.colors[i] = pack_color(bytes[3 * i], bytes[3 * i + 1], bytes[3 * i + 2]);
    }
    png.has_palette = true;
    return skip_crc(png.file);
}

/// The length that tRNS has, or may have at most; 0 of a picture that has its alpha in the pixels.
std::uint32_t transparency_length(PngColorType type) {
    switch (type) {
    case PNG_PALETTE: return palette_entries;
    case PNG_GREY:
    case PNG_RGB: return static_cast<std::uint32_t>(2 * png_channels(type));
    case PNG_GREY_ALPHA:
    case PNG_RGB_ALPHA: return 0;
    }
    return 0;
}

/// More entries than a palette has, or bytes of another length than a colour's, mean nothing.
bool read_transparency(PngFile& png, const ChunkStart& chunk) {
    PngHeader& header = png.header;
    const std::uint32_t length = transparency_length(header.color_type);
    const bool is_meant = header.color_type == PNG_PALETTE ? chunk.length <= length : chunk.length == length;
    if (!png.is_plain || !is_meant) return skip_chunk(png.file, chunk);
    Bytes bytes(chunk.length);
    const auto wanted = static_cast<long>(chunk.length);
    if (pack_fread(bytes.data(), wanted, png.file) != wanted) return png_fail("Cannot read palette!");
    if (header.color_type == PNG_PALETTE) {
        png.palette_alpha = std::move(bytes);
    } else {
        const unsigned sample_mask = (1U << header.bit_depth) - 1;
        header.has_key = !bytes.empty();
        for (std::size_t i = 0; i < bytes.size() / 2; ++i)
            header.clear_key[i] = static_cast<std::uint16_t>((bytes[2 * i] << 8 | bytes[2 * i + 1]) & sample_mask);
    }
    return skip_crc(png.file);
}

/// How many images an animation has. The first of them is the picture, as a rule.
bool read_animation(PngFile& png, const ChunkStart& chunk) {
    constexpr std::uint32_t length = 8, times_bytes = 4;  // how often it plays
    if (chunk.length != length) return skip_chunk(png.file, chunk);
    const std::optional<std::uint32_t> images = read_word(png.file);
    png.images = std::max(images.value_or(1), 1U);
    return skip(png.file, times_bytes) && skip_crc(png.file);
}

bool read_chunk(PngFile& png, const ChunkStart& chunk) {
    if (chunk.type == png_chunk_palette) return read_palette(png, chunk.length);
    if (chunk.type == png_chunk_alpha) return read_transparency(png, chunk);
    if (chunk.type == png_chunk_animation) return read_animation(png, chunk);
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
        const long got = pack_fread(data.end(), static_cast<long>(piece), file);
        if (got > 0) data.advance(static_cast<std::size_t>(got));
        if (got != static_cast<long>(piece)) return png_fail("Cannot read image data!");
        length -= static_cast<std::uint32_t>(piece);
    }
    return skip_crc(file);
}

/// Gathers the data chunks from `chunk` on; `chunk` becomes the start of the first one behind them. False when the file
/// ends before that: what was gathered may be all the same.
bool read_data(PACKFILE* file, ChunkStart& chunk, GrowingBytes& data) {
    while (chunk.type == png_chunk_pixels) {
        if (!read_data_chunk(file, chunk.length, data)) return false;
        const std::optional<ChunkStart> next = read_chunk_start(file);
        if (!next) return false;
        chunk = *next;
    }
    return true;
}

/// Behind the data nothing is needed, be the end of the file missing.
bool read_up_to_end(PACKFILE* file, ChunkStart chunk) {
    while (chunk.type != png_chunk_end) {
        if (!skip_chunk(file, chunk)) return true;
        const std::optional<ChunkStart> next = read_chunk_start(file);
        if (!next) return true;
        chunk = *next;
    }
    return chunk.length == 0 || png_fail("Incorrect IEND length!");
}

// ---- Data to bitmap ------------------------------------------------------------------------------------------------

/// Inflates into `size` bytes. Null, or why they aren't all there; of data that the file's end cuts off only what is
/// behind the last pixel may be missing.
const char* inflate_rows(const GrowingBytes& data, bool is_cut, std::uint8_t* rows, std::size_t size) {
    if (data.size() < fewest_data_bytes) return "File without data!";
    uLongf inflated = size;
    const int result = uncompress(rows, &inflated, data.data(), data.size());
    if (result != Z_OK && !(is_cut && result == Z_BUF_ERROR)) return "Cannot decompress data!";
    return inflated == size ? nullptr : "Not enough data!";
}

/// `cut`: why the data ends before its chunks do, or null.
OwnedBitmap inflate_image(const PngHeader& header, const GrowingBytes& data, const char* cut) {
    const std::size_t size = png_filtered_size(header);
    // A header that promises more than these bytes can hold is known before the memory for it is asked for.
    if (size / deflate_limit > data.size()) return png_fail(cut != nullptr ? cut : "Not enough data!"), nullptr;
    const PngBytes rows = png_bytes(size);
    if (!rows) return png_fail("Cannot allocate memory!"), nullptr;
    if (const char* const fault = inflate_rows(data, cut != nullptr, rows.get(), size))
        return png_fail(cut != nullptr ? cut : fault), nullptr;
    return png_build_image(header, rows.get(), size);
}

bool has_alpha(const PngFile& png) {
    return png_has_alpha(png.header.color_type) || png.header.has_key || !png.palette_alpha.empty();
}

/// The colours of a paletted image, exact and with their alpha.
OwnedBitmap colors_of_indexes(const PngFile& png, BITMAP* indexed) {
    constexpr Color whole = 255;
    std::array<Color, palette_entries> colors = png.colors;
    for (std::size_t i = 0; i < colors.size(); ++i)
        colors[i] |= (i < png.palette_alpha.size() ? png.palette_alpha[i] : whole) << _rgb_a_shift_32;
    OwnedBitmap bitmap = make_uncleared_bitmap(indexed->w, indexed->h);
    if (!bitmap) return png_fail("Cannot allocate bitmap!"), nullptr;
    for (int y = 0; y < bitmap->h; ++y)
        std::transform(indexed->line[y], indexed->line[y] + indexed->w, pixels_at(bitmap.get(), 0, y),
                       [&](std::uint8_t index) { return colors[index]; });
    return bitmap;
}

/// Brings the bitmap to the depth that Allegro wants for it, and `png.palette` to what its indexes mean.
OwnedBitmap convert_bitmap(PngFile& png, OwnedBitmap bitmap) {
    const bool indexed = png.header.color_type == PNG_PALETTE, alpha = has_alpha(png);
    if (png.is_plain && indexed) return colors_of_indexes(png, bitmap.get());
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
    if (!read_signature(png.file) || !read_header(png)) return nullptr;
    std::optional<ChunkStart> chunk = read_up_to_data(png);
    GrowingBytes data;
    if (!chunk) return nullptr;
    const bool goes_on = read_data(png.file, *chunk, data);
    OwnedBitmap bitmap = inflate_image(png.header, data, goes_on ? nullptr : png_error);
    if (bitmap) bitmap = convert_bitmap(png, std::move(bitmap));
    if (bitmap && goes_on && !read_up_to_end(png.file, *chunk)) return nullptr;
    return bitmap;
}

// ---- Alpha ---------------------------------------------------------------------------------------------------------

Color alpha_of(Color pixel) { return pixel >> _rgb_a_shift_32 & 0xff; }

void clear_by_alpha(BITMAP* bitmap) {
    constexpr Color color_bits = 0xffffff;
    for (int y = 0; y < bitmap->h; ++y) {
        Color* const pixels = pixels_at(bitmap, 0, y);
        for (int x = 0; x < bitmap->w; ++x) {
            pixels[x] = alpha_of(pixels[x]) < half_clear ? clear_pixel : pixels[x] & color_bits;
        }
    }
}

/// Whether a pixel has an alpha that a picture can't tell: whole, and in a cut-out none at all, are told.
bool loses_alpha(BITMAP* bitmap, bool is_cut_out) {
    constexpr Color whole = 255;
    const auto is_lost = [is_cut_out](Color pixel) {
        return alpha_of(pixel) != whole && (alpha_of(pixel) != 0 || !is_cut_out);
    };
    for (int y = 0; y < bitmap->h; ++y)
        if (std::any_of(pixels_at(bitmap, 0, y), pixels_at(bitmap, 0, y) + bitmap->w, is_lost)) return true;
    return false;
}

ReadPicture read_picture(FileBytes bytes, bool is_cut_out) {
    PACKFILE* const file = open_for_reading(bytes);
    if (file == nullptr) return {nullptr, "there isn't memory enough"};
    PngFile png{.file = file, .is_plain = true};
    OwnedBitmap bitmap = read_image(png);
    pack_fclose(file);
    const bool alpha = bitmap && has_alpha(png) && bitmap_color_depth(bitmap.get()) == 32;
    const PictureLoss loss{.alpha = alpha && loses_alpha(bitmap.get(), is_cut_out),
                           .images = png.images,
                           .sample_bits = png.header.bit_depth == 16 ? 16U : 8U};
    if (alpha && is_cut_out) {
        clear_by_alpha(bitmap.get());
        return {std::move(bitmap), {}, loss};
    }
    ReadPicture picture = plain_picture(std::move(bitmap), png_error);
    picture.loss = loss;
    return picture;
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

ReadPicture read_png(FileBytes bytes) { return read_picture(bytes, false); }

ReadPicture read_cut_out_png(FileBytes bytes) { return read_picture(bytes, true); }

BITMAP* load_png(const char* path, RGB* palette) {
    PACKFILE* const file = pack_fopen(path, "r");
    if (file == nullptr) return png_fail("Cannot open file!"), nullptr;
    BITMAP* const bitmap = load_png_pf(file, palette);
    pack_fclose(file);
    return bitmap;
}

}  // namespace nubo
