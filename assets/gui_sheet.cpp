#include "gui_sheet.h"

#include "base/color.h"
#include <array>

namespace nubo {

namespace {

constexpr int sheet_width = 320, sheet_height = 200;
constexpr int template_left = 60, template_right = 109, template_top = 111, template_bottom = 163;
constexpr int end_left = 39, end_right = 47, end_top = 142, end_bottom = 149;  // what the program fills as ends

constexpr Color mix(Color from, Color to, int of_256) {
    const auto channel = [&](int a, int b) { return a + (b - a) * of_256 / 256; };
    return pack_color(channel(red_of(from), red_of(to)), channel(green_of(from), green_of(to)),
                      channel(blue_of(from), blue_of(to)));
}

constexpr Color ground = default_scheme[SCHEME_BACKGROUND], border = default_scheme[SCHEME_BORDER],
                shadow = default_scheme[SCHEME_SHADOW], between = mix(ground, border, 128);

/// A part of a sprite: what it is drawn with in the source, the red by which the program knows it in the template, and
/// its colour in the default scheme.
struct PartRow {
    char cell;
    int template_red;
    Color color;
};
constexpr std::array<PartRow, 8> parts{{
    {'s', 105, shadow},
    {'b', 125, border},
    {'g', 153, ground},
    {'S', 206, mix(shadow, fixed_white, 75)},
    {'B', 226, mix(border, fixed_white, 75)},
    {'m', 48, between},
    {'M', 170, mix(between, fixed_white, 75)},
    {'G', 255, mix(ground, fixed_white, 60)},
}};

const PartRow* find_part(char cell) {
    for (const PartRow& part : parts)
        if (part.cell == cell) return &part;
    return nullptr;
}

/// The grey whose red is `red` once the palette's 6 bits are 8 again: 0 to 63 become 0 to 255, evenly and cut off.
std::optional<int> template_entry(const ArtPalette& palette, int red) {
    for (int level = 0; level < 64; ++level) {
        const Color grey = pack_color(4 * level, 4 * level, 4 * level);
        const int entry = nearest_entry(palette, grey);
        if (level * 255 / 63 == red && palette[static_cast<std::size_t>(entry)] == grey) return entry;
    }
    return std::nullopt;
}

struct Sheet {
    BITMAP* bitmap;
    const ArtPalette* palette;
    const ArtSource* source;
};

bool draw_part(const Sheet& sheet, const PartRow& part, int x, int y) {
    const auto entry = template_entry(*sheet.palette, part.template_red);
    if (!entry) return false;
    putpixel(sheet.bitmap, x, y, nearest_entry(*sheet.palette, part.color));
    putpixel(sheet.bitmap, x + template_left, y, *entry);
    return true;
}

bool draw_sprite_cell(const Sheet& sheet, const ArtBlock& block, char cell, int x, int y) {
    const PartRow* const part = find_part(cell);
    if (part == nullptr) return art_fault(*sheet.source, block, "a character that is no part");
    if (x + template_left > template_right || y < template_top || y > template_bottom)
        return art_fault(*sheet.source, block, "a sprite lies in columns 0 to 49 and rows 111 to 163");
    return draw_part(sheet, *part, x, y) ||
           art_fault(*sheet.source, block, "the palette lacks a grey that the templates need");
}

bool draw_end_cell(const Sheet& sheet, const ArtBlock& block, char cell, int x, int y) {
    const PartRow* const part = find_part(cell);
    if (part == nullptr) return art_fault(*sheet.source, block, "a character that is no part");
    if (x < end_left || x > end_right || y < end_top || y > end_bottom)
        return art_fault(*sheet.source, block, "an end lies in columns 39 to 47 and rows 142 to 149");
    putpixel(sheet.bitmap, x, y, nearest_entry(*sheet.palette, mix(part->color, fixed_black, 100)));
    return true;
}

bool draw_block(const Sheet& sheet, const ArtBlock& block) {
    const auto left = head_number(block, 1, 0, sheet_width - 1), top = head_number(block, 2, 0, sheet_height - 1);
    const bool is_end = block.head[0] == "end";
    if ((!is_end && block.head[0] != "sprite") || !left || !top)
        return art_fault(*sheet.source, block, "a sheet is made of sprites and ends, each with its place");
    int y = *top;
    for (const Words& row : block.rows) {
        int x = *left;
        for (const char cell : row[0]) {
            const auto draw_cell = is_end ? draw_end_cell : draw_sprite_cell;
            if (cell != '.' && !draw_cell(sheet, block, cell, x, y)) return false;
            ++x;
        }
        ++y;
    }
    return true;
}

}  // namespace

OwnedBitmap draw_gui_sheet(const ArtSource& source, const ArtPalette& palette) {
    OwnedBitmap bitmap(create_bitmap_ex(8, sheet_width, sheet_height));
    if (!bitmap) return nullptr;
    clear_to_color(bitmap.get(), 0);
    for (const ArtBlock& block : source.blocks)
        if (!draw_block({bitmap.get(), &palette, &source}, block)) return nullptr;
    return bitmap;
}

}  // namespace nubo
