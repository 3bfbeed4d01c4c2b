#include "codecs/png_chunks.h"

#include "base/color.h"

#include <algorithm>
#include <zlib.h>

namespace nubo {
namespace {

constexpr std::uint32_t skip_limit = INT_MAX;  // pack_fseek takes an int, and would go back with a negative one
constexpr std::size_t fewest_data_bytes = 7;   // no deflated image is shorter
constexpr std::size_t deflate_limit = 1032;    // bytes that one deflated byte can stand for, at most
constexpr std::size_t piece_bytes = 1 << 16;

// ---- Numbers and chunks --------------------------------------------------------------------------------------------

bool skip(PACKFILE* file, std::uint32_t length) {
    if (length > skip_limit || pack_fseek(file, static_cast<int>(length)) != 0) return png_fail("Cannot fseek!");
    return true;
}

/// A checksum tells nothing that the inflated size and the checks of every number don't.
bool skip_crc(PACKFILE* file) { return skip(file, 4); }

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
    const std::optional<std::uint32_t> width = read_png_word(png.file);
    if (!width) return png_fail("Cannot read image width!");
    if (*width == 0) return png_fail("Zero width!");
    const std::optional<std::uint32_t> height = read_png_word(png.file);
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
    const std::optional<PngChunkStart> chunk = read_png_chunk_start(png.file);
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
bool read_transparency(PngFile& png, const PngChunkStart& chunk) {
    PngHeader& header = png.header;
    const std::uint32_t length = transparency_length(header.color_type);
    const bool is_meant = header.color_type == PNG_PALETTE ? chunk.length <= length : chunk.length == length;
    if (!png.is_plain || !is_meant) return skip_png_chunk(png.file, chunk);
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

/// How many images an animation has, and how often it plays. The first of them is the picture, as a rule.
bool read_animation(PngFile& png, const PngChunkStart& chunk) {
    if (chunk.length != png_animation_length) return skip_png_chunk(png.file, chunk);
    png.images = std::max(read_png_word(png.file).value_or(1), 1U);
    png.plays = read_png_word(png.file).value_or(0);
    png.is_animated = true;
    return skip_crc(png.file);
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

}  // namespace

std::optional<std::uint32_t> read_png_word(PACKFILE* file) {
    std::array<std::uint8_t, 4> bytes{};
    if (pack_fread(bytes.data(), 4, file) != 4) return std::nullopt;
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 | bytes[3];
}

std::optional<PngChunkStart> read_png_chunk_start(PACKFILE* file) {
    const std::optional<std::uint32_t> length = read_png_word(file);
    if (!length) return png_fail("Cannot read chunk length!"), std::nullopt;
    const std::optional<std::uint32_t> type = read_png_word(file);
    if (!type) return png_fail("Cannot read chunk type!"), std::nullopt;
    return PngChunkStart{*length, *type};
}

bool skip_png_chunk(PACKFILE* file, const PngChunkStart& chunk) { return skip(file, chunk.length) && skip_crc(file); }

bool read_png_start(PngFile& png) { return read_signature(png.file) && read_header(png); }

bool read_png_chunk(PngFile& png, const PngChunkStart& chunk) {
    if (chunk.type == png_chunk_palette) return read_palette(png, chunk.length);
    if (chunk.type == png_chunk_alpha) return read_transparency(png, chunk);
    if (chunk.type == png_chunk_animation) return read_animation(png, chunk);
    return skip_png_chunk(png.file, chunk);
}

bool read_png_data(PACKFILE* file, std::uint32_t length, GrowingBytes& data) {
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

OwnedBitmap inflate_png_image(const PngHeader& header, const GrowingBytes& data, const char* cut) {
    const std::size_t size = png_filtered_size(header);
    // A header that promises more than these bytes can hold is known before the memory for it is asked for.
    if (size / deflate_limit > data.size()) return png_fail(cut != nullptr ? cut : "Not enough data!"), nullptr;
    const PngBytes rows = png_bytes(size);
    if (!rows) return png_fail("Cannot allocate memory!"), nullptr;
    if (const char* const fault = inflate_rows(data, cut != nullptr, rows.get(), size))
        return png_fail(cut != nullptr ? cut : fault), nullptr;
    return png_build_image(header, rows.get(), size);
}

bool png_tells_alpha(const PngFile& png) {
    return png_has_alpha(png.header.color_type) || png.header.has_key || !png.palette_alpha.empty();
}

OwnedBitmap png_colors_of_indexes(const PngFile& png, BITMAP* indexed) {
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

}  // namespace nubo
