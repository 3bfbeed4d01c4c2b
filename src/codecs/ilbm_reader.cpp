// Reading an ILBM: its chunks, the planes of each row unpacked and turned into indexes, the indexes into colours.
#include "base/color.h"
#include "codecs/byte_view.h"
#include "codecs/ilbm.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <type_traits>
#include <vector>

namespace nubo {
namespace {

constexpr std::size_t palette_entries = 256, byte_planes = 8, true_color_planes = 24;
constexpr std::size_t half_brite_planes = 6, half_brite_entries = 32;
constexpr std::size_t pixels_of_a_byte = 8 * 64;  // a run of 128 bytes of 8 pixels each, in two bytes

constexpr std::uint32_t chunk_name(const char (&name)[5]) {
    std::uint32_t word = 0;
    for (int i = 0; i < 4; ++i) word = word << 8 | static_cast<std::uint8_t>(name[i]);
    return word;
}

enum IlbmMode : std::uint32_t { MODE_HALF_BRITE = 0x80, MODE_HAM = 0x800 };  // bits of the view mode

struct IlbmPicture {
    PixelRows rows{};                     // of all planes that are stored, the mask's among them
    std::size_t planes = 0;               // of colours, or the bits of a pixel that is a byte
    bool packed = false, chunky = false;  // chunky: a byte for each pixel, no planes
    bool masked = false, half_brite = false, ham = false;
    std::array<Color, palette_entries> palette{};
    FileBytes body;
};

// ---- Chunks --------------------------------------------------------------------------------------------------------

/// What the chunks in front of the body tell, in any order.
struct IlbmChunks {
    FileBytes header, colors, body;
    std::uint32_t view_mode = 0;
    bool has_view_mode = false;
};

IlbmChunks find_chunks(const ByteView& file) {
    constexpr std::size_t form_bytes = 12, chunk_head_bytes = 8;
    IlbmChunks chunks;
    for (std::size_t at = form_bytes; at + chunk_head_bytes <= file.size() && chunks.body.empty();) {
        const std::size_t length = file.big_32(at + 4);
        const FileBytes content = file.part(at + chunk_head_bytes, length);
        switch (file.big_32(at)) {
        case chunk_name("BMHD"): chunks.header = content; break;
        case chunk_name("CMAP"): chunks.colors = content; break;
        case chunk_name("BODY"): chunks.body = content; break;
        case chunk_name("CAMG"):
            chunks.view_mode = ByteView(content).big_32(0);
            chunks.has_view_mode = true;
            break;
        }
        at += chunk_head_bytes + length + length % 2;
    }
    return chunks;
}

void read_palette(const IlbmChunks& chunks, IlbmPicture& ilbm) {
    const ByteView colors(chunks.colors);
    const std::size_t count = std::min(colors.size() / 3, palette_entries);
    for (std::size_t i = 0; i < count; ++i)
        ilbm.palette[i] = pack_color(static_cast<int>(colors.byte(3 * i)), static_cast<int>(colors.byte(3 * i + 1)),
                                     static_cast<int>(colors.byte(3 * i + 2)));
    if (ilbm.planes > byte_planes) return;
    ilbm.ham = (chunks.view_mode & MODE_HAM) != 0 && ilbm.planes > 4;
    // Old files of six planes with half the colours bring no view mode.
    ilbm.half_brite = ilbm.planes == half_brite_planes && !ilbm.ham &&
                      ((chunks.view_mode & MODE_HALF_BRITE) != 0 ||
                       (!chunks.has_view_mode && count > 0 && count <= half_brite_entries));
    if (ilbm.half_brite)
        for (std::size_t i = 0; i < half_brite_entries; ++i)
            ilbm.palette[half_brite_entries + i] = ilbm.palette[i] >> 1 & 0x7f7f7f;
    const std::size_t shades = std::size_t{1} << ilbm.planes;
    for (std::size_t i = 0; count == 0 && i < shades; ++i)
        ilbm.palette[i] = static_cast<Color>(i * 255 / (shades - 1) * 0x010101);
}

bool is_known_form(const IlbmPicture& ilbm) {
    if (ilbm.chunky) return ilbm.planes == byte_planes;
    return (ilbm.planes >= 1 && ilbm.planes <= byte_planes) || ilbm.planes == true_color_planes;
}

/// Null, or why the head can't be believed.
const char* read_head(const ByteView& file, IlbmPicture& ilbm) {
    constexpr std::size_t header_bytes = 20;
    const std::uint32_t form = file.big_32(8);
    if (file.big_32(0) != chunk_name("FORM") || (form != chunk_name("ILBM") && form != chunk_name("PBM ")))
        return "it is no ILBM file";
    const IlbmChunks chunks = find_chunks(file);
    const ByteView header(chunks.header);
    if (header.size() < header_bytes || chunks.body.empty()) return "it is cut short";
    const std::uint32_t width = header.big_16(0), height = header.big_16(2), packing = header.byte(10);
    ilbm.planes = header.byte(8);
    ilbm.chunky = form == chunk_name("PBM ");
    ilbm.masked = !ilbm.chunky && header.byte(9) == 1;
    if (!is_known_form(ilbm) || packing > 1) return "its pixels have no known form";
    if (width < 1 || height < 1) return "its size is out of range";
    ilbm.packed = packing == 1;
    const std::size_t bits = ilbm.chunky ? 8 : 1, stored = ilbm.chunky ? 1 : ilbm.planes + (ilbm.masked ? 1 : 0);
    ilbm.rows = {.width = width, .height = height, .bits = bits, .planes = stored, .unit = 2};
    ilbm.body = chunks.body;
    const bool enough = ilbm.packed ? can_fill(width, height, ilbm.body.size(), pixels_of_a_byte)
                                    : ilbm.rows.row_bytes() * height <= ilbm.body.size();
    if (!enough) return "it is cut short";
    read_palette(chunks, ilbm);
    return nullptr;
}

// ---- The body ------------------------------------------------------------------------------------------------------

/// The bytes of the body. A run may go on from one plane or row to the next.
class BodyBytes {
public:
    BodyBytes(FileBytes bytes, bool packed) : bytes_(bytes), packed_(packed) {}

