#include "specimen.h"

#include "base/color.h"

namespace nubo {

namespace {

constexpr int first_tone = 128, dark_tones_from = 1;  // the first tone is the light one

/// The two colours that a colour row of the text engine gives the letters' tones.
struct TextColors {
    Color light, dark;
};

/// Where the glyph of a character begins on its sheet; nothing when the font lacks it.
struct Cell {
    int x, y, advance;
};
std::optional<Cell> find_glyph(BITMAP* sheet, int code) {
    const int cell_width = getpixel(sheet, 0, 0) + 1, cell_height = getpixel(sheet, 1, 0) + 1;
    for (int y = 0; y + cell_height <= sheet->h; y += cell_height)
        for (int x = 0; x + cell_width <= sheet->w; x += cell_width)
            if ((x > 0 || y > 0) && getpixel(sheet, x, y) == code) return Cell{x + 1, y + 1, getpixel(sheet, x + 2, y)};
    return std::nullopt;
}

void draw_text(BITMAP* target, BITMAP* sheet, int x, int y, const std::string& text, TextColors colors) {
    const int width = getpixel(sheet, 0, 0), height = getpixel(sheet, 1, 0);
    for (const char character : text) {
        const auto glyph = find_glyph(sheet, character);
        if (!glyph) continue;
        for (int i = 0; i < width * height; ++i) {
            const int tone = getpixel(sheet, glyph->x + i % width, glyph->y + i / width) - first_tone;
            const Color color = tone >= dark_tones_from ? colors.dark : colors.light;
            if (tone >= 0) putpixel(target, x + i % width, y + i / width, static_cast<int>(color));
        }
        x += glyph->advance;
    }
}

/// A box with the program's clipped corners.
void draw_box(BITMAP* target, int x, int y, int width, int height, Color fill, Color border) {
    rectfill(target, x + 1, y + 1, x + width - 2, y + height - 2, static_cast<int>(fill));
    const int color = static_cast<int>(border), right = x + width - 1, bottom = y + height - 1;
    hline(target, x + 2, y, right - 2, color);
    hline(target, x + 2, bottom, right - 2, color);
    vline(target, x, y + 2, bottom - 2, color);
    vline(target, right, y + 2, bottom - 2, color);
    for (const int corner_x : {x + 1, right - 1})
        for (const int corner_y : {y + 1, bottom - 1}) putpixel(target, corner_x, corner_y, color);
}

/// Draws a sprite of the sheet in a scheme's colours: its template tells the part of each pixel.
void draw_sprite_in(BITMAP* target, const SpecimenSheets& sheets, const ArtScheme& scheme, int from_x, int from_y,
                    int width, int height, int x, int y) {
    constexpr int template_left = 60;
    const Color ground = scheme.colors[SCHEME_BACKGROUND], border = scheme.colors[SCHEME_BORDER];
    const auto half = [](Color a, Color b) {
        return pack_color((red_of(a) + red_of(b)) / 2, (green_of(a) + green_of(b)) / 2, (blue_of(a) + blue_of(b)) / 2);
    };
    for (int i = 0; i < width * height; ++i) {
        const int entry = getpixel(sheets.gui, from_x + template_left + i % width, from_y + i / width);
        if (entry == 0) continue;
        Color color = half(ground, half(ground, fixed_white));  // the lightest part
        switch (red_of((*sheets.palette)[static_cast<std::size_t>(entry)])) {
        case 104: color = scheme.colors[SCHEME_SHADOW]; break;
        case 124: color = border; break;
        case 152: color = ground; break;
        case 48: color = half(ground, border); break;
        }
        putpixel(target, x + i % width, y + i / width, static_cast<int>(color));
    }
}

constexpr int window_width = 158, window_height = 58;

void draw_window(BITMAP* target, const SpecimenSheets& sheets, const ArtScheme& scheme, int x, int y) {
    const auto color = [&scheme](SchemeColor index) { return scheme.colors[index]; };
    const auto write = [&](int dx, int dy, const char* text, SchemeColor index) {
        draw_text(target, sheets.wide_font, x + dx, y + dy, text, {color(index), color(index)});
    };
    const Color ground = color(SCHEME_BACKGROUND), border = color(SCHEME_BORDER), shadow = color(SCHEME_SHADOW);
    rectfill(target, x, y, x + window_width - 1, y + window_height - 1, static_cast<int>(ground));
    rect(target, x, y, x + window_width - 1, y + window_height - 1, static_cast<int>(border));
    draw_box(target, x + 2, y + 2, window_width - 4, 9, shadow, border);
    write(60, 4, scheme.name.c_str(), SCHEME_TEXT_LIGHT_ALT);
    draw_box(target, x + 2, y + 12, 49, 9, ground, border);
    write(12, 14, "BUTTON", SCHEME_TEXT_BUTTON);
    draw_box(target, x + 52, y + 12, 49, 9, color(SCHEME_HIGHLIGHT_BACK), border);
    write(71, 14, "LIT", SCHEME_TEXT_LIGHT_ALT);
    draw_box(target, x + 102, y + 12, 29, 9, 0x3878c8, color(SCHEME_HIGHLIGHT_FORE));
    draw_box(target, x + 2, y + 22, 99, 9, shadow, border);
    write(5, 24, "Text field_01", SCHEME_TEXT_LIGHT);
    write(4, 33, "STRONG TEXT", SCHEME_TEXT_HIGHLIGHT);
    write(84, 33, "CHOSEN TEXT", SCHEME_TEXT_SELECTED);
    draw_box(target, x + 2, y + 43, 140, 9, ground, border);
    rectfill(target, x + 13, y + 46, x + 130, y + 48, static_cast<int>(shadow));
    hline(target, x + 13, y + 47, x + 130, static_cast<int>(border));
    draw_sprite_in(target, sheets, scheme, 3, 141, 7, 7, x + 4, y + 44);
    draw_sprite_in(target, sheets, scheme, 20, 148, 7, 7, x + 133, y + 44);
    draw_sprite_in(target, sheets, scheme, 32, 125, 5, 9, x + 60, y + 43);
    rectfill(target, x + 66, y + 44, x + 80, y + 50, static_cast<int>(shadow));
    draw_sprite_in(target, sheets, scheme, 39, 126, 4, 7, x + 79, y + 44);
    draw_text(target, sheets.narrow_font, x + 68, y + 45, "128", {0xffffff, ground});
    draw_sprite_in(target, sheets, scheme, 4, 114, 7, 7, x + 148, y + 14);
    draw_sprite_in(target, sheets, scheme, 31, 112, 9, 7, x + 147, y + 26);
    draw_sprite_in(target, sheets, scheme, 19, 121, 7, 7, x + 148, y + 44);
}

}  // namespace

OwnedBitmap draw_font_specimen(const SpecimenSheets& sheets) {
    constexpr const char* lines[] = {
        "ABCDEFGHIJKLMNOPQRSTUVWXYZ 0123456789",        "abcdefghijklmnopqrstuvwxyz",
        ".,:;!?'\"`^~-+*/=<>()[]{}|\\_#$%&@",           "0O 1Il| 5S 8B 2Z 6G UV MNWHKX rn m vy gq9",
        "MOUSE > 160,120   PIXEL > 87,42   FRAME > 07", "The quick brown fox jumps over the lazy dog.",
        "CLICK ON A LABEL TO REPOSITION A MENU",        "sketch_02-final (copy).png   [12 x 34]",
    };
    constexpr TextColors amber{0xfac20c, 0xce9d00}, grey{0xbebeba, 0x9da19d};
    OwnedBitmap picture = make_bitmap(320, 160, pack_color(24, 24, 28));
    int y = 4;
    for (BITMAP* const font : {sheets.wide_font, sheets.narrow_font})
        for (const char* const line : lines) {
            if (picture) draw_text(picture.get(), font, 4, y, line, y % 20 == 4 ? grey : amber);
            y += 9;
        }
    return picture;
}

OwnedBitmap draw_scheme_specimen(const SpecimenSheets& sheets, const std::vector<ArtScheme>& schemes) {
    const int rows = (static_cast<int>(schemes.size()) + 1) / 2;
    OwnedBitmap picture = make_bitmap(2 * window_width + 4, rows * (window_height + 4), pack_color(24, 24, 28));
    for (int i = 0; picture && i < static_cast<int>(schemes.size()); ++i)
        draw_window(picture.get(), sheets, schemes[static_cast<std::size_t>(i)], i % 2 * (window_width + 4),
                    i / 2 * (window_height + 4));
    return picture;
}

}  // namespace nubo
