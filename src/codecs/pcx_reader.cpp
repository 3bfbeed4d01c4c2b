// Reading a PCX: its head of 128 bytes, packed rows of planes, and the large palette behind them.
#include "base/color.h"
#include "codecs/byte_view.h"
#include "codecs/pcx.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

namespace nubo {
namespace {

constexpr std::size_t head_bytes = 128, small_palette_at = 16, small_palette_entries = 16, large_palette_entries = 256;
constexpr std::uint32_t signature = 10, version_without_palette = 3, large_palette_mark = 12;
constexpr std::size_t alpha_planes = 4;           // of 8 bits, the last of them the alpha
constexpr std::size_t pixels_of_a_byte = 8 * 63;  // a run of bytes of 8 pixels each, in two bytes

/// The colours of a file that brings none: those of the adapter of its time.
constexpr std::array<Color, small_palette_entries> default_palette_16{
    0x000000, 0x0000aa, 0x00aa00, 0x00aaaa, 0xaa0000, 0xaa00aa, 0xaa5500, 0xaaaaaa,
    0x555555, 0x5555ff, 0x55ff55, 0x55ffff, 0xff5555, 0xff55ff, 0xffff55, 0xffffff};

struct PcxPicture {
    PixelRows rows{};
    bool packed = false;
    std::array<Color, large_palette_entries> palette{};
};

// ---- Head and palette ----------------------------------------------------------------------------------------------

bool is_known_form(const PcxPicture& pcx) {
    const std::size_t planes = pcx.rows.planes;
    switch (pcx.rows.bits) {
    case 1: return planes >= 1 && planes <= 4;
    case 2:
    case 4: return planes == 1;
    case 8: return planes == 1 || planes == 3 || planes == alpha_planes;
    default: return false;
    }
}

void read_colors(const ByteView& file, std::size_t at, std::size_t count, PcxPicture& pcx) {
    for (std::size_t i = 0; i < count; ++i, at += 3)
        pcx.palette[i] = pack_color(static_cast<int>(file.byte(at)), static_cast<int>(file.byte(at + 1)),
                                    static_cast<int>(file.byte(at + 2)));
}

/// The 16 colours of the head. Those of a file that brings none, or all of one colour, are the adapter's; two of them
/// are black and white.
void read_small_palette(const ByteView& file, PcxPicture& pcx) {
    read_colors(file, small_palette_at, small_palette_entries, pcx);
    const std::size_t used = std::size_t{1} << pcx.rows.bits * pcx.rows.planes;
    const auto first = pcx.palette.begin(), end = first + static_cast<std::ptrdiff_t>(used);
    const bool has_colors = file.byte(1) != version_without_palette &&
                            std::any_of(first, end, [&](Color color) { return color != pcx.palette[0]; });
    if (has_colors) return;
    std::copy(default_palette_16.begin(), default_palette_16.end(), pcx.palette.begin());
    if (used == 2) pcx.palette[1] = 0xffffff;
}

/// The 256 colours behind the pixels; without them the indexes are grays.
void read_large_palette(const ByteView& file, PcxPicture& pcx) {
    constexpr std::size_t palette_bytes = 3 * large_palette_entries;
    for (std::size_t i = 0; i < large_palette_entries; ++i) pcx.palette[i] = static_cast<Color>(i * 0x010101);
    if (file.size() < head_bytes + palette_bytes + 1) return;
    const std::size_t at = file.size() - palette_bytes;
    if (file.byte(at - 1) == large_palette_mark) read_colors(file, at, large_palette_entries, pcx);
}

/// Null, or why the head can't be believed.
const char* read_head(const ByteView& file, PcxPicture& pcx) {
    if (file.size() < head_bytes || file.byte(0) != signature || file.byte(2) > 1) return "it is no PCX file";
    pcx.packed = file.byte(2) == 1;
    PixelRows& rows = pcx.rows;
    rows.bits = file.byte(3);
    rows.planes = file.byte(65);
    rows.unit = file.little_16(66);  // the file says how long its rows are
    if (!is_known_form(pcx)) return "its pixels have no known form";
    const std::uint32_t left = file.little_16(4), top = file.little_16(6), right = file.little_16(8),
                        bottom = file.little_16(10);
    if (right < left || bottom < top) return "its size is out of range";
    rows.width = right - left + 1;
    rows.height = bottom - top + 1;
    if (rows.unit < rows.used_bytes()) return "its rows are shorter than the picture is wide";
    const bool enough = pcx.packed ? can_fill(rows.width, rows.height, file.size(), pixels_of_a_byte)
                                   : rows.row_bytes() * rows.height <= file.size() - head_bytes;
    if (!enough) return "it is cut short";
    if (rows.bits == 8 && rows.planes == 1)
        read_large_palette(file, pcx);
    else if (rows.bits < 8)
        read_small_palette(file, pcx);
    return nullptr;
}

// ---- Pixels --------------------------------------------------------------------------------------------------------

constexpr std::size_t run_slack = 64;  // one more than the longest run

/// The bytes of the planes, one after the other. A run may go on from one row to the next.
class PcxBytes {
public:
    PcxBytes(FileBytes bytes, bool packed)
        : at_(bytes.data() + head_bytes), end_(bytes.data() + bytes.size()), packed_(packed) {}

