#include "codecs/bmp_file.h"

#include "base/bitmap_memory.h"
#include "base/color.h"
#include "base/memory.h"
#include "codecs/bmp_header.h"
#include "codecs/rgb_rows.h"
#include "platform/input_file.h"
#include <algorithm>
#include <bit>
#include <unistd.h>
#include <vector>

namespace nubo {
namespace {

// ---- Writing -------------------------------------------------------------------------------------------------------

constexpr std::size_t mark_at = 6;
constexpr std::uint32_t header_bytes = 54, info_bytes = 40, dots_per_meter = 0xb12;

/// The little-endian head of a 24-bit BMP.
std::vector<std::uint8_t> make_header(const BITMAP* bitmap, std::uint32_t pixel_bytes, int mark) {
    std::vector<std::uint8_t> head;
    const auto put = [&head](std::uint32_t value, int bytes) {
        for (int i = 0; i < bytes; ++i) head.push_back(static_cast<std::uint8_t>(value >> 8 * i));
    };
    put('B' | 'M' << 8, 2);
    put(header_bytes + pixel_bytes, 4);
    put(static_cast<std::uint32_t>(mark), 4);
    put(header_bytes, 4);
    put(info_bytes, 4);
    put(static_cast<std::uint32_t>(bitmap->w), 4);
    put(static_cast<std::uint32_t>(bitmap->h), 4);
    put(1, 2);  // planes
    put(24, 2);
    put(BMP_PLAIN, 4);
    put(pixel_bytes, 4);
    put(dots_per_meter, 4);
    put(dots_per_meter, 4);
    put(0, 4);  // colours used and
    put(0, 4);  // important: no palette
    return head;
}

// ---- Reading plain rows --------------------------------------------------------------------------------------------

std::uint32_t pixel_of_16_bits(const std::uint8_t* from) { return static_cast<std::uint32_t>(from[0] | from[1] << 8); }
std::uint32_t pixel_of_32_bits(const std::uint8_t* from) {
    return pixel_of_16_bits(from) | pixel_of_16_bits(from + 2) << 16;
}

/// The component under a mask, as 8 bits: a narrower one is repeated until they are full, so that white stays white.
std::uint32_t component(std::uint32_t pixel, std::uint32_t mask) {
    if (mask == 0) return 0;
    const int low = std::countr_zero(mask), width = std::bit_width(mask >> low);
    const std::uint32_t value = (pixel & mask) >> low;
    if (width >= 8) return value >> (width - 8);
    std::uint32_t wide = value << (8 - width);
    for (int filled = width; filled < 8; filled *= 2) wide |= wide >> filled;
    return wide & 0xff;
}

Color masked_color(std::uint32_t pixel, const BmpHeader& header) {
    return component(pixel, header.masks[0]) << 16 | component(pixel, header.masks[1]) << 8 |
           component(pixel, header.masks[2]);
}

/// One row of the file, unpacked to colours.
void unpack_row(const BmpHeader& header, const std::uint8_t* from, Color* to) {
    const auto width = static_cast<std::size_t>(header.width), bits = static_cast<std::size_t>(header.bits);
    switch (header.bits) {
    case 24: unpack_row(from, to, header.width, BYTES_BGR); return;
    case 32:
        for (std::size_t i = 0; i < width; ++i, from += 4) to[i] = masked_color(pixel_of_32_bits(from), header);
        return;
    case 16:
        for (std::size_t i = 0; i < width; ++i, from += 2) to[i] = masked_color(pixel_of_16_bits(from), header);
        return;
    default:  // 1, 4 or 8 bits, the first pixel in the highest ones
        for (std::size_t i = 0; i < width; ++i) {
            const std::size_t at = i * bits;
            const unsigned shift = static_cast<unsigned>(8 - bits - at % 8);
            to[i] = header.palette[from[at / 8] >> shift & ((1U << bits) - 1)];
        }
    }
}

/// What the alphas of all pixels come to. Of some programs all are 0, and mean nothing.
class SeenAlpha {
public:
    explicit SeenAlpha(const BmpHeader& header)
        : mask_(header.alpha_mask), width_(header.width), wide_(header.bits == 32) {}

