#include "specimen.h"

#include "base/color.h"
#include "framework/text.h"
#include "gui_sheet.h"
#include <iterator>

namespace nubo {

namespace {

constexpr Color desk_color = pack_color(24, 24, 28);

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

// ---- A window, as rows ---------------------------------------------------------------------------------------------

constexpr int window_width = 158, window_height = 58, window_gap = 4;

struct BoxRow {
    int x, y, width, height;
    SchemeColor fill, border;
};
constexpr BoxRow boxes[] = {
    {2, 2, 154, 9, SCHEME_SHADOW, SCHEME_BORDER},            // title
    {2, 12, 49, 9, SCHEME_BACKGROUND, SCHEME_BORDER},        // button
    {52, 12, 49, 9, SCHEME_HIGHLIGHT_BACK, SCHEME_BORDER},   // the button under the mouse
    {102, 12, 39, 9, SCHEME_SHADOW, SCHEME_HIGHLIGHT_FORE},  // a chosen swatch
    {2, 22, 99, 9, SCHEME_SHADOW, SCHEME_BORDER},            // text field
    {2, 43, 140, 9, SCHEME_BACKGROUND, SCHEME_BORDER},       // slider
};

struct BarRow {
    int x, y, width, height;
    SchemeColor color;
};
constexpr BarRow bars[] = {
    {13, 46, 118, 3, SCHEME_SHADOW},  // the slider's lane
    {13, 47, 118, 1, SCHEME_BORDER},
    {66, 44, 13, 7, SCHEME_SHADOW},  // the plate of its value
};

struct SpriteRow {
    int from_x, from_y, width, height, x, y;
};
constexpr SpriteRow sprites[] = {
    {3, 141, 7, 7, 4, 44},   {20, 148, 7, 7, 133, 44}, {32, 125, 5, 9, 60, 43},  {39, 126, 4, 7, 79, 44},
    {4, 114, 7, 7, 148, 14}, {31, 112, 9, 7, 147, 26}, {19, 121, 7, 7, 148, 44},
};

struct TextRow {
    int x, y;
    Font font;
    TextColor color;
    const char* text;
};
constexpr TextRow texts[] = {
    {8, 14, FONT_WIDE, TEXT_BUTTON, "BUTTON"},         {68, 14, FONT_WIDE, TEXT_LIGHT_ALT, "LIT"},
    {5, 24, FONT_WIDE, TEXT_LIGHT, "Text field_01"},   {4, 33, FONT_WIDE, TEXT_HIGHLIGHT, "STRONG TEXT"},
    {76, 33, FONT_WIDE, TEXT_SELECTED, "CHOSEN TEXT"}, {68, 45, FONT_NARROW, TEXT_LIGHT, "128"},
};
constexpr int title_x = 60, title_y = 4;

void take_text_colors(const ArtScheme& scheme) {
    set_text_color(TEXT_BUTTON, scheme.colors[SCHEME_TEXT_BUTTON]);
    set_text_color(TEXT_LIGHT_ALT, scheme.colors[SCHEME_TEXT_LIGHT_ALT]);
    set_text_color(TEXT_SELECTED, scheme.colors[SCHEME_TEXT_SELECTED]);
    set_text_color(TEXT_HIGHLIGHT, scheme.colors[SCHEME_TEXT_HIGHLIGHT]);
    set_text_color(TEXT_LIGHT, scheme.colors[SCHEME_TEXT_LIGHT]);
}

/// Draws a sprite in a scheme's colours, from its template.
void draw_sprite_row(BITMAP* window, BITMAP* gui, const ArtScheme& scheme, const SpriteRow& row) {
    for (int i = 0; i < row.width * row.height; ++i) {
        const int dx = i % row.width, dy = i / row.width;
        const Color pixel = *pixels_at(gui, row.from_x + template_distance + dx, row.from_y + dy);
        const auto part = part_of_template(pixel);
        if (pixel != transparent_color && part)
            putpixel(window, row.x + dx, row.y + dy, static_cast<int>(part_color(*part, scheme.colors)));
    }
}

void draw_window(BITMAP* window, BITMAP* gui, const ArtScheme& scheme) {
    const auto color = [&scheme](SchemeColor index) { return scheme.colors[index]; };
    clear_to_color(window, static_cast<int>(color(SCHEME_BACKGROUND)));
    rect(window, 0, 0, window->w - 1, window->h - 1, static_cast<int>(color(SCHEME_BORDER)));
    for (const BoxRow& row : boxes)
        draw_box(window, row.x, row.y, row.width, row.height, color(row.fill), color(row.border));
    for (const BarRow& row : bars)
        rectfill(window, row.x, row.y, row.x + row.width - 1, row.y + row.height - 1,
                 static_cast<int>(color(row.color)));
    for (const SpriteRow& row : sprites) draw_sprite_row(window, gui, scheme, row);
    take_text_colors(scheme);
    for (const TextRow& row : texts) {
        set_font(row.font, row.color);
        UA_text(window, row.x, row.y, row.text);
    }
    set_font(FONT_WIDE, TEXT_LIGHT_ALT);
    UA_text(window, title_x, title_y, scheme.name);
}

}  // namespace

OwnedBitmap draw_font_specimen() {
    constexpr const char* lines[] = {
        "ABCDEFGHIJKLMNOPQRSTUVWXYZ 0123456789",
        "abcdefghijklmnopqrstuvwxyz",
        ".,:;!?'\"`^~-+*/=<>()[]{}|\\_#$%&@",
        "0O 1Il| 5S 8B 2Z 6G UV MNWHKX rn m vy gq9",
        "|c21MOUSE > |c24160,120   |c21PIXEL > |c2487,42   |c21FRAME > |c3207",
        "The quick brown fox jumps over the lazy dog.",
        "CLICK ON A LABEL TO REPOSITION A MENU",
        "sketch_02-final (copy).png   [12 x 34]",
    };
    constexpr int line_height = 9, margin = 4;
    OwnedBitmap picture =
        make_bitmap(320, 2 * static_cast<int>(std::size(lines)) * line_height + 2 * margin, desk_color);
    int y = margin;
    for (const Font font : {FONT_WIDE, FONT_NARROW})
        for (const char* const line : lines) {
            set_font(font, TEXT_YELLOW);
            if (picture) UA_text(picture.get(), margin, y, line);
            y += line_height;
        }
    return picture;
}

OwnedBitmap draw_scheme_specimen(BITMAP* gui, const std::vector<ArtScheme>& schemes) {
    constexpr int per_row = 2, step_x = window_width + window_gap, step_y = window_height + window_gap;
    const int rows = (static_cast<int>(schemes.size()) + per_row - 1) / per_row;
    OwnedBitmap picture = make_bitmap(per_row * step_x, rows * step_y, desk_color);
    const OwnedBitmap window = make_bitmap(window_width, window_height);
    if (!picture || !window) return nullptr;
    int count = 0;
    for (const ArtScheme& scheme : schemes) {
        draw_window(window.get(), gui, scheme);
        blit(window.get(), picture.get(), 0, 0, count % per_row * step_x, count / per_row * step_y, window_width,
             window_height);
        ++count;
    }
    return picture;
}

}  // namespace nubo
