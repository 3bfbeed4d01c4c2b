#include "gui_sheet.h"

#include "base/color.h"
#include <array>

namespace nubo {

namespace {

constexpr int sheet_width = 320, sheet_height = 200;
constexpr int template_right = 109, template_top = 111, template_bottom = 163;
constexpr int end_left = 39, end_right = 47, end_top = 142, end_bottom = 149;  // what the program fills as ends

constexpr Color mix(Color from, Color to, int of_256) {
    const auto channel = [&](int a, int b) { return a + (b - a) * of_256 / 256; };
    return pack_color(channel(red_of(from), red_of(to)), channel(green_of(from), green_of(to)),
                      channel(blue_of(from), blue_of(to)));
}
constexpr int lit_by = 75, ground_lit_by = 60, end_dimmed_by = 100;  // of 256

/// A part with the character it is drawn with in the source and the red by which the program knows it in the template.
/// Only the upper six bits of the red last: a palette has no more.
struct PartRow {
    SpritePart part;
    char cell;
    int template_red;
};
constexpr std::array<PartRow, PART_COUNT> parts{{
    {PART_SHADOW, 's', 105},
    {PART_BORDER, 'b', 125},
    {PART_GROUND, 'g', 153},
    {PART_LIT_SHADOW, 'S', 206},
    {PART_LIT_BORDER, 'B', 226},
    {PART_BETWEEN, 'm', 48},
    {PART_LIT_BETWEEN, 'M', 170},
    {PART_LIT_GROUND, 'G', 255},
}};
static_assert(rows_in_order(parts, &PartRow::part));

const PartRow* find_part(char cell) {
    for (const PartRow& row : parts)
        if (row.cell == cell) return &row;
    return nullptr;
}

/// The palette's entry for the grey of a template, or nothing if the palette lacks it.
std::optional<int> template_entry(const ArtPalette& palette, int red) {
    const int level = red & ~3;
    const int entry = nearest_entry(palette, pack_color(level, level, level));
    if (palette[static_cast<std::size_t>(entry)] != pack_color(level, level, level)) return std::nullopt;
    return entry;
}

struct Sheet {
    BITMAP* bitmap;
    const ArtPalette* palette;
    const ArtSource* source;
};

bool draw_part(const Sheet& sheet, const PartRow& row, int x, int y) {
    const auto entry = template_entry(*sheet.palette, row.template_red);
    if (!entry) return false;
    putpixel(sheet.bitmap, x, y, nearest_entry(*sheet.palette, part_color(row.part, default_scheme)));
    putpixel(sheet.bitmap, x + template_distance, y, *entry);
    return true;
}

bool draw_sprite_cell(const Sheet& sheet, const ArtBlock& block, char cell, int x, int y) {
    const PartRow* const row = find_part(cell);
    if (row == nullptr) return art_fault(*sheet.source, block, "a character that is no part");
    if (x + template_distance > template_right || y < template_top || y > template_bottom)
        return art_fault(*sheet.source, block, "a sprite lies in columns 0 to 49 and rows 111 to 163");
    return draw_part(sheet, *row, x, y) ||
           art_fault(*sheet.source, block, "the palette lacks a grey that the templates need");
}

bool draw_end_cell(const Sheet& sheet, const ArtBlock& block, char cell, int x, int y) {
    const PartRow* const row = find_part(cell);
    if (row == nullptr) return art_fault(*sheet.source, block, "a character that is no part");
    if (x < end_left || x > end_right || y < end_top || y > end_bottom)
        return art_fault(*sheet.source, block, "an end lies in columns 39 to 47 and rows 142 to 149");
    putpixel(sheet.bitmap, x, y,
             nearest_entry(*sheet.palette, mix(part_color(row->part, default_scheme), fixed_black, end_dimmed_by)));
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

Color part_color(SpritePart part, const std::array<Color, SCHEME_COUNT>& scheme) {
    const Color ground = scheme[SCHEME_BACKGROUND], border = scheme[SCHEME_BORDER], shadow = scheme[SCHEME_SHADOW];
    const Color between = mix(ground, border, 128);
    switch (part) {
    case PART_SHADOW: return shadow;
    case PART_BORDER: return border;
    case PART_GROUND: return ground;
    case PART_LIT_SHADOW: return mix(shadow, fixed_white, lit_by);
    case PART_LIT_BORDER: return mix(border, fixed_white, lit_by);
    case PART_BETWEEN: return between;
    case PART_LIT_BETWEEN: return mix(between, fixed_white, lit_by);
    case PART_LIT_GROUND: return mix(ground, fixed_white, ground_lit_by);
    case PART_COUNT: break;
    }
    return transparent_color;
}

std::optional<SpritePart> part_of_template(Color pixel) {
    for (const PartRow& row : parts)
        if (red_of(pixel) >> 2 == row.template_red >> 2) return row.part;
    return std::nullopt;
}

OwnedBitmap draw_gui_sheet(const ArtSource& source, const ArtPalette& palette) {
    OwnedBitmap bitmap(create_bitmap_ex(8, sheet_width, sheet_height));
    if (!bitmap) return nullptr;
    clear_to_color(bitmap.get(), 0);
    for (const ArtBlock& block : source.blocks)
        if (!draw_block({bitmap.get(), &palette, &source}, block)) return nullptr;
    return bitmap;
}

}  // namespace nubo