    void see_row(const std::uint8_t* from) {
        for (int i = 0; mask_ != 0 && i < width_; ++i, from += wide_ ? 4 : 2) {
            const std::uint32_t pixel = wide_ ? pixel_of_32_bits(from) : pixel_of_16_bits(from);
            all_ &= pixel;
            any_ |= pixel;
        }
    }
    bool is_lost() const { return (all_ & mask_) != mask_ && (any_ & mask_) != 0; }

private:
    std::uint32_t mask_;
    int width_;
    bool wide_;
    std::uint32_t all_ = ~0U, any_ = 0;
};

constexpr std::size_t block_bytes = 256 * 1024;

/// Reads the rows some at a time, so that a large picture isn't in memory twice.
bool read_rows(const InputFile& file, const BmpHeader& header, BITMAP* bitmap, SeenAlpha& alpha) {
    const std::size_t row = header.rows().row_bytes();
    const int rows_at_once = static_cast<int>(std::max<std::size_t>(1, block_bytes / row));
    std::vector<std::uint8_t> block(row * static_cast<std::size_t>(std::min(rows_at_once, header.height)));
    for (int first = 0; first < header.height; first += rows_at_once) {
        const int rows = std::min(rows_at_once, header.height - first);
        const std::size_t at = header.pixels_at + row * static_cast<std::size_t>(first);
        const std::size_t bytes = std::min(row * static_cast<std::size_t>(rows), file.size() - at);
        if (!file.read_at(at, block.data(), bytes)) return false;  // what fills up the last row may be missing
        for (int i = 0; i < rows; ++i) {
            const int y = header.top_down ? first + i : header.height - 1 - first - i;
            const std::uint8_t* const from = block.data() + row * static_cast<std::size_t>(i);
            unpack_row(header, from, pixels_at(bitmap, 0, y));
            alpha.see_row(from);
        }
    }
    return true;
}

// ---- Reading run lengths -------------------------------------------------------------------------------------------

/// Unpacks the two run length forms. Nothing outside the bitmap is written, nothing behind the bytes is read.
class RunReader {
public:
    RunReader(const BmpHeader& header, const std::vector<std::uint8_t>& bytes, BITMAP* bitmap)
        : header_(header), bytes_(bytes), bitmap_(bitmap), y_(header.height - 1) {}

    /// False if the bytes end before the picture does. The mark of its end may be missing, its pixels may not.
    bool read() {
        while (at_ + 1 < bytes_.size() && y_ >= 0) {
            const int count = bytes_[at_], value = bytes_[at_ + 1];
            at_ += 2;
            if (count > 0) {
                for (int i = 0; i < count; ++i) put(index_in(value, i));
            } else if (value == line_end) {
                x_ = 0;
                --y_;
            } else if (value == picture_end) {
                return true;
            } else if (value == move) {
                if (at_ + 1 >= bytes_.size()) return false;
                x_ = std::min(x_ + bytes_[at_], header_.width);
                y_ -= bytes_[at_ + 1];
                at_ += 2;
            } else {
                read_literal(value);
            }
        }
        return y_ < 0 || (y_ == 0 && x_ >= header_.width);
    }

private:
    enum Escape : int { line_end = 0, picture_end = 1, move = 2 };

    /// Pixel i of a byte that stands for one pixel, or for two in turn.
    int index_in(int value, int i) const {
        if (header_.packing == BMP_RLE8) return value;
        return i % 2 == 0 ? value >> 4 : value & 15;
    }

    /// Pixels that stand one by one, padded to a whole number of words.
    void read_literal(int count) {
        const int per_byte = header_.packing == BMP_RLE8 ? 1 : 2;
        for (int i = 0; i < count; ++i) {
            const std::size_t at = at_ + static_cast<std::size_t>(i / per_byte);
            if (at >= bytes_.size()) break;
            put(index_in(bytes_[at], i));
        }
        const int used = (count + per_byte - 1) / per_byte;
        at_ += static_cast<std::size_t>(used + used % 2);
    }

    void put(int index) {
        if (!frame_contains(bitmap_, x_, y_)) return;
        *pixels_at(bitmap_, x_, y_) = header_.palette[static_cast<unsigned>(index)];
        ++x_;
    }

