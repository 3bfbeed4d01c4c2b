#include "font_sheet.h"

#include <array>

namespace nubo {

namespace {

constexpr int sheet_width = 320, sheet_height = 200;
constexpr int tone_count = 8, first_tone = 128;  // palette entries
constexpr int cell_limit = 32;

/// What the blocks before a row of glyphs have set.
struct FontMaking {
    OwnedBitmap sheet;
    int cell_width = 0, cell_height = 0;  // of a glyph; a cell of the sheet is one more each way
    int advance = 0;
    std::vector<int> row_tones;
    int cells_used = 1;  // the first cell holds the measures
};

bool set_cell(FontMaking& font, const ArtBlock& block) {
    const auto width = head_number(block, 1, 2, cell_limit), height = head_number(block, 2, 1, cell_limit);
    if (!width || !height) return false;
    font.cell_width = *width;
    font.cell_height = *height;
    putpixel(font.sheet.get(), 0, 0, *width);
    putpixel(font.sheet.get(), 1, 0, *height);
    return true;
}

bool set_shadow(FontMaking& font, const ArtBlock& block) {
    const auto dx = head_number(block, 1, 0, cell_limit), dy = head_number(block, 2, 0, cell_limit);
    if (!dx || !dy) return false;
    putpixel(font.sheet.get(), 2, 0, *dx);
    putpixel(font.sheet.get(), 3, 0, *dy);
    return true;
}

bool set_shade(FontMaking& font, const ArtBlock& block) {
    for (std::size_t i = 1; i < block.head.size(); ++i) {
        const auto tone = head_number(block, i, 0, tone_count - 1);
        if (!tone) return false;
        font.row_tones.push_back(first_tone + *tone);
    }
    return font.row_tones.size() == static_cast<std::size_t>(font.cell_height);
}

bool set_advance(FontMaking& font, const ArtBlock& block) {
    const auto advance = head_number(block, 1, 1, cell_limit);
    font.advance = advance.value_or(0);
    return advance.has_value();
}

/// The code of a glyph's name: the character itself, or "blank". 0 for anything else.
int glyph_code(const std::string& name) {
    if (name == "blank") return ' ';
    return name.size() == 1 && name[0] > ' ' && name[0] <= '~' ? name[0] : 0;
}

/// Draws column `column` of the block into the next free cell.
bool draw_glyph(FontMaking& font, const ArtBlock& block, std::size_t column) {
    const int per_row = sheet_width / (font.cell_width + 1), rows = sheet_height / (font.cell_height + 1);
    const int code = glyph_code(block.head[column + 1]);
    // The sheet's last row of cells stays free: there lie the tones.
    if (code == 0 || font.cells_used >= per_row * (rows - 1)) return false;
    const int left = font.cells_used % per_row * (font.cell_width + 1);
    const int top = font.cells_used / per_row * (font.cell_height + 1);
    putpixel(font.sheet.get(), left, top, code);
    putpixel(font.sheet.get(), left + 2, top, font.advance);
    for (int y = 0; y < font.cell_height; ++y) {
        const std::string& row = block.rows[static_cast<std::size_t>(y)][column];
        for (std::size_t x = 0; x < row.size(); ++x) {
            if (row[x] != '.' && row[x] != '#') return false;
            const int tone = font.row_tones[static_cast<std::size_t>(y)];
            if (row[x] == '#') putpixel(font.sheet.get(), left + 1 + static_cast<int>(x), top + 1 + y, tone);
        }
    }
    ++font.cells_used;
    return true;
}

bool draw_glyphs(FontMaking& font, const ArtBlock& block) {
    const std::size_t columns = block.head.size() - 1;
    if (font.advance == 0 || font.row_tones.empty()) return false;
    if (!is_picture_row(block, columns, static_cast<std::size_t>(font.cell_width - 1),
                        static_cast<std::size_t>(font.cell_height)))
        return false;
    for (std::size_t column = 0; column < columns; ++column)
        if (!draw_glyph(font, block, column)) return false;
    return true;
}

struct BlockRow {
    const char* kind;
    bool (*take)(FontMaking& font, const ArtBlock& block);  // false: the block is not as `wish` says
    const char* wish;
};
constexpr std::array<BlockRow, 5> block_kinds{{
    {"cell", set_cell, "a cell is 2 to 32 pixels wide and 1 to 32 high"},
    {"shadow", set_shadow, "a shadow falls 0 to 32 pixels to the right and down"},
    {"shade", set_shade, "a shade has a tone from 0 to 7 for each row of the cell, and stands after it"},
    {"advance", set_advance, "an advance is 1 to 32 pixels"},
    {"glyphs", draw_glyphs, "glyphs are . and #, as high as the cell and one less wide, each with its character"},
}};

bool take_block(FontMaking& font, const ArtSource& source, const ArtBlock& block) {
    for (const BlockRow& row : block_kinds)
        if (block.head[0] == row.kind) return row.take(font, block) || art_fault(source, block, row.wish);
    return art_fault(source, block, "a font is made of cell, shadow, shade, advance and glyphs");
}

}  // namespace

OwnedBitmap draw_font_sheet(const ArtSource& source) {
    FontMaking font;
    font.sheet.reset(create_bitmap_ex(8, sheet_width, sheet_height));
    if (!font.sheet) return nullptr;
    clear_to_color(font.sheet.get(), 0);
    for (const ArtBlock& block : source.blocks)
        if (!take_block(font, source, block)) return nullptr;
    for (int tone = 0; tone < tone_count; ++tone) putpixel(font.sheet.get(), tone, sheet_height - 1, first_tone + tone);
    return std::move(font.sheet);
}

}  // namespace nubo
