// Pictures drawn as text.
#include "base/color.h"
#include "painter.h"

namespace nubo {

namespace {

using Letters = std::map<char, Color>;

bool read_color(Letters& letters, const ArtBlock& block) {
    if (block.head.size() != 3 || block.head[1].size() != 1) return false;
    const auto color = color_from_hex(block.head[2]);
    if (color) letters[block.head[1][0]] = *color;
    return color.has_value();
}

/// Null when the rows differ in length or hold a letter without a colour.
OwnedBitmap draw_stamp(const Letters& letters, const ArtBlock& block) {
    if (block.head.size() != 2 || block.rows.empty()) return nullptr;
    const std::size_t width = block.rows[0][0].size(), height = block.rows.size();
    if (!is_picture_row(block, 1, width, height)) return nullptr;
    OwnedBitmap picture = make_bitmap(static_cast<int>(width), static_cast<int>(height), transparent_color);
    for (std::size_t i = 0; picture && i < width * height; ++i) {
        const char letter = block.rows[i / width][0][i % width];
        if (letter == '.') continue;
        const auto found = letters.find(letter);
        if (found == letters.end()) return nullptr;
        *pixels_at(picture.get(), static_cast<int>(i % width), static_cast<int>(i / width)) = found->second;
    }
    return picture;
}

}  // namespace

std::optional<Stamps> read_stamps(const ArtSource& source) {
    Letters letters;
    Stamps stamps;
    for (const ArtBlock& block : source.blocks) {
        if (block.head[0] == "color" && !read_color(letters, block)) {
            art_fault(source, block, "a color is a letter and six hexadecimal digits");
            return std::nullopt;
        }
        if (block.head[0] != "stamp") continue;
        OwnedBitmap picture = draw_stamp(letters, block);
        if (!picture) {
            art_fault(source, block, "a stamp has a name and rows of one length, of letters that have a color");
            return std::nullopt;
        }
        stamps[block.head[1]] = std::move(picture);
    }
    return stamps;
}

}  // namespace nubo
