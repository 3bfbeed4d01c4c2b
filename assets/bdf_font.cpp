#include "bdf_font.h"

#include "base/bitmap.h"
#include <cstdio>
#include <vector>

namespace nubo {

namespace {

constexpr int first_code = ' ', last_code = '~';

template <typename... Values> std::string line(const char* format, const Values&... values) {
    std::array<char, 128> text{};
    std::snprintf(text.data(), text.size(), format, values...);
    return std::string(text.data()) + "\n";
}

/// A row of pixels as bytes of eight, the leftmost pixel the highest bit.
std::string bitmap_row(BITMAP* sheet, int left, int y, int width) {
    constexpr int byte_bits = 8, highest_bit = 0x80;
    std::string row;
    for (int first = 0; first < width; first += byte_bits) {
        unsigned byte = 0;
        for (int x = first; x < first + byte_bits && x < width; ++x)
            if (*pixels_at(sheet, left + x, y) != transparent_color) byte |= highest_bit >> (x - first);
        std::array<char, 4> digits{};
        std::snprintf(digits.data(), digits.size(), "%02X", byte);
        row += digits.data();
    }
    return row + "\n";
}

std::string glyph_of(const FontSlot& font, int code, int descent) {
    constexpr int thousandths = 1000;
    const auto character = static_cast<std::size_t>(code);
    const int advance = font.advance[character];
    std::string glyph = line("STARTCHAR U+%04X", static_cast<unsigned>(code)) + line("ENCODING %d", code) +
                        line("SWIDTH %d 0", advance * thousandths / font.cell_h) + line("DWIDTH %d 0", advance) +
                        line("BBX %d %d 0 %d", font.cell_w, font.cell_h, -descent) + "BITMAP\n";
    for (int y = 0; y < font.cell_h; ++y) glyph += bitmap_row(font.sheet, font.glyph_x[character], y, font.cell_w);
    return glyph + "ENDCHAR\n";
}

}  // namespace

std::string bdf_of(const FontSlot& font, const std::string& name, int descent) {
    std::vector<int> codes;
    for (int code = first_code; code <= last_code; ++code)
        if (font.glyph_x[static_cast<std::size_t>(code)] != 0) codes.push_back(code);
    const int pitch = font.advance['A'], height = font.cell_h;
    constexpr int tenths = 10, dots_per_inch = 75;
    std::string file = "STARTFONT 2.1\n";
    file += line("FONT -nubo-%s-medium-r-normal--%d-%d-%d-%d-c-%d-ISO10646-1", name.c_str(), height, height * tenths,
                 dots_per_inch, dots_per_inch, pitch * tenths);
    file += line("SIZE %d %d %d", height, dots_per_inch, dots_per_inch);
    file += line("FONTBOUNDINGBOX %d %d 0 %d", font.cell_w, height, -descent);
    file += "STARTPROPERTIES 6\n" + line("FAMILY_NAME \"%s\"", name.c_str()) + line("PIXEL_SIZE %d", height) +
            line("FONT_ASCENT %d", height - descent) + line("FONT_DESCENT %d", descent) +
            "CHARSET_REGISTRY \"ISO10646\"\nCHARSET_ENCODING \"1\"\nENDPROPERTIES\n";
    file += line("CHARS %d", static_cast<int>(codes.size()));
    for (const int code : codes) file += glyph_of(font, code, descent);
    return file + "ENDFONT\n";
}

}  // namespace nubo
