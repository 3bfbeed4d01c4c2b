#include "codecs/bmp_header.h"

#include "base/color.h"
#include "state/frames.h"
#include <algorithm>
#include <cstdlib>

namespace nubo {
namespace {

constexpr std::size_t file_header_bytes = 14, core_header_bytes = 12, info_header_bytes = 40;

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

/// The masks stand behind the first 40 bytes, be it inside a longer head or between the head and the palette.
void read_masks(const HeadReader& head, BmpHeader& header) {
    header.masks = header.bits == 16 ? std::array<std::uint32_t, 3>{0x7c00, 0x03e0, 0x001f}
                                     : std::array<std::uint32_t, 3>{0xff0000, 0x00ff00, 0x0000ff};
    if (header.packing != BMP_BITFIELDS && header.packing != BMP_ALPHA_BITFIELDS) return;
    for (std::size_t i = 0; i < header.masks.size(); ++i)
        header.masks[i] = head.dword(file_header_bytes + info_header_bytes + i * 4);
}

void read_palette(const HeadReader& head, std::size_t at, bool core, BmpHeader& header) {
    if (header.bits > 8) return;
    std::size_t count = std::size_t{1} << header.bits;
    const std::size_t stated = core ? 0 : head.dword(file_header_bytes + 32);
    if (stated > 0) count = std::min(count, stated);
    const std::size_t entry = core ? 3 : 4;
    for (std::size_t i = 0; i < count; ++i, at += entry)
        header.palette[i] = pack_color(static_cast<int>(head.byte(at + 2)), static_cast<int>(head.byte(at + 1)),
                                       static_cast<int>(head.byte(at)));
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
    read_masks(head, header);
    read_palette(head, file_header_bytes + head_bytes, core, header);

    header.pixels_at = head.dword(10);
    if (header.pixels_at < file_header_bytes + head_bytes || header.pixels_at > file_size)
        return "its pixels lie outside the file";
    const std::size_t pixel_bytes = header.row_bytes() * static_cast<std::size_t>(header.height);
    if (!header.is_run_length() && pixel_bytes > file_size - header.pixels_at) return "it is cut short";
    return nullptr;
}

}  // namespace nubo
