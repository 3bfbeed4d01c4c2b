#include "palette.h"

#include "base/color.h"
#include <algorithm>
#include <climits>
#include <cstdio>
#include <set>

namespace nubo {

namespace {

constexpr Color largest_magenta = pack_color(252, 0, 252);

bool has_six_bits(Color color) { return (color & 0x030303) == 0; }

/// Puts a block's colours into the entries from the one on that its head names.
bool read_block(const ArtSource& source, const ArtBlock& block, ArtPalette& palette, int& given) {
    if (block.head[0] != "colors" || head_number(block, 1, 0, palette_size - 1) != given)
        return art_fault(source, block, "colors go on where those before ended");
    for (const Words& row : block.rows)
        for (const std::string& word : row) {
            const auto color = color_from_hex(word);
            if (!color || !has_six_bits(*color) || given == palette_size)
                return art_fault(source, block, "a color is six hexadecimal digits, each channel a multiple of 4");
            palette[static_cast<std::size_t>(given++)] = *color;
        }
    return true;
}

}  // namespace

std::optional<ArtPalette> read_palette(const ArtSource& source) {
    ArtPalette palette{};
    int given = 0;
    for (const ArtBlock& block : source.blocks)
        if (!read_block(source, block, palette, given)) return std::nullopt;
    const std::set<Color> different(palette.begin(), palette.end());
    if (given == palette_size && palette[0] == 0 && different.size() == palette.size() &&
        !different.contains(largest_magenta))
        return palette;
    std::fprintf(stderr, "%s: a palette is 256 different colors, black first, without fc00fc\n", source.path.c_str());
    return std::nullopt;
}

AllegroPalette to_allegro_palette(const ArtPalette& palette) {
    AllegroPalette colors{};
    for (std::size_t i = 0; i < palette.size(); ++i) {
        colors[i].r = static_cast<unsigned char>(red_of(palette[i]) >> 2);
        colors[i].g = static_cast<unsigned char>(green_of(palette[i]) >> 2);
        colors[i].b = static_cast<unsigned char>(blue_of(palette[i]) >> 2);
    }
    return colors;
}

int nearest_entry(const ArtPalette& palette, Color color) {
    int nearest = 0, least = INT_MAX;
    for (int i = 0; i < palette_size; ++i) {
        const Color entry = palette[static_cast<std::size_t>(i)];
        const int red = red_of(entry) - red_of(color), green = green_of(entry) - green_of(color),
                  blue = blue_of(entry) - blue_of(color);
        const int distance = red * red + green * green + blue * blue;
        if (distance < least) nearest = i;
        least = std::min(least, distance);
    }
    return nearest;
}

OwnedBitmap draw_palette_sheet() {
    constexpr int per_row = 16;
    OwnedBitmap sheet(create_bitmap_ex(8, per_row * palette_square, per_row * palette_square));
    for (int i = 0; sheet && i < palette_size; ++i) {
        const int left = i % per_row * palette_square, top = i / per_row * palette_square;
        rectfill(sheet.get(), left, top, left + palette_square - 1, top + palette_square - 1, i);
    }
    return sheet;
}

OwnedBitmap to_true_color(BITMAP* sheet) {
    OwnedBitmap picture = make_bitmap(sheet->w, sheet->h);
    if (picture) blit(sheet, picture.get(), 0, 0, 0, 0, sheet->w, sheet->h);
    return picture;
}

}  // namespace nubo
