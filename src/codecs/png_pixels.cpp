#include "codecs/png_pixels.h"

#include "codecs/png_paeth.h"

#include <algorithm>

namespace nubo {
namespace {

// ---- Filters -------------------------------------------------------------------------------------------------------

// `step` is the distance to the byte left of a byte, that of the pixel before; `above` is the row before, undone.

void undo_sub(std::uint8_t* row, std::size_t size, std::size_t step) {
    for (std::size_t i = step; i < size; ++i) row[i] = static_cast<std::uint8_t>(row[i] + row[i - step]);
}

void undo_up(std::uint8_t* row, const std::uint8_t* above, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) row[i] = static_cast<std::uint8_t>(row[i] + above[i]);
}

void undo_average(std::uint8_t* row, const std::uint8_t* above, std::size_t size, std::size_t step) {
    const std::size_t first = std::min(step, size);
    for (std::size_t i = 0; i < first; ++i) row[i] = static_cast<std::uint8_t>(row[i] + above[i] / 2);
    for (std::size_t i = first; i < size; ++i)
        row[i] = static_cast<std::uint8_t>(row[i] + (row[i - step] + above[i]) / 2);
}

bool undo_filter(int filter, std::uint8_t* row, const std::uint8_t* above, std::size_t size, std::size_t step) {
    switch (filter) {
    case PNG_FILTER_NONE: return true;
    case PNG_FILTER_SUB: return undo_sub(row, size, step), true;
    case PNG_FILTER_UP: return undo_up(row, above, size), true;
    case PNG_FILTER_AVERAGE: return undo_average(row, above, size, step), true;
    case PNG_FILTER_PAETH: return png_undo_paeth(row, above, size, step), true;
    }
    return png_fail("Unknown filter!");
}

bool starts_paeth_rows(const std::uint8_t* rows, std::size_t stride, int rows_left) {
    if (rows_left < png_paeth_rows) return false;
    for (std::size_t k = 0; k < png_paeth_rows; ++k)
        if (rows[k * stride] != PNG_FILTER_PAETH) return false;
    return true;
}

/// Undoes the filters of one image's rows in place.
bool undo_filters(const PngHeader& header, std::uint8_t* rows) {
    const PngBytes zeros = png_bytes(header.row_bytes);
    if (!zeros) return png_fail("Cannot allocate memory!");
    std::fill_n(zeros.get(), header.row_bytes, std::uint8_t{0});
    const int pixel_bits = header.bit_depth * png_channels(header.color_type);
    const std::size_t step = static_cast<std::size_t>(std::max(pixel_bits / 8, 1));
    const std::size_t stride = header.row_bytes + 1;
    const std::uint8_t* above = zeros.get();
    for (int y = 0; y < header.height;) {
        const bool wave = starts_paeth_rows(rows, stride, header.height - y);
        if (wave)
            png_undo_paeth_rows(rows + 1, stride, above, header.row_bytes, step);
        else if (!undo_filter(rows[0], rows + 1, above, header.row_bytes, step))
            return false;
        const int done = wave ? png_paeth_rows : 1;
        y += done;
        rows += static_cast<std::size_t>(done) * stride;
        above = rows - header.row_bytes;
    }
    return true;
}

// ---- Rows to pixels ------------------------------------------------------------------------------------------------

/// The sample at `x` of a row whose samples have 1, 2, 4 or 8 bits, the leftmost in the highest bits.
int packed_sample(const std::uint8_t* row, int x, int bits) {
    const int at = x * bits;
    return row[at / 8] >> (8 - bits - at % 8) & ((1 << bits) - 1);
}

void unpack_indexes(const PngHeader& header, const std::uint8_t* row, std::uint8_t* pixels) {
    for (int x = 0; x < header.width; ++x)
        pixels[x] = static_cast<std::uint8_t>(packed_sample(row, x, header.bit_depth));
}

void unpack_greys(const PngHeader& header, const std::uint8_t* row, Color* pixels) {
    const int bits = std::min(header.bit_depth, 8), scale = 255 / ((1 << bits) - 1);
    const int sample_bytes = header.bit_depth == 16 ? 2 : 1;  // of 16 bits the high byte, which stands first
    for (int x = 0; x < header.width; ++x) {
        const int grey = packed_sample(row, x * sample_bytes, bits) * scale;
        pixels[x] = static_cast<Color>(makecol32(grey, grey, grey));
    }
}

/// Where a colour's components lie in a pixel of the file.
struct PixelLayout {
    int green, blue, alpha;  // bytes behind the red one; alpha below 0: none
};

template <int pixel_bytes, PixelLayout at> void unpack_colors(int width, const std::uint8_t* row, Color* pixels) {
    const int red_shift = _rgb_r_shift_32, green_shift = _rgb_g_shift_32, blue_shift = _rgb_b_shift_32,
              alpha_shift = _rgb_a_shift_32;
    for (int x = 0; x < width; ++x, row += pixel_bytes) {
        pixels[x] = static_cast<Color>(row[0]) << red_shift | static_cast<Color>(row[at.green]) << green_shift |
                    static_cast<Color>(row[at.blue]) << blue_shift;
        if constexpr (at.alpha >= 0) pixels[x] |= static_cast<Color>(row[at.alpha]) << alpha_shift;
    }
}

void unpack_row(const PngHeader& header, const std::uint8_t* row, std::uint8_t* line) {
    Color* const pixels = reinterpret_cast<Color*>(line);
    const bool wide = header.bit_depth == 16;
    const int width = header.width;
    switch (header.color_type) {
    case PNG_PALETTE: return unpack_indexes(header, row, line);
    case PNG_GREY: return unpack_greys(header, row, pixels);
    case PNG_RGB:
        return wide ? unpack_colors<6, PixelLayout{2, 4, -1}>(width, row, pixels)
                    : unpack_colors<3, PixelLayout{1, 2, -1}>(width, row, pixels);
    case PNG_GREY_ALPHA:
        return wide ? unpack_colors<4, PixelLayout{0, 0, 2}>(width, row, pixels)
                    : unpack_colors<2, PixelLayout{0, 0, 1}>(width, row, pixels);
    case PNG_RGB_ALPHA:
        return wide ? unpack_colors<8, PixelLayout{2, 4, 6}>(width, row, pixels)
                    : unpack_colors<4, PixelLayout{1, 2, 3}>(width, row, pixels);
    }
}

/// A sample as it stands in the row.
int sample_at(const PngHeader& header, const std::uint8_t* row, int index) {
    if (header.bit_depth == 16) return row[2 * index] << 8 | row[2 * index + 1];
    return packed_sample(row, index, header.bit_depth);
}

/// Every pixel shows but those of the one colour that the file calls clear.
void apply_key(const PngHeader& header, const std::uint8_t* row, Color* pixels) {
    constexpr Color whole = 255;
    const int channels = png_channels(header.color_type);
    for (int x = 0; x < header.width; ++x) {
        bool is_clear = true;
        for (int i = 0; i < channels; ++i)
            is_clear &= sample_at(header, row, x * channels + i) == header.clear_key[static_cast<std::size_t>(i)];
        if (!is_clear) pixels[x] |= whole << _rgb_a_shift_32;
    }
}

OwnedBitmap new_bitmap(const PngHeader& header) {
    OwnedBitmap bitmap(create_bitmap_ex(header.color_type == PNG_PALETTE ? 8 : 32, header.width, header.height));
    if (!bitmap) png_fail("Cannot allocate bitmap!");
    return bitmap;
}

/// The bitmap of a plain image or of one sub-image.
OwnedBitmap build_bitmap(const PngHeader& header, std::uint8_t* rows, std::size_t size) {
    if (size % static_cast<std::size_t>(header.height) != 0)
        return png_fail("Data length not divisible by picture height!"), nullptr;
    if (size != header.filtered_size()) return png_fail("Bad data length!"), nullptr;
    if (!undo_filters(header, rows)) return nullptr;
    OwnedBitmap bitmap = new_bitmap(header);
    if (!bitmap) return nullptr;
    for (int y = 0; y < header.height; ++y) {
        const std::uint8_t* const row = rows + static_cast<std::size_t>(y) * (header.row_bytes + 1) + 1;
        unpack_row(header, row, bitmap->line[y]);
        if (header.has_key) apply_key(header, row, reinterpret_cast<Color*>(bitmap->line[y]));
    }
    return bitmap;
}

// ---- Adam7 ---------------------------------------------------------------------------------------------------------

struct Adam7Pass {
    int x, y, step_x, step_y;  // the pass holds the pixels at (x + i * step_x, y + j * step_y)
};
constexpr std::array<Adam7Pass, 7> adam7{{
    {0, 0, 8, 8},
    {4, 0, 8, 8},
    {0, 4, 4, 8},
    {2, 0, 4, 4},
    {0, 2, 2, 4},
    {1, 0, 2, 2},
    {0, 1, 1, 2},
}};

template <typename Pixel> void spread_pixels(const Adam7Pass& pass, const BITMAP* part, BITMAP* whole) {
    for (int y = 0; y < part->h; ++y) {
        const Pixel* const from = reinterpret_cast<const Pixel*>(part->line[y]);
        Pixel* const to = reinterpret_cast<Pixel*>(whole->line[pass.y + y * pass.step_y]) + pass.x;
        for (int x = 0; x < part->w; ++x) to[x * pass.step_x] = from[x];
    }
}

OwnedBitmap build_interlaced(const PngHeader& header, std::uint8_t* rows, std::size_t size) {
    if (size != png_filtered_size(header)) return png_fail("Bad data length!"), nullptr;
    OwnedBitmap whole = new_bitmap(header);
    if (!whole) return nullptr;
    const std::array<PngHeader, 7> parts = png_sub_images(header);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const std::size_t part_size = parts[i].filtered_size();
        if (part_size == 0) continue;
        const OwnedBitmap part = build_bitmap(parts[i], rows, part_size);
        if (!part) return nullptr;
        if (header.color_type == PNG_PALETTE)
            spread_pixels<std::uint8_t>(adam7[i], part.get(), whole.get());
        else
            spread_pixels<Color>(adam7[i], part.get(), whole.get());
        rows += part_size;
    }
    return whole;
}

/// Pixels of a line of `side` that a pass with this start and step takes.
constexpr int pass_side(int side, int start, int step) { return side <= start ? 0 : (side - start + step - 1) / step; }

}  // namespace

std::array<PngHeader, 7> png_sub_images(const PngHeader& whole) {
    std::array<PngHeader, 7> parts{};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const int width = pass_side(whole.width, adam7[i].x, adam7[i].step_x),
                  height = pass_side(whole.height, adam7[i].y, adam7[i].step_y);
        if (width == 0 || height == 0) continue;  // the file holds nothing of it, not even filter bytes
        parts[i] = whole;
        parts[i].width = width;
        parts[i].height = height;
        parts[i].row_bytes = png_row_bytes(parts[i]);
    }
    return parts;
}

std::size_t png_filtered_size(const PngHeader& header) {
    if (!header.interlaced) return header.filtered_size();
    std::size_t sum = 0;
    for (const PngHeader& part : png_sub_images(header)) sum += part.filtered_size();
    return sum;
}

OwnedBitmap png_build_image(const PngHeader& header, std::uint8_t* rows, std::size_t size) {
    return header.interlaced ? build_interlaced(header, rows, size) : build_bitmap(header, rows, size);
}

}  // namespace nubo