    /// The next `count` bytes. False when the body ends before.
    bool fill(std::uint8_t* to, std::size_t count) {
        while (count > 0) {
            if (left_ == 0 && !start_run()) return false;
            const std::size_t length = std::min(left_, count);
            if (is_run_) {
                std::memset(to, bytes_[at_], length);
            } else {
                if (length > bytes_.size() - at_) return false;
                std::memcpy(to, bytes_.data() + at_, length);
                at_ += length;
            }
            to += length;
            count -= length;
            left_ -= length;
            if (is_run_ && left_ == 0) ++at_;
        }
        return true;
    }

private:
    bool start_run() {
        constexpr std::uint8_t nothing = 128;
        if (!packed_) {
            left_ = bytes_.size() - at_;
            return left_ > 0;
        }
        while (at_ < bytes_.size() && bytes_[at_] == nothing) ++at_;
        if (at_ + 1 >= bytes_.size()) return false;
        const std::uint8_t byte = bytes_[at_++];
        is_run_ = byte > nothing;
        left_ = is_run_ ? 257U - byte : byte + 1U;
        return true;
    }

    FileBytes bytes_;
    bool packed_, is_run_ = false;
    std::size_t at_ = 0, left_ = 0;  // of the present run, or of the bytes that stand one by one
};

/// Eight pixels of one plane as a byte each, 0 or 1, the highest bit first.
constexpr auto spread_bits = [] {
    std::array<std::uint64_t, 256> spread{};
    for (unsigned byte = 0; byte < spread.size(); ++byte) {
        std::array<std::uint8_t, 8> pixels{};
        for (unsigned i = 0; i < pixels.size(); ++i) pixels[i] = byte >> (7 - i) & 1;
        spread[byte] = std::bit_cast<std::uint64_t>(pixels);
    }
    return spread;
}();

/// Turns up to 8 planes into a byte for each pixel, the first plane the lowest bit. `to` has room for 8 * row_bytes.
/// `count` is a number, or a constant for which the inner loop unrolls.
template <typename Count>
void join_planes(const std::uint8_t* planes, std::size_t row_bytes, Count count, std::uint8_t* to) {
    for (std::size_t i = 0; i < row_bytes; ++i, to += 8) {
        std::uint64_t pixels = 0;
        for (std::size_t plane = 0; plane < count; ++plane)
            pixels |= spread_bits[planes[plane * row_bytes + i]] << plane;
        std::memcpy(to, &pixels, sizeof pixels);
    }
}
constexpr std::integral_constant<std::size_t, byte_planes> eight_planes;

/// Bytes of the indexes that `join_planes` makes of a row, and how often it does.
std::size_t joined_bytes(const IlbmPicture& ilbm) { return 8 * ilbm.rows.plane_bytes(); }
std::size_t joined_times(const IlbmPicture& ilbm) { return ilbm.planes == true_color_planes ? 3 : 1; }

/// A row of hold and modify: each pixel is an entry of the palette, or the one left of it with a component changed.
void spread_ham(const IlbmPicture& ilbm, const std::uint8_t* indexes, Color* to) {
    enum Change : int { CHANGE_ALL, CHANGE_BLUE, CHANGE_RED, CHANGE_GREEN };
    constexpr std::array<int, 4> shifts{0, 0, 16, 8};
    const int bits = ilbm.planes > half_brite_planes ? 6 : 4;
    Color color = ilbm.palette[0];
    for (std::size_t x = 0; x < ilbm.rows.width; ++x) {
        const Color value = indexes[x] & ((1U << bits) - 1);
        const auto change = static_cast<std::size_t>(indexes[x] >> bits);
        const Color full = value << (8 - bits) | value >> (2 * bits - 8);  // its bits again, until they are 8
        color = change == CHANGE_ALL ? ilbm.palette[value]
                                     : (color & ~(Color{0xff} << shifts[change])) | full << shifts[change];
        to[x] = color;
    }
}

/// Turns a row's planes, or its bytes, into colours; `scratch` has room for all that `join_planes` makes.
void spread_row(const IlbmPicture& ilbm, const std::uint8_t* row, std::uint8_t* scratch, Color* to) {
    const std::size_t plane_bytes = ilbm.rows.plane_bytes();
    if (ilbm.planes == true_color_planes) {
        const std::size_t pixels = joined_bytes(ilbm);
        for (std::size_t i = 0; i < joined_times(ilbm); ++i)
            join_planes(row + i * byte_planes * plane_bytes, plane_bytes, eight_planes, scratch + i * pixels);
        for (std::size_t x = 0; x < ilbm.rows.width; ++x)
            to[x] = static_cast<Color>(scratch[x]) << 16 | static_cast<Color>(scratch[pixels + x]) << 8 |
                    scratch[2 * pixels + x];
        return;
    }
    if (!ilbm.chunky && ilbm.planes == eight_planes) join_planes(row, plane_bytes, eight_planes, scratch);
    if (!ilbm.chunky && ilbm.planes != eight_planes) join_planes(row, plane_bytes, ilbm.planes, scratch);
    const std::uint8_t* const indexes = ilbm.chunky ? row : scratch;
    if (ilbm.ham) return spread_ham(ilbm, indexes, to);
    for (std::size_t x = 0; x < ilbm.rows.width; ++x) to[x] = ilbm.palette[indexes[x]];
}

/// Whether the row's mask, its last plane, leaves a pixel out.
bool hides_a_pixel(const IlbmPicture& ilbm, const std::uint8_t* row) {
    const std::uint8_t* const mask = row + ilbm.planes * ilbm.rows.plane_bytes();
    for (std::size_t x = 0; x < ilbm.rows.width; ++x)
        if ((mask[x / 8] >> (7 - x % 8) & 1) == 0) return true;
    return false;
}

}  // namespace

ReadPicture read_ilbm(FileBytes bytes) {
    IlbmPicture ilbm;
    if (const char* const fault = read_head(ByteView(bytes), ilbm)) return {nullptr, fault};
    ReadPicture picture;
    picture.bitmap = bitmap_to_fill(ilbm.rows.width, ilbm.rows.height, picture.cause);
    if (!picture.bitmap) return picture;
    std::vector<std::uint8_t> row(ilbm.rows.row_bytes()), scratch(joined_bytes(ilbm) * joined_times(ilbm));
    BodyBytes body(ilbm.body, ilbm.packed);
    for (int y = 0; y < picture.bitmap->h; ++y) {
        if (!body.fill(row.data(), row.size())) return {nullptr, "it is cut short"};
        spread_row(ilbm, row.data(), scratch.data(), pixels_at(picture.bitmap.get(), 0, y));
        if (ilbm.masked && !picture.loss.alpha) picture.loss.alpha = hides_a_pixel(ilbm, row.data());
    }
    return picture;
}

}  // namespace nubo