    const BmpHeader& header_;
    const std::vector<std::uint8_t>& bytes_;
    BITMAP* bitmap_;
    std::size_t at_ = 0;
    int x_ = 0, y_;
};

/// Two bytes stand for 255 pixels at the best. A head that promises far more than its bytes can hold is refused before
/// the memory is taken.
bool runs_can_fill(const BmpHeader& header, std::size_t bytes) {
    constexpr std::size_t always_allowed = 4'000'000, pixels_of_a_byte = 128;
    const std::size_t pixels = static_cast<std::size_t>(header.width) * static_cast<std::size_t>(header.height);
    return pixels <= always_allowed || pixels / pixels_of_a_byte <= bytes;
}

PictureFault read_runs(const InputFile& file, const BmpHeader& header, BITMAP* bitmap) {
    std::vector<std::uint8_t> bytes(file.size() - header.pixels_at);
    if (!file.read_at(header.pixels_at, bytes.data(), bytes.size())) return PICTURE_OUT_OF_REACH;
    clear_to_color(bitmap, static_cast<int>(header.palette[0]));
    return RunReader(header, bytes, bitmap).read() ? PICTURE_FINE : PICTURE_MALFORMED;
}

/// True if this machine can hold the picture as a Frame: itself, its coverage map, the copy for RESTORE and one undo.
bool memory_bears(const BmpHeader& header) {
    constexpr double copies = 4;
    const double bytes = static_cast<double>(header.width) * header.height * sizeof(Color) * copies;
    return bytes <= static_cast<double>(sysconf(_SC_PHYS_PAGES)) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

/// What keeps a file from giving a picture.
struct Refusal {
    PictureFault fault = PICTURE_FINE;
    const char* cause = "";
};
constexpr Refusal without_memory{PICTURE_OUT_OF_REACH, "there isn't memory enough"};

/// Of the widest component.
std::uint32_t sample_bits(const BmpHeader& header) {
    std::uint32_t bits = 8;
    for (const std::uint32_t mask : header.masks)
        if (header.bits > 8 && mask != 0)
            bits = std::max(bits, static_cast<std::uint32_t>(std::bit_width(mask >> std::countr_zero(mask))));
    return bits;
}

Refusal read_picture(const InputFile& file, OwnedBitmap& bitmap, PictureLoss& loss) {
    std::vector<std::uint8_t> head(std::min(bmp_head_limit, file.size()));
    if (!file.read_at(0, head.data(), head.size())) return {PICTURE_OUT_OF_REACH, "its head can't be read"};
    BmpHeader header;
    if (const char* cause = read_bmp_header(head, file.size(), header)) return {PICTURE_MALFORMED, cause};
    const bool packed = header.is_run_length();
    if (packed && !runs_can_fill(header, file.size() - header.pixels_at)) return {PICTURE_MALFORMED, "it is cut short"};
    bitmap = memory_bears(header) ? make_uncleared_bitmap(header.width, header.height) : nullptr;
    if (!bitmap) return without_memory;
    take_rows(bitmap.get(), 0, header.height);
    if (packed) return {read_runs(file, header, bitmap.get()), "its pixels can't be read"};
    SeenAlpha alpha(header);
    if (!read_rows(file, header, bitmap.get(), alpha)) return {PICTURE_OUT_OF_REACH, "its pixels can't be read"};
    loss.alpha = alpha.is_lost();
    loss.sample_bits = sample_bits(header);
    return {};
}

/// Gives the file's bytes to `put(bytes, size)`, piece by piece, so that a Frame of any width is written without memory
/// of its own.
template <typename Put> void put_bmp(BITMAP* bitmap, int mark, Put put) {
    constexpr int piece = 1024;  // pixels
    constexpr std::size_t most_padding = 3;
    const std::size_t row_bytes = (static_cast<std::size_t>(bitmap->w) * 3 + 3) / 4 * 4;
    const std::size_t padding = row_bytes - static_cast<std::size_t>(bitmap->w) * 3;
    const auto pixel_bytes = static_cast<std::uint32_t>(row_bytes * static_cast<std::size_t>(bitmap->h));
    const std::vector<std::uint8_t> head = make_header(bitmap, pixel_bytes, mark);
    put(head.data(), head.size());
    std::array<std::uint8_t, std::size_t{piece} * 3> packed;
    constexpr std::array<std::uint8_t, most_padding> zeros{};
    for (int y = bitmap->h - 1; y >= 0; --y) {
        for (int x = 0; x < bitmap->w; x += piece) {
            const int count = std::min(piece, bitmap->w - x);
            pack_row(pixels_at(bitmap, x, y), packed.data(), count, BYTES_BGR);
            put(packed.data(), static_cast<std::size_t>(count) * 3);
        }
        put(zeros.data(), padding);
    }
}

}  // namespace

void write_bmp(SafeFile& file, BITMAP* bitmap, int mark) {
    put_bmp(bitmap, mark, [&file](const std::uint8_t* from, std::size_t size) { file.write(from, size); });
}

void write_bmp(BITMAP* bitmap, std::vector<std::uint8_t>& bytes) {
    put_bmp(bitmap, 0,
            [&bytes](const std::uint8_t* from, std::size_t size) { bytes.insert(bytes.end(), from, from + size); });
}

BmpPicture read_bmp(const InputFile& file) {
    BmpPicture picture;
    const auto read = [&] { return read_picture(file, picture.bitmap, picture.loss); };
    const Refusal refusal = unless_memory_ends(read, without_memory);
    picture.fault = refusal.fault;
    picture.cause = refusal.cause;
    if (picture.fault != PICTURE_FINE) picture.bitmap.reset();
    return picture;
}

ReadPicture read_bmp(FileBytes bytes) {
    ReadPicture picture;
    const Refusal refusal = read_picture(InputFile(bytes), picture.bitmap, picture.loss);
    if (refusal.fault == PICTURE_FINE) return picture;
    return {nullptr, refusal.cause};
}

int mark_of_bmp(const InputFile& file) {
    std::array<std::uint8_t, 2> mark{};
    return file.read_at(mark_at, mark.data(), mark.size()) ? mark[0] | mark[1] << 8 : 0;
}

const char* fault_of_bmp(const InputFile& file) {
    const BmpPicture picture = read_bmp(file);
    return picture.fault == PICTURE_FINE ? nullptr : picture.cause;
}

}  // namespace nubo
