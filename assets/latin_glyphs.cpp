#include "latin_glyphs.h"

#include "base/color.h"
#include "base/utf8.h"
#include <algorithm>
#include <charconv>
#include <map>

namespace nubo {

namespace {

constexpr int first_code = 0xa0, last_code = 0xff;

using Rows = std::vector<std::string>;

/// What the blocks before a composed character have brought.
struct LatinMaking {
    std::map<std::string, Rows> letters, marks;
    std::map<int, LatinGlyph> glyphs;
};

/// The code of a character of Latin-1, which stands for itself or is written as "U+00A0"; 0 for anything else.
int latin_code(const std::string& name) {
    int code = 0;
    if (name.starts_with("U+"))
        std::from_chars(name.data() + 2, name.data() + name.size(), code, 16);
    else if (first_character(name).size == name.size())
        code = static_cast<int>(first_character(name).code);
    return code >= first_code && code <= last_code ? code : 0;
}

bool has_ink(const std::string& row) { return row.find('#') != std::string::npos; }

/// The column of a block's pictures; nothing unless all of its rows are there and equally wide.
std::optional<Rows> column_of(const ArtBlock& block, std::size_t column) {
    Rows rows;
    for (const Words& row : block.rows) {
        if (row.size() + 1 != block.head.size() || row[column].size() != block.rows.front()[column].size()) return {};
        if (row[column].find_first_not_of(".#") != std::string::npos) return {};
        rows.push_back(row[column]);
    }
    return rows;
}

/// Each picture of a block goes to `take` with its name; false when one is none.
template <typename Take> bool take_pictures(const ArtBlock& block, Take take) {
    for (std::size_t column = 0; column + 1 < block.head.size(); ++column) {
        auto rows = column_of(block, column);
        if (!rows || rows->empty() || !take(block.head[column + 1], std::move(*rows))) return false;
    }
    return true;
}

/// The mark over the uppermost row of the letter that holds ink.
LatinGlyph compose(int code, const Rows& letter, const Rows& mark) {
    const auto top = std::ranges::find_if(letter, has_ink) - letter.begin();
    const auto above = std::max<std::ptrdiff_t>(std::ssize(mark) - top, 0);
    Rows rows(static_cast<std::size_t>(above), std::string(letter.front().size(), '.'));
    rows.insert(rows.end(), letter.begin(), letter.end());
    auto row = rows.begin() + above + top - std::ssize(mark);
    for (const std::string& of_mark : mark) *row++ = of_mark;
    return {code, std::move(rows), static_cast<int>(above)};
}

bool compose_all(LatinMaking& making, const ArtBlock& block) {
    for (const Words& row : block.rows) {
        const int code = row.size() == 3 ? latin_code(row[0]) : 0;
        if (code == 0 || !making.letters.contains(row[1]) || !making.marks.contains(row[2])) return false;
        const Rows &letter = making.letters[row[1]], &mark = making.marks[row[2]];
        if (letter.front().size() != mark.front().size()) return false;
        making.glyphs[code] = compose(code, letter, mark);
    }
    return true;
}

bool take_block(LatinMaking& making, const ArtBlock& block) {
    const auto keep_in = [](std::map<std::string, Rows>& named) {
        return [&named](const std::string& name, Rows rows) {
            named[name] = std::move(rows);
            return true;
        };
    };
    const auto keep_glyph = [&](const std::string& name, Rows rows) {
        const int code = latin_code(name);
        if (code != 0) making.glyphs[code] = {code, std::move(rows), 0};
        return code != 0;
    };
    const std::string& kind = block.head[0];
    if (kind == "marks") return take_pictures(block, keep_in(making.marks));
    if (kind == "bases") return take_pictures(block, keep_in(making.letters));
    if (kind == "drawn") return take_pictures(block, keep_glyph);
    return kind == "composed" && compose_all(making, block);
}

}  // namespace

std::optional<std::vector<LatinGlyph>> read_latin_glyphs(const ArtSource& letters, const ArtSource& latin) {
    LatinMaking making;
    for (const ArtBlock& block : letters.blocks)
        if (block.head[0] == "glyphs")
            take_pictures(block, [&](const std::string& name, Rows rows) {
                making.letters[name] = std::move(rows);
                return true;
            });
    for (const ArtBlock& block : latin.blocks)
        if (!take_block(making, block))
            return art_fault(latin, block, "marks, bases, drawn or composed characters of U+00A0 to U+00FF"),
                   std::nullopt;
    if (making.glyphs.size() != last_code - first_code + 1)
        return art_fault(latin, latin.blocks.back(), "not all of U+00A0 to U+00FF are there"), std::nullopt;
    std::vector<LatinGlyph> glyphs;
    const std::size_t cell_h = making.letters["A"].size();
    for (auto& [code, glyph] : making.glyphs) {
        if (glyph.rows.size() != cell_h + static_cast<std::size_t>(glyph.above))
            return art_fault(latin, latin.blocks.back(), "a character isn't as high as the font's cell"), std::nullopt;
        glyphs.push_back(std::move(glyph));
    }
    return glyphs;
}

OwnedBitmap draw_latin_glyphs(std::span<const LatinGlyph> glyphs, int cell_w, int cell_h) {
    constexpr int per_row = 24, room_above = 4;
    const int rows = (static_cast<int>(glyphs.size()) + per_row - 1) / per_row;
    OwnedBitmap picture = make_bitmap(per_row * cell_w, rows * cell_h, transparent_color);
    for (int i = 0; picture && i < static_cast<int>(glyphs.size()); ++i) {
        const LatinGlyph& glyph = glyphs[static_cast<std::size_t>(i)];
        const int left = i % per_row * cell_w, top = i / per_row * cell_h + room_above - glyph.above;
        for (std::size_t y = 0; y < glyph.rows.size(); ++y)
            for (std::size_t x = 0; x < glyph.rows[y].size(); ++x)
                if (glyph.rows[y][x] == '#')
                    putpixel(picture.get(), left + static_cast<int>(x), top + static_cast<int>(y),
                             static_cast<int>(fixed_white));
    }
    return picture;
}

}  // namespace nubo
