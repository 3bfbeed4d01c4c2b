// Writing a PNG: rows gathered and filtered, deflated as one chunk.
#include "base/bitmap.h"
#include "base/color.h"
#include "codecs/growing_bytes.h"
#include "codecs/png_format.h"
#include "codecs/rgb_rows.h"

#include <algorithm>
#include <span>
#include <zlib.h>

namespace nubo {
namespace {

/// A bitmap whose pixels can be read where they stand; nearly all that is written is one.
bool has_plain_pixels(BITMAP* bitmap) { return bitmap_color_depth(bitmap) == 32 && is_memory_bitmap(bitmap); }

bool has_alpha(BITMAP* bitmap) {
    if (bitmap_color_depth(bitmap) != 32) return false;
    const Color alpha_bits = Color{0xff} << _rgb_a_shift_32;
    Color seen = 0;
    for (int y = 0; y < bitmap->h; ++y) {
        if (has_plain_pixels(bitmap)) {
            const Color* const pixels = pixels_at(bitmap, 0, y);
            for (int x = 0; x < bitmap->w; ++x) seen |= pixels[x];
        } else {
            for (int x = 0; x < bitmap->w; ++x) seen |= static_cast<Color>(getpixel(bitmap, x, y));
        }
    }
    return (seen & alpha_bits) != 0;
}

PngColorType color_type_of(BITMAP* bitmap) {
    if (bitmap_color_depth(bitmap) == 8) return PNG_PALETTE;
    return has_alpha(bitmap) ? PNG_RGB_ALPHA : PNG_RGB;
}

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

// ---- Chunks --------------------------------------------------------------------------------------------------------

bool write_bytes(PACKFILE* file, std::span<const std::uint8_t> bytes) {
    const long size = static_cast<long>(bytes.size());
    return size == 0 || pack_fwrite(bytes.data(), size, file) == size || png_fail("Cannot write to the file!");
}

void put_word(std::uint32_t word, std::uint8_t* bytes) {
    for (int i = 0; i < 4; ++i) bytes[i] = static_cast<std::uint8_t>(word >> (24 - 8 * i));
}

bool write_chunk(PACKFILE* file, std::uint32_t type, std::span<const std::uint8_t> content) {
    std::array<std::uint8_t, 8> start{};
    put_word(static_cast<std::uint32_t>(content.size()), start.data());
    put_word(type, start.data() + 4);
    uLong crc = crc32(0, start.data() + 4, 4);  // of the type and the content
    if (!content.empty()) crc = crc32(crc, content.data(), static_cast<uInt>(content.size()));
    std::array<std::uint8_t, 4> end{};
    put_word(static_cast<std::uint32_t>(crc), end.data());
    return write_bytes(file, start) && write_bytes(file, content) && write_bytes(file, end);
}

bool write_header(PACKFILE* file, const PngHeader& header) {
    std::array<std::uint8_t, png_header_length> bytes{};  // compression, filter and interlace method stay 0
    put_word(static_cast<std::uint32_t>(header.width), bytes.data());
    put_word(static_cast<std::uint32_t>(header.height), bytes.data() + 4);
    bytes[8] = static_cast<std::uint8_t>(header.bit_depth);
    bytes[9] = static_cast<std::uint8_t>(header.color_type);
    return write_chunk(file, png_chunk_header, bytes);
}

bool write_palette(PACKFILE* file, const RGB* palette) {
    PALETTE current;
    if (palette == nullptr) {
        get_palette(current);
        palette = current;
    }
    std::array<std::uint8_t, 3 * palette_entries> bytes{};
    for (std::size_t i = 0; i < palette_entries; ++i) {
        bytes[3 * i] = static_cast<std::uint8_t>(palette[i].r << 2);
        bytes[3 * i + 1] = static_cast<std::uint8_t>(palette[i].g << 2);
        bytes[3 * i + 2] = static_cast<std::uint8_t>(palette[i].b << 2);
    }
    return write_chunk(file, png_chunk_palette, bytes);
}

/// Deflates rows as they come, so that the picture's filtered bytes are never in memory as a whole.
class RowDeflater {
public:
    explicit RowDeflater(PngEffort effort) : good_(deflateInit(&stream_, effort) == Z_OK) {}
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

    std::span<const std::uint8_t> deflated() const { return {deflated_.data(), deflated_.size()}; }

private:
    z_stream stream_{};
    GrowingBytes deflated_;
    bool good_;
};

bool deflate_rows(BITMAP* bitmap, const PngHeader& header, RowDeflater& deflater) {
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

bool write_pixels(PACKFILE* file, BITMAP* bitmap, const PngHeader& header, PngEffort effort) {
    RowDeflater deflater(effort);
    if (!deflate_rows(bitmap, header, deflater)) return png_fail("Cannot allocate memory!");
    // A chunk's length has 31 bits.
    if (deflater.deflated().size() > INT_MAX) return png_fail("Error during compression!");
    return write_chunk(file, png_chunk_pixels, deflater.deflated());
}

bool write_image(PACKFILE* file, BITMAP* bitmap, const RGB* palette, PngEffort effort) {
    if (bitmap->w <= 0 || bitmap->h <= 0) return png_fail("Width or height or both of the image are 0!");
    PngHeader header{bitmap->w, bitmap->h, 8, color_type_of(bitmap)};
    header.row_bytes = png_row_bytes(header);
    return write_bytes(file, png_signature) && write_header(file, header) &&
           (header.color_type != PNG_PALETTE || write_palette(file, palette)) &&
           write_pixels(file, bitmap, header, effort) && write_chunk(file, png_chunk_end, {});
}

bool write_acquired(PACKFILE* file, BITMAP* bitmap, const RGB* palette, PngEffort effort) {
    acquire_bitmap(bitmap);
    const bool written = write_image(file, bitmap, palette, effort);
    release_bitmap(bitmap);
    return written;
}

}  // namespace

int save_png_pf(PACKFILE* file, BITMAP* bitmap, const RGB* palette) {
    return write_acquired(file, bitmap, palette, PNG_BEST) ? 0 : -1;
}

bool write_png(BITMAP* bitmap, Bytes& bytes, PngEffort effort) {
    const std::size_t size_before = bytes.size();
    PACKFILE* const file = open_for_writing(bytes);
    if (file == nullptr) return png_fail("Cannot allocate memory!");
    const bool written = write_acquired(file, bitmap, nullptr, effort);
    pack_fclose(file);
    if (!written) bytes.resize(size_before);
    return written;
}

bool write_png(BITMAP* bitmap, Bytes& bytes) { return write_png(bitmap, bytes, PNG_BEST); }

int save_png(const char* path, BITMAP* bitmap, const RGB* palette) {
    PACKFILE* const file = pack_fopen(path, "w");
    if (file == nullptr) return png_fail("Cannot open file!"), -1;
    const int result = save_png_pf(file, bitmap, palette);
    if (pack_fclose(file) != 0 && result == 0) return png_fail("Cannot write to the file!"), -1;  // its last bytes
    return result;
}

}  // namespace nubo
