#include "logo.h"

#include <array>

namespace nubo {

namespace {

constexpr int side_limit = 1024;

/// What is drawn so far, and the colours that the characters stand for.
struct Canvas {
    OwnedBitmap picture;
    std::array<std::optional<Color>, 128> ink{};
};

std::optional<Color> ink_of(const Canvas& canvas, char cell) {
    const auto code = static_cast<unsigned char>(cell);
    return code < canvas.ink.size() ? canvas.ink[code] : std::nullopt;
}

bool set_size(Canvas& canvas, const ArtBlock& block) {
    const auto width = head_number(block, 1, 1, side_limit), height = head_number(block, 2, 1, side_limit);
    if (!width || !height) return false;
    canvas.picture = make_bitmap(*width, *height);
    return canvas.picture != nullptr;
}

bool set_color(Canvas& canvas, const ArtBlock& block) {
    if (block.head.size() != 3 || block.head[1].size() != 1) return false;
    const auto color = color_from_hex(block.head[2]);
    const auto code = static_cast<unsigned char>(block.head[1][0]);
    if (!color || code >= canvas.ink.size()) return false;
    canvas.ink[code] = color;
    return true;
}

bool fill_with_tile(Canvas& canvas, const ArtBlock& block) {
    if (!canvas.picture || block.rows.empty()) return false;
    const std::size_t width = block.rows[0][0].size(), height = block.rows.size();
    if (!is_picture_row(block, 1, width, height)) return false;
    for (int y = 0; y < canvas.picture->h; ++y)
        for (int x = 0; x < canvas.picture->w; ++x) {
            const std::string& row = block.rows[static_cast<std::size_t>(y) % height][0];
            const auto color = ink_of(canvas, row[static_cast<std::size_t>(x) % width]);
            if (!color) return false;
            *pixels_at(canvas.picture.get(), x, y) = *color;
        }
    return true;
}

bool lay_stamp(Canvas& canvas, const ArtBlock& block) {
    const auto left = head_number(block, 1, 0, side_limit), top = head_number(block, 2, 0, side_limit);
    if (!canvas.picture || !left || !top) return false;
    int y = *top;
    for (const Words& row : block.rows) {
        int x = *left;
        for (const char cell : row[0]) {
            const auto color = ink_of(canvas, cell);
            if (cell != '.' && (!color || !frame_contains(canvas.picture.get(), x, y))) return false;
            if (cell != '.') *pixels_at(canvas.picture.get(), x, y) = *color;
            ++x;
        }
        ++y;
    }
    return true;
}

struct BlockRow {
    const char* kind;
    bool (*draw)(Canvas& canvas, const ArtBlock& block);  // false: the block is not as `wish` says
    const char* wish;
};
constexpr std::array<BlockRow, 4> block_kinds{{
    {"size", set_size, "a size is a width and a height from 1 to 1024"},
    {"color", set_color, "a color is a character and six hexadecimal digits"},
    {"tile", fill_with_tile, "a tile is rows of one length, of characters that have a color"},
    {"stamp", lay_stamp, "a stamp has its place, lies inside the picture, and its characters have a color"},
}};

bool draw_block(Canvas& canvas, const ArtSource& source, const ArtBlock& block) {
    for (const BlockRow& row : block_kinds)
        if (block.head[0] == row.kind) return row.draw(canvas, block) || art_fault(source, block, row.wish);
    return art_fault(source, block, "a logo is made of size, color, tile and stamp");
}

}  // namespace

OwnedBitmap draw_logo(const ArtSource& source) {
    Canvas canvas;
    for (const ArtBlock& block : source.blocks)
        if (!draw_block(canvas, source, block)) return nullptr;
    return std::move(canvas.picture);
}

}  // namespace nubo
