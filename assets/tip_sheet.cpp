#include "tip_sheet.h"

#include "base/color.h"
#include <cstdio>

namespace nubo {

namespace {

constexpr int sheet_width = 206, sheet_height = 48;  // the editor copies so much, and puts the user's own tip below
constexpr int tip_width = 17, tip_height = 15, tips_per_row = 12, tip_count = 36;
constexpr int full_coverage = 200, coverage_per_tenth = 20;

/// The colour of one cell of a tip, or nothing for a character that has no meaning.
std::optional<Color> tip_color(char cell) {
    if (cell == '.') return transparent_color;
    if (cell == '#') return pack_color(0, 0, 0);
    if (cell < '1' || cell > '9') return std::nullopt;
    const int value = full_coverage - coverage_per_tenth * (cell - '0');
    return pack_color(value, value, value);
}

/// Draws column `column` of the block as tip number `tip`.
bool draw_tip(BITMAP* sheet, const ArtBlock& block, std::size_t column, int tip) {
    const int left = tip % tips_per_row * tip_width, top = tip / tips_per_row * tip_height;
    for (int y = 0; y < tip_height; ++y) {
        const std::string& row = block.rows[static_cast<std::size_t>(y)][column];
        Color* const pixels = pixels_at(sheet, left, top + y);
        for (int x = 0; x < tip_width; ++x) {
            const auto color = tip_color(row[static_cast<std::size_t>(x)]);
            if (!color) return false;
            pixels[x] = *color;
        }
    }
    return true;
}

}  // namespace

OwnedBitmap draw_tip_sheet(const ArtSource& source) {
    OwnedBitmap sheet = make_bitmap(sheet_width, sheet_height, transparent_color);
    int tip = 0;
    for (const ArtBlock& block : source.blocks) {
        const std::size_t columns = block.head.size() - 1;
        if (block.head[0] != "tips" || !is_picture_row(block, columns, tip_width, tip_height)) {
            art_fault(source, block, "tips are 15 rows of 17 characters, a name for each");
            return nullptr;
        }
        for (std::size_t column = 0; column < columns; ++column, ++tip)
            if (tip == tip_count || !draw_tip(sheet.get(), block, column, tip)) {
                art_fault(source, block, "more than 36 tips, or a character other than . # and 1 to 9");
                return nullptr;
            }
    }
    if (tip == tip_count) return sheet;
    std::fprintf(stderr, "%s: %d tips instead of %d\n", source.path.c_str(), tip, tip_count);
    return nullptr;
}

}  // namespace nubo
