#include "codecs/png_parts.h"

#include "base/color.h"
#include "codecs/rgb_rows.h"

#include <algorithm>
#include <zlib.h>

namespace nubo {
namespace {

// ---- Rows ----------------------------------------------------------------------------------------------------------

void gather_indexes(BITMAP* bitmap, int y, std::uint8_t* row) {
    for (int x = 0; x < bitmap->w; ++x) row[x] = static_cast<std::uint8_t>(getpixel(bitmap, x, y));
}

void gather_any_colors(BITMAP* bitmap, int y, bool alpha, std::uint8_t* row) {
    const int depth = bitmap_color_depth(bitmap);
    for (int x = 0; x < bitmap->w; ++x) {
        const int pixel = getpixel(bitmap, x, y);
        *row++ = static_cast<std::uint8_t>(getr_depth(depth, pixel));
        *row++ = static_cast<std::uint8_t>(getg_depth(depth, pixel));
        *row++ = static_cast<std::uint8_t>(getb_depth(depth, pixel));
        if (alpha) *row++ = static_cast<std::uint8_t>(geta_depth(depth, pixel));
    }
}

void gather_plain_alpha(const Color* pixels, int width, std::uint8_t* row) {
    for (int x = 0; x < width; ++x, row += 4) {
        row[0] = static_cast<std::uint8_t>(pixels[x] >> 16);
        row[1] = static_cast<std::uint8_t>(pixels[x] >> 8);
        row[2] = static_cast<std::uint8_t>(pixels[x]);
        row[3] = static_cast<std::uint8_t>(pixels[x] >> 24);
    }
}

void gather_colors(BITMAP* bitmap, int y, bool alpha, std::uint8_t* row) {
    if (!has_plain_pixels(bitmap) || !has_window_color_order()) return gather_any_colors(bitmap, y, alpha, row);
    const Color* const pixels = pixels_at(bitmap, 0, y);
    if (alpha)
        gather_plain_alpha(pixels, bitmap->w, row);
    else
        pack_row(pixels, row, bitmap->w, BYTES_RGB);
}

/// `filtered` gets the differences of `row` to what filter 4 predicts; the byte left of a byte is `step` before it.
void filter_paeth(const std::uint8_t* row, const std::uint8_t* above, std::size_t size, std::size_t step,
                  std::uint8_t* filtered) {
    const std::size_t first = std::min(step, size);
    for (std::size_t i = 0; i < first; ++i) filtered[i] = static_cast<std::uint8_t>(row[i] - above[i]);
    for (std::size_t i = first; i < size; ++i)
        filtered[i] = static_cast<std::uint8_t>(row[i] - png_paeth(row[i - step], above[i], above[i - step]));
}

/// Deflates rows as they come, so that the picture's filtered bytes are never in memory as a whole.
class RowDeflater {
public:
    RowDeflater(PngEffort effort, GrowingBytes& deflated)
        : deflated_(deflated), good_(deflateInit(&stream_, effort) == Z_OK) {}
    ~RowDeflater() { deflateEnd(&stream_); }
    RowDeflater(const RowDeflater&) = delete;
    RowDeflater& operator=(const RowDeflater&) = delete;

    /// The next bytes, the last when `flush` is Z_FINISH. False when the memory can't be had.
    bool add(std::span<std::uint8_t> bytes, int flush) {
        constexpr std::size_t piece_bytes = 1 << 16;
        stream_.next_in = bytes.data();
        stream_.avail_in = static_cast<uInt>(bytes.size());
        do {
            if (!good_ || !deflated_.make_room(piece_bytes)) return false;
            stream_.next_out = deflated_.end();
            stream_.avail_out = piece_bytes;
            deflate(&stream_, flush);
            deflated_.advance(piece_bytes - stream_.avail_out);
        } while (stream_.avail_out == 0);
        return true;
    }

private:
    z_stream stream_{};
    GrowingBytes& deflated_;
    bool good_;
};

}  // namespace

bool write_png_bytes(PACKFILE* file, std::span<const std::uint8_t> bytes) {
    const long size = static_cast<long>(bytes.size());
    return size == 0 || pack_fwrite(bytes.data(), size, file) == size || png_fail("Cannot write to the file!");
}

void put_png_word(std::uint32_t word, std::uint8_t* bytes) {
    for (int i = 0; i < 4; ++i) bytes[i] = static_cast<std::uint8_t>(word >> (24 - 8 * i));
}

bool write_png_chunk(PACKFILE* file, std::uint32_t type, std::span<const std::uint8_t> content) {
    if (content.size() > INT_MAX) return png_fail("Error during compression!");  // a length has 31 bits
    std::array<std::uint8_t, 8> start{};
    put_png_word(static_cast<std::uint32_t>(content.size()), start.data());
    put_png_word(type, start.data() + 4);
    uLong crc = crc32(0, start.data() + 4, 4);  // of the type and the content
    if (!content.empty()) crc = crc32(crc, content.data(), static_cast<uInt>(content.size()));
    std::array<std::uint8_t, 4> end{};
    put_png_word(static_cast<std::uint32_t>(crc), end.data());
    return write_png_bytes(file, start) && write_png_bytes(file, content) && write_png_bytes(file, end);
}

bool write_png_header(PACKFILE* file, const PngHeader& header) {
    std::array<std::uint8_t, png_header_length> bytes{};  // compression, filter and interlace method stay 0
    put_png_word(static_cast<std::uint32_t>(header.width), bytes.data());
    put_png_word(static_cast<std::uint32_t>(header.height), bytes.data() + 4);
    bytes[8] = static_cast<std::uint8_t>(header.bit_depth);
    bytes[9] = static_cast<std::uint8_t>(header.color_type);
    return write_png_chunk(file, png_chunk_header, bytes);
}

PngHeader png_header_of(BITMAP* bitmap, PngColorType type) {
    PngHeader header{bitmap->w, bitmap->h, 8, type};
    header.row_bytes = png_row_bytes(header);
    return header;
}

bool deflate_png_rows(BITMAP* bitmap, const PngHeader& header, PngEffort effort, GrowingBytes& deflated) {
    RowDeflater deflater(effort, deflated);
    const std::size_t size = header.row_bytes;
    const PngBytes rows = png_bytes(3 * size + 1);  // the row, the one above it, and its filtered bytes
    if (!rows) return false;
    std::uint8_t *row = rows.get(), *above = row + size, *const filtered = above + size;
    std::fill_n(above, size, std::uint8_t{0});
    const auto step = static_cast<std::size_t>(png_channels(header.color_type));
    const bool indexed = header.color_type == PNG_PALETTE;
    filtered[0] = indexed ? PNG_FILTER_NONE : PNG_FILTER_PAETH;
    for (int y = 0; y < header.height; ++y) {
        if (indexed) {
            gather_indexes(bitmap, y, filtered + 1);
        } else {
            gather_colors(bitmap, y, png_has_alpha(header.color_type), row);
            filter_paeth(row, above, size, step, filtered + 1);
            std::swap(row, above);
        }
        if (!deflater.add({filtered, size + 1}, y + 1 < header.height ? Z_NO_FLUSH : Z_FINISH)) return false;
    }
    return true;
}

}  // namespace nubo
