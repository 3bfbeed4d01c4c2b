#include "bdf_font.h"

#include "base/bitmap.h"
#include <algorithm>
#include <cstdio>

namespace nubo {

namespace {

constexpr int first_code = ' ', last_code = '~';

template <typename... Values> std::string line(const char* format, const Values&... values) {
    std::array<char, 128> text{};
    std::snprintf(text.data(), text.size(), format, values...);
    return std::string(text.data()) + "\n";
}

/// A row as bytes of eight pixels, the leftmost pixel the highest bit.
std::string bitmap_row(const std::string& row) {
    constexpr std::size_t byte_bits = 8;
    std::string digits;
    for (std::size_t first = 0; first < row.size(); first += byte_bits) {
        unsigned byte = 0;
        for (std::size_t x = first; x < first + byte_bits; ++x) byte = byte << 1 | (x < row.size() && row[x] == '#');
        std::array<char, 4> two{};
        std::snprintf(two.data(), two.size(), "%02X", byte);
        digits += two.data();
    }
    return digits + "\n";
}

LatinGlyph glyph_of_sheet(const FontSlot& font, int code) {
    LatinGlyph glyph;
    glyph.code = code;
    const int left = font.glyph_x[static_cast<std::size_t>(code)];
    for (int y = 0; y < font.cell_h; ++y) {
        std::string& row = glyph.rows.emplace_back();
        for (int x = 0; x < font.cell_w; ++x)
            row += *pixels_at(font.sheet, left + x, y) != transparent_color ? '#' : '.';
    }
    return glyph;
}

std::string text_of(const LatinGlyph& glyph, int advance, int cell_h, int descent) {
    constexpr int thousandths = 1000;
    std::string text = line("STARTCHAR U+%04X", static_cast<unsigned>(glyph.code)) + line("ENCODING %d", glyph.code) +
                       line("SWIDTH %d 0", advance * thousandths / cell_h) + line("DWIDTH %d 0", advance) +
                       line("BBX %d %d 0 %d", static_cast<int>(glyph.rows.front().size()),
                            static_cast<int>(glyph.rows.size()), -descent) +
                       "BITMAP\n";
    for (const std::string& row : glyph.rows) text += bitmap_row(row);
    return text + "ENDCHAR\n";
}

}  // namespace

std::string bdf_of(const FontSlot& font, std::span<const LatinGlyph> more, const std::string& name, int descent) {
    std::string glyphs;
    int count = static_cast<int>(more.size()), widest = font.cell_w, highest = font.cell_h;
    for (int code = first_code; code <= last_code; ++code) {
        if (font.glyph_x[static_cast<std::size_t>(code)] == 0) continue;
        glyphs +=
            text_of(glyph_of_sheet(font, code), font.advance[static_cast<std::size_t>(code)], font.cell_h, descent);
        ++count;
    }
    for (const LatinGlyph& glyph : more) {
        const int width = static_cast<int>(glyph.rows.front().size());
        glyphs += text_of(glyph, width + 1, font.cell_h, descent);
        widest = std::max(widest, width);
        highest = std::max(highest, static_cast<int>(glyph.rows.size()));
    }
    const int pitch = font.advance['A'], height = font.cell_h;
    constexpr int tenths = 10, dots_per_inch = 75;
    std::string file = "STARTFONT 2.1\n";
    file += line("FONT -nubo-%s-medium-r-normal--%d-%d-%d-%d-p-%d-ISO10646-1", name.c_str(), height, height * tenths,
                 dots_per_inch, dots_per_inch, pitch * tenths);
    file += line("SIZE %d %d %d", height, dots_per_inch, dots_per_inch);
    file += line("FONTBOUNDINGBOX %d %d 0 %d", widest, highest, -descent);
    file += "STARTPROPERTIES 6\n" + line("FAMILY_NAME \"%s\"", name.c_str()) + line("PIXEL_SIZE %d", height) +
            line("FONT_ASCENT %d", height - descent) + line("FONT_DESCENT %d", descent) +
            "CHARSET_REGISTRY \"ISO10646\"\nCHARSET_ENCODING \"1\"\nENDPROPERTIES\n";
    return file + line("CHARS %d", count) + glyphs + "ENDFONT\n";
}

}  // namespace nubo