    /// The next `count` bytes; `run_slack` bytes more may be written. False when the file ends before.
    bool fill(std::uint8_t* to, std::size_t count) {
        if (packed_) return unpack(to, to + count);
        if (static_cast<std::size_t>(end_ - at_) < count) return false;
        std::memcpy(to, at_, count);
        at_ += count;
        return true;
    }

private:
    /// The place is held in a variable of its own: any byte written might be one of this object.
    bool unpack(std::uint8_t* to, const std::uint8_t* to_end) {
        constexpr std::uint8_t run_bits = 0xc0;
        const std::uint8_t* at = at_;
        if (left_ > 0) to += put_run(to, to_end, left_);
        while (to < to_end) {
            if (at == end_) return false;
            const std::uint8_t byte = *at++;
            if (byte < run_bits) {
                *to++ = byte;
                continue;
            }
            if (at == end_) return false;
            value_ = *at++;
            to += put_run(to, to_end, byte - run_bits);
        }
        at_ = at;
        return true;
    }

    /// Puts as much of a run as fits and keeps the rest. Always writing all its room is quicker than counting.
    std::ptrdiff_t put_run(std::uint8_t* to, const std::uint8_t* to_end, std::ptrdiff_t run) {
        const std::ptrdiff_t length = std::min(run, to_end - to);
        std::memset(to, value_, run_slack);
        left_ = run - length;
        return length;
    }

    const std::uint8_t *at_, *end_;
    bool packed_;
    std::uint8_t value_ = 0;   // of the last run,
    std::ptrdiff_t left_ = 0;  // which has so many bytes still to come
};

/// The index of pixel x: the bits of its place in each plane, the first plane's the lowest.
std::size_t index_at(const PcxPicture& pcx, const std::uint8_t* row, std::size_t plane_bytes, std::size_t x) {
    const std::size_t bits = pcx.rows.bits, bit = x * bits, mask = (std::size_t{1} << bits) - 1;
    std::size_t index = 0;
    for (std::size_t plane = 0; plane < pcx.rows.planes; ++plane)
        index |= (row[plane * plane_bytes + bit / 8] >> (8 - bits - bit % 8) & mask) << plane;
    return index;
}

void spread_row(const PcxPicture& pcx, const std::uint8_t* row, Color* to) {
    const std::size_t width = pcx.rows.width, plane_bytes = pcx.rows.plane_bytes();
    if (pcx.rows.bits == 8 && pcx.rows.planes == 1) {
        for (std::size_t x = 0; x < width; ++x) to[x] = pcx.palette[row[x]];
    } else if (pcx.rows.bits == 8) {
        const std::uint8_t *green = row + plane_bytes, *blue = green + plane_bytes;
        for (std::size_t x = 0; x < width; ++x)
            to[x] = static_cast<Color>(row[x]) << 16 | static_cast<Color>(green[x]) << 8 | blue[x];
    } else {
        for (std::size_t x = 0; x < width; ++x) to[x] = pcx.palette[index_at(pcx, row, plane_bytes, x)];
    }
}

bool hides_a_pixel(const PcxPicture& pcx, const std::uint8_t* row) {
    constexpr std::uint8_t whole = 255;
    if (pcx.rows.bits != 8 || pcx.rows.planes != alpha_planes) return false;
    const std::uint8_t* const alpha = row + (alpha_planes - 1) * pcx.rows.plane_bytes();
    return std::any_of(alpha, alpha + pcx.rows.width, [](std::uint8_t value) { return value != whole; });
}

}  // namespace

ReadPicture read_pcx(FileBytes bytes) {
    PcxPicture pcx;
    if (const char* const fault = read_head(ByteView(bytes), pcx)) return {nullptr, fault};
    ReadPicture picture;
    picture.bitmap = bitmap_to_fill(pcx.rows.width, pcx.rows.height, picture.cause);
    if (!picture.bitmap) return picture;
    const std::size_t row_bytes = pcx.rows.row_bytes();
    std::vector<std::uint8_t> row(row_bytes + run_slack);
    PcxBytes planes(bytes, pcx.packed);
    for (int y = 0; y < picture.bitmap->h; ++y) {
        if (!planes.fill(row.data(), row_bytes)) return {nullptr, "it is cut short"};
        spread_row(pcx, row.data(), pixels_at(picture.bitmap.get(), 0, y));
        picture.loss.alpha = picture.loss.alpha || hides_a_pixel(pcx, row.data());
    }
    return picture;
}

}  // namespace nubo
