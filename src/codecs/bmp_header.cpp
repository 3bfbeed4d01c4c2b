#include "codecs/bmp_header.h"

#include "base/color.h"
#include "state/frames.h"
#include <algorithm>
#include <cstdlib>

namespace nubo {
namespace {

constexpr std::size_t file_header_bytes = 14, core_header_bytes = 12, info_header_bytes = 40, mask_bytes = 4;
constexpr std::size_t alpha_header_bytes = 56;  // from which length on a head has a mask of the alpha

/// The little-endian numbers of the head; behind its end they are 0.
class HeadReader {
public:
    explicit HeadReader(const std::vector<std::uint8_t>& bytes) : bytes_(bytes) {}
    std::uint32_t byte(std::size_t at) const { return at < bytes_.size() ? bytes_[at] : 0U; }
    std::uint32_t word(std::size_t at) const { return byte(at) | byte(at + 1) << 8; }
    std::uint32_t dword(std::size_t at) const { return word(at) | word(at + 2) << 16; }
    std::size_t size() const { return bytes_.size(); }

private:
    const std::vector<std::uint8_t>& bytes_;
};

/// Width, height, depth and packing, of the old short head or of the long one and its heirs, which begin alike.
void read_sizes(const HeadReader& head, bool core, BmpHeader& header) {
    const std::size_t at = file_header_bytes + 4;
    if (core) {
        header.width = static_cast<int>(head.word(at));
        header.height = static_cast<int>(head.word(at + 2));
        header.bits = static_cast<int>(head.word(at + 6));
        return;
    }
    header.width = static_cast<int>(head.dword(at));
    const auto height = static_cast<std::int32_t>(head.dword(at + 4));
    header.top_down = height < 0;
    header.height = height < -max_frame_side ? 0 : std::abs(height);
    header.bits = static_cast<int>(head.word(at + 10));
    header.packing = static_cast<int>(head.dword(at + 12));
}

bool is_known_form(const BmpHeader& header) {
    switch (header.packing) {
    case BMP_PLAIN:
        return header.bits == 1 || header.bits == 4 || header.bits == 8 || header.bits == 16 || header.bits == 24 ||
               header.bits == 32;
    case BMP_RLE8: return header.bits == 8 && !header.top_down;
    case BMP_RLE4: return header.bits == 4 && !header.top_down;
    case BMP_BITFIELDS:
    case BMP_ALPHA_BITFIELDS: return header.bits == 16 || header.bits == 32;
    default: return false;
    }
}

bool has_masks(const BmpHeader& header) {
    return header.packing == BMP_BITFIELDS || header.packing == BMP_ALPHA_BITFIELDS;
}

/// The masks stand behind the first 40 bytes, be it inside a longer head or between the head and the palette.
void read_masks(const HeadReader& head, std::size_t head_bytes, BmpHeader& header) {
    header.masks = header.bits == 16 ? std::array<std::uint32_t, 3>{0x7c00, 0x03e0, 0x001f}
                                     : std::array<std::uint32_t, 3>{0xff0000, 0x00ff00, 0x0000ff};
    if (!has_masks(header)) return;
    const std::size_t at = file_header_bytes + info_header_bytes, colors = header.masks.size();
    for (std::size_t i = 0; i < colors; ++i) header.masks[i] = head.dword(at + i * mask_bytes);
    if (header.packing == BMP_ALPHA_BITFIELDS || head_bytes >= alpha_header_bytes)
        header.alpha_mask = head.dword(at + colors * mask_bytes);
}

/// How many colours the palette at the head's end holds; true colour may have one too.
std::size_t count_colors(const HeadReader& head, bool core, const BmpHeader& header) {
    const std::size_t most = header.bits > 8 ? 0 : std::size_t{1} << header.bits;
    const std::size_t stated = core ? 0 : head.dword(file_header_bytes + 32);
    return most > 0 && (stated == 0 || stated > most) ? most : stated;
}

void read_palette(const HeadReader& head, std::size_t at, std::size_t entry, std::size_t count, BmpHeader& header) {
    if (header.bits > 8) return;
    for (std::size_t i = 0; i < count; ++i, at += entry)
        header.palette[i] = pack_color(static_cast<int>(head.byte(at + 2)), static_cast<int>(head.byte(at + 1)),
                                       static_cast<int>(head.byte(at)));
}

/// Where the pixels begin. Some programs leave that at 0: they do behind everything else then.
std::size_t find_pixels(const HeadReader& head, std::size_t head_bytes, std::size_t palette_bytes,
                        const BmpHeader& header) {
    if (head.dword(10) != 0) return head.dword(10);
    const std::size_t masks = header.packing == BMP_ALPHA_BITFIELDS ? 4 : 3;
    const bool masks_follow = has_masks(header) && head_bytes == info_header_bytes;
    return file_header_bytes + head_bytes + (masks_follow ? masks * mask_bytes : 0) + palette_bytes;
}

}  // namespace

const char* read_bmp_header(const std::vector<std::uint8_t>& bytes, std::size_t file_size, BmpHeader& header) {
    const HeadReader head(bytes);
    if (head.size() < file_header_bytes + core_header_bytes || head.byte(0) != 'B' || head.byte(1) != 'M')
        return "it is no BMP file";

    const std::size_t head_bytes = head.dword(file_header_bytes);
    const bool core = head_bytes == core_header_bytes;
    if (!core && (head_bytes < info_header_bytes || head_bytes > bmp_head_limit / 2))
        return "its head has no known form";
    read_sizes(head, core, header);
    if (!is_known_form(header)) return "its pixels have no known form";
    if (header.width < 1 || header.width > max_frame_side || header.height < 1) return "its size is out of range";
    if (header.height > max_frame_side) return "its size is out of range";
    read_masks(head, head_bytes, header);
    const std::size_t colors = count_colors(head, core, header), entry = core ? 3 : 4;
    read_palette(head, file_header_bytes + head_bytes, entry, colors, header);
    header.pixels_at = find_pixels(head, head_bytes, colors * entry, header);
    if (header.pixels_at < file_header_bytes + head_bytes || header.pixels_at > file_size)
        return "its pixels lie outside the file";
    if (!header.is_run_length() && header.rows().fewest_bytes() > file_size - header.pixels_at)
        return "it is cut short";
    return nullptr;
}

}  // namespace nubo
