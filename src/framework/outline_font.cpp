#include "framework/outline_font.h"

#include "base/bitmap.h"
#include "base/utf8.h"
#include "framework/effects.h"
#include "platform/input_file.h"
#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <ft2build.h>
#include <memory>
#include <utility>
#include <vector>
#include FT_FREETYPE_H
#include FT_BITMAP_H
#include FT_OUTLINE_H

namespace nubo {
namespace {

/// A glyph as pixels, a byte each, 0 where nothing is. Its corner lies `left` of the pen and `top` above the baseline.
struct GlyphForm {
    bool is_rendered = false;
    int width = 0, height = 0, left = 0, top = 0;
    std::vector<std::uint8_t> pixels;
};

struct CachedGlyph {
    GlyphForm mono, grey;              // each rendered when it is first asked for
    int advance_x = 0, advance_y = 0;  // whole pixels
};

constexpr FT_UInt no_glyph = ~FT_UInt{0};

}  // namespace

struct OutlineFont {
    FT_Face face = nullptr;
    int height = 0, real_size = 0;   // asked for, and the pixel size that gave it
    int ascender = 0;                // pixels
    std::vector<std::uint8_t> data;  // the file, which the face goes on reading
    int char_spacing = 0;
    int fixed_size_count = -1;                         // of a font of bitmaps
    std::vector<std::unique_ptr<CachedGlyph>> glyphs;  // by the face's number of the glyph; null: not used so far
    FT_UInt loaded = no_glyph;                         // which stands in the face's slot as the file has it
    std::vector<int> fixed_sizes;                      // heights
    std::string language;
    int convert_mode = CONVERT_BYTES;
};

namespace {

constexpr std::size_t font_file_max = std::size_t{64} << 20;
constexpr int fraction_bits = 6;  // FreeType counts 64ths of a pixel
constexpr int spacing_max = 4'096, glyph_side_max = 4'096;
constexpr int size_max = 0xffff;      // of FreeType
constexpr int advance_max = 1 << 20;  // no text of such glyphs overflows

FT_Library library = nullptr;
int text_background = -1;

std::size_t index_of(int i) { return static_cast<std::size_t>(i); }

// ---- Sizes ---------------------------------------------------------------------------------------------------------

void forget_glyphs(OutlineFont& font) {
    for (auto& glyph : font.glyphs) glyph.reset();
    font.loaded = no_glyph;
}

void store_size(OutlineFont& font, int height, int size) {
    forget_glyphs(font);
    font.height = height;
    font.real_size = size;
    font.ascender = static_cast<int>(font.face->size->metrics.ascender >> fraction_bits);
}

int line_height(FT_Face face) {
    const FT_Size_Metrics& metrics = face->size->metrics;
    return static_cast<int>(std::labs(metrics.ascender >> fraction_bits) +
                            std::labs(metrics.descender >> fraction_bits));
}

bool request_size(FT_Face face, int size) { return FT_Set_Pixel_Sizes(face, 0, static_cast<FT_UInt>(size)) == 0; }

/// The size whose line comes nearest to `height` from below, 0 if there is none. The face is left at it, or anywhere.
int find_size(FT_Face face, int height) {
    // A face that claims to have no height at all would be tried at ever larger sizes: FreeType refuses none.
    const int largest = std::min(height, size_max / 4) * 4 + 64;
    int direction = 0;
    for (int size = height; size >= 1 && size <= largest; size += direction) {
        if (!request_size(face, size)) return 0;
        const int reached = line_height(face);
        if (reached == height) return size;
        if (direction == 0) direction = reached < height ? 1 : -1;
        if (direction < 0 && reached < height) return size;
        if (direction > 0 && reached > height) return request_size(face, size - 1) ? size - 1 : 0;
    }
    return 0;
}

int set_outline_height(OutlineFont& font, int height) {
    const int size = find_size(font.face, height);
    if (size == 0) {
        if (font.real_size > 0) request_size(font.face, font.real_size);
        return -1;
    }
    store_size(font, height, size);
    return 0;
}

int set_bitmap_height(OutlineFont& font, int height) {
    const auto fixed = std::find(font.fixed_sizes.begin(), font.fixed_sizes.end(), height);
    if (fixed == font.fixed_sizes.end()) return -1;
    if (FT_Select_Size(font.face, static_cast<FT_Int>(fixed - font.fixed_sizes.begin())) != 0) return -1;
    store_size(font, height, height);
    return 0;
}

// ---- Glyphs --------------------------------------------------------------------------------------------------------

/// Brings the glyph into the face's slot, unless it stands there.
bool load_into_slot(OutlineFont& font, FT_UInt index) {
    if (font.loaded == index) return true;
    font.loaded = FT_Load_Glyph(font.face, index, FT_LOAD_DEFAULT) == 0 ? index : no_glyph;
    return font.loaded == index;
}

std::unique_ptr<CachedGlyph> load_glyph(OutlineFont& font, FT_UInt index) {
    auto entry = std::make_unique<CachedGlyph>();
    if (!load_into_slot(font, index)) return entry;
    const auto in_pixels = [](FT_Pos advance) {
        return static_cast<int>(std::clamp<FT_Pos>(advance >> fraction_bits, -advance_max, advance_max));
    };
    entry->advance_x = in_pixels(font.face->glyph->advance.x);
    entry->advance_y = in_pixels(font.face->glyph->advance.y);
    return entry;
}

/// What the glyph in the slot reaches over, in whole pixels.
FT_BBox pixel_box(FT_GlyphSlot slot) {
    if (slot->format == FT_GLYPH_FORMAT_BITMAP)
        return {slot->bitmap_left, slot->bitmap_top - static_cast<FT_Pos>(slot->bitmap.rows),
                slot->bitmap_left + static_cast<FT_Pos>(slot->bitmap.width), slot->bitmap_top};
    constexpr FT_Pos round_up = (1 << fraction_bits) - 1;
    FT_BBox box;
    FT_Outline_Get_CBox(&slot->outline, &box);
    return {box.xMin >> fraction_bits, box.yMin >> fraction_bits, (box.xMax + round_up) >> fraction_bits,
            (box.yMax + round_up) >> fraction_bits};
}

bool is_within_limits(const FT_BBox& box) {
    const auto fits = [](FT_Pos low, FT_Pos high) { return high - low <= glyph_side_max; };
    const auto is_near = [](FT_Pos place) { return std::labs(place) <= advance_max; };
    return fits(box.xMin, box.xMax) && fits(box.yMin, box.yMax) && is_near(box.xMin) && is_near(box.yMin);
}

/// Of a font of bitmaps a pixel of the upper half of the greys is a hard one.
std::uint8_t hard_pixel(int value, int greys) { return 2 * value >= greys ? 1 : 0; }

/// A pixel of a bitmap without greys is a whole one.
std::uint8_t soft_pixel(int value, int greys) {
    constexpr int all = 256, full = 255, two = 2;
    if (greys == all) return static_cast<std::uint8_t>(value);
    if (greys <= two) return value != 0 ? full : 0;
    return static_cast<std::uint8_t>(std::min(value * (all / greys), full));
}

template <std::uint8_t (*pixel)(int value, int greys)> void take_pixels(GlyphForm& form, const FT_Bitmap& bitmap) {
    form.width = static_cast<int>(bitmap.width);
    form.height = static_cast<int>(bitmap.rows);
    form.pixels.resize(index_of(form.width) * index_of(form.height));
    auto to = form.pixels.begin();
    for (int y = 0; y < form.height; ++y) {
        const std::uint8_t* const row = bitmap.buffer + std::ptrdiff_t{y} * bitmap.pitch;
        to = std::transform(row, row + form.width, to,
                            [greys = bitmap.num_grays](std::uint8_t value) { return pixel(value, greys); });
    }
}

/// The same of a bitmap with any bits for a pixel.
template <std::uint8_t (*pixel)(int value, int greys)> void convert_pixels(GlyphForm& form, const FT_Bitmap& bitmap) {
    if (bitmap.pixel_mode == FT_PIXEL_MODE_GRAY) return take_pixels<pixel>(form, bitmap);
    FT_Bitmap bytes;
    FT_Bitmap_Init(&bytes);
    if (FT_Bitmap_Convert(library, &bitmap, &bytes, 1) == 0) take_pixels<pixel>(form, bytes);
    FT_Bitmap_Done(library, &bytes);
}

/// Nothing comes of a glyph that is neither an outline nor a bitmap, of a blank, and of a bitmap that the file names
/// but doesn't hold.
template <std::uint8_t (*pixel)(int value, int greys)>
void render(GlyphForm& form, FT_GlyphSlot slot, FT_Render_Mode mode) {
    const bool is_outline = slot->format == FT_GLYPH_FORMAT_OUTLINE;
    if ((!is_outline && slot->format != FT_GLYPH_FORMAT_BITMAP) || !is_within_limits(pixel_box(slot))) return;
    if ((is_outline && FT_Render_Glyph(slot, mode) != 0) || slot->bitmap.buffer == nullptr) return;
    form.left = slot->bitmap_left;
    form.top = slot->bitmap_top;
    convert_pixels<pixel>(form, slot->bitmap);
}

const GlyphForm& form_of(OutlineFont& font, FT_UInt index, TextEdges edges) {
    CachedGlyph& glyph = *font.glyphs[index];
    GlyphForm& form = edges == EDGES_SMOOTH ? glyph.grey : glyph.mono;
    if (form.is_rendered) return form;
    form.is_rendered = true;
    if (!load_into_slot(font, index)) return form;
    if (edges == EDGES_SMOOTH)
        render<soft_pixel>(form, font.face->glyph, FT_RENDER_MODE_NORMAL);
    else
        render<hard_pixel>(form, font.face->glyph, FT_RENDER_MODE_MONO);
    font.loaded = no_glyph;  // an outline has become a bitmap
    return form;
}

// ---- Characters ----------------------------------------------------------------------------------------------------

/// Symbols stand in an area of their own, from 0xF000 on.
FT_UInt glyph_index(FT_Face face, char32_t code) {
    constexpr char32_t symbols_first = 0xf000, symbols = 0x100;
    if (face->charmap == nullptr) return code;
    const FT_UInt index = FT_Get_Char_Index(face, code);
    const bool is_symbol = face->charmap->encoding == FT_ENCODING_MS_SYMBOL && code < symbols;
    return index == 0 && is_symbol ? FT_Get_Char_Index(face, symbols_first + code) : index;
}

/// Calls `visit(index)` for each character of the text that has a glyph, as long as it gives true. The glyph is cached
/// by then.
template <typename Visit> void for_each_glyph(OutlineFont& font, std::string_view text, Visit visit) {
    while (!text.empty()) {
        const auto byte = static_cast<unsigned char>(text.front());
        const Utf8Character next = font.convert_mode == CONVERT_WIDE ? first_character(text) : Utf8Character{byte, 1};
        text.remove_prefix(next.size);
        const FT_UInt index = glyph_index(font.face, next.code);
        if (index >= font.glyphs.size()) continue;
        auto& glyph = font.glyphs[index];
        if (glyph == nullptr) glyph = load_glyph(font, index);
        if (!visit(index)) return;
    }
}

int pen_step(const OutlineFont& font, FT_UInt index) {
    const int advance = font.glyphs[index]->advance_x;
    return advance != 0 ? advance + font.char_spacing : 0;
}

// ---- Drawing -------------------------------------------------------------------------------------------------------

/// Calls `paint(values, x, y, length)` for each row of a glyph, cut to the area.
template <typename Paint>
void paint_glyph(const GlyphForm& form, const DrawArea& area, std::int64_t at_x, int y, Paint paint) {
    if (at_x >= area.right || at_x + form.width <= area.left) return;
    const int x = static_cast<int>(at_x);
    const int left = std::max(area.left, x), right = std::min(area.right, x + form.width);
    for (int row = std::max(area.top, y); row < std::min(area.bottom, y + form.height); ++row) {
        const std::size_t first = index_of(row - y) * index_of(form.width) + index_of(left - x);
        paint(form.pixels.data() + first, left, row, right - left);
    }
}

template <typename Paint>
void draw_text(BITMAP* bitmap, OutlineFont* font, std::string_view text, int x, int y, TextEdges edges, Paint paint) {
    const DrawArea area = draw_area(bitmap);
    if (y >= area.bottom || y + font->height < area.top || x >= area.right) return;
    std::int64_t pen = x;  // glyphs of a bad font lead far away
    for_each_glyph(*font, text, [&](FT_UInt index) {
        const GlyphForm& form = form_of(*font, index, edges);
        paint_glyph(form, area, pen + form.left, y - form.top + font->ascender, paint);
        pen += pen_step(*font, index);
        return pen < area.right;
    });
}

/// Calls `set(pixel, value)` for each pixel of a row that the glyph covers.
template <typename Set> auto row_painter(BITMAP* bitmap, Set set) {
    return [=](const std::uint8_t* values, int x, int y, int length) {
        Color* const to = pixels_at(bitmap, x, y);
        for (int i = 0; i < length; ++i)
            if (values[i] != 0) set(to[i], values[i]);
    };
}

using Ramp = std::array<Color, 256>;

/// From the background up to the colour, in 256ths of their distance.
Ramp ramp_of(int background, int color) {
    constexpr int steps_bits = 8;
    const auto channel = [](int from, int to, int step) {
        return from == to ? from : from + (((to - from + 1) * step) >> steps_bits);
    };
    Ramp ramp{};
    for (int step = 0; step < static_cast<int>(ramp.size()); ++step)
        ramp[index_of(step)] = static_cast<Color>(makecol(channel(getr(background), getr(color), step),
                                                          channel(getg(background), getg(color), step),
                                                          channel(getb(background), getb(color), step)));
    return ramp;
}

/// White over a grey at a strength, as the red of Allegro's translucent drawing, into which its green carries.
std::uint8_t covered(std::uint32_t grey, std::uint32_t strength) {
    constexpr std::uint32_t white = 255, red_and_blue = 0x10001, all = 0x10101;
    return static_cast<std::uint8_t>((((white - grey) * red_and_blue * (strength + 1) >> 8) + grey * all) >> 16);
}

/// Adds a row of a glyph, whose values times `factor` count, to one of a map. Glyphs hardly ever overlap: then the rows
/// are merely joined.
void cover_row(std::uint8_t* to, const std::uint8_t* values, int length, int factor) {
    bool overlaps = false;
    for (int i = 0; i < length; ++i) overlaps |= (to[i] != 0) & (values[i] != 0);
    if (!overlaps) {
        for (int i = 0; i < length; ++i) to[i] = static_cast<std::uint8_t>(to[i] | values[i] * factor);
        return;
    }
    for (int i = 0; i < length; ++i) {
        const auto value = static_cast<std::uint8_t>(values[i] * factor);
        if (value != 0) to[i] = to[i] == 0 ? value : covered(to[i], value);
    }
}

/// Takes the face into a font; null if FreeType can't open it.
OutlineFont* open_font(std::vector<std::uint8_t> data) {
    auto font = std::make_unique<OutlineFont>();
    font->data = std::move(data);
    if (library == nullptr || font->data.empty()) return nullptr;
    if (FT_New_Memory_Face(library, font->data.data(), static_cast<FT_Long>(font->data.size()), 0, &font->face) != 0)
        return nullptr;
    FT_Face face = font->face;
    if (face->charmap == nullptr && face->num_charmaps > 0) FT_Set_Charmap(face, face->charmaps[0]);
    font->glyphs.resize(static_cast<std::size_t>(std::max<FT_Long>(face->num_glyphs, 0)));
    if (!FT_IS_SCALABLE(face)) {
        font->fixed_size_count = face->num_fixed_sizes;
        for (int i = 0; i < face->num_fixed_sizes; ++i) font->fixed_sizes.push_back(face->available_sizes[i].height);
    }
    constexpr int first_outline_height = 8;
    font_set_height(font.get(), font->fixed_sizes.empty() ? first_outline_height : font->fixed_sizes.front());
    return font.release();
}

}  // namespace

// ---- The layer -----------------------------------------------------------------------------------------------------

int font_system_init() { return FT_Init_FreeType(&library); }

void font_system_exit() {
    for (OutlineFont** const handle : {&preferred_font, &preview_font}) font_destroy(std::exchange(*handle, nullptr));
    if (library != nullptr) FT_Done_FreeType(library);
    library = nullptr;
}

int font_text_mode(int color) { return std::exchange(text_background, color); }

// ---- Fonts ---------------------------------------------------------------------------------------------------------

OutlineFont* font_load(const std::string& path) {
    std::vector<std::uint8_t> data;
    if (InputFile(path).size() > font_file_max || !read_file(path, font_file_max, data)) return nullptr;
    return open_font(std::move(data));
}

OutlineFont* font_load_from_memory(const void* data, int size) {
    const auto* const bytes = static_cast<const std::uint8_t*>(data);
    return open_font({bytes, bytes + size});
}

void font_destroy(OutlineFont* font) {
    if (font == nullptr) return;
    forget_glyphs(*font);
    FT_Done_Face(font->face);
    delete font;
}

int font_set_height(OutlineFont* font, int height) {
    if (height == font->height) return 0;
    if (height < 1) return -1;
    return font->fixed_size_count < 0 ? set_outline_height(*font, height) : set_bitmap_height(*font, height);
}

bool font_has_one_size(const OutlineFont* font) { return font != nullptr && font->fixed_size_count == 1; }

void font_set_spacing(OutlineFont* font, int pixels) { font->char_spacing = std::clamp(pixels, 0, spacing_max); }

void font_set_language(OutlineFont* font, const char* name) { font->language = name; }

void font_set_convert(OutlineFont* font, int mode) {
    font->convert_mode = std::clamp<int>(mode, CONVERT_BYTES, CONVERT_WIDE);
}

// ---- Text ----------------------------------------------------------------------------------------------------------

int font_text_length(OutlineFont* font, std::string_view text) {
    std::int64_t length = 0;
    for_each_glyph(*font, text, [&](FT_UInt index) {
        length += pen_step(*font, index);
        return true;
    });
    return static_cast<int>(std::clamp<std::int64_t>(length, INT_MIN, INT_MAX));
}

int font_text_length(OutlineFont* font, std::string_view text, TextEdges edges) {
    for_each_glyph(*font, text, [&](FT_UInt index) {
        form_of(*font, index, edges);
        return true;
    });
    return font_text_length(font, text);
}

int font_text_height(const OutlineFont* font) { return font->height; }

void font_textout(BITMAP* bitmap, OutlineFont* font, std::string_view text, int x, int y, int color) {
    const auto set = [=](Color& pixel, std::uint8_t) { pixel = static_cast<Color>(color); };
    draw_text(bitmap, font, text, x, y, EDGES_ROUGH, row_painter(bitmap, set));
}

void font_textout_aa(BITMAP* bitmap, OutlineFont* font, std::string_view text, int x, int y, int color) {
    if (text_background >= 0) return font_textout_aa(bitmap, font, text, x, y, color, text_background);
    const auto paint = [=](const std::uint8_t* values, int left, int row, int length) {
        constexpr int full = 255;
        for (int i = 0; i < length; ++i) {
            if (values[i] == 0) continue;
            drawing_mode(values[i] == full ? DRAW_MODE_SOLID : DRAW_MODE_TRANS, nullptr, 0, 0);
            set_trans_blender(0, 0, 0, values[i]);
            putpixel(bitmap, left + i, row, color);
        }
    };
    draw_text(bitmap, font, text, x, y, EDGES_SMOOTH, paint);
    solid_mode();
}

void font_textout_aa(BITMAP* bitmap, OutlineFont* font, std::string_view text, int x, int y, int color,
                     int background) {
    const Ramp ramp = ramp_of(background, color);
    const auto set = [&ramp](Color& pixel, std::uint8_t value) { pixel = ramp[value]; };
    draw_text(bitmap, font, text, x, y, EDGES_SMOOTH, row_painter(bitmap, set));
}

void font_cover(BITMAP* coverage, OutlineFont* font, std::string_view text, int x, int y, TextEdges edges) {
    const int factor = edges == EDGES_ROUGH ? 255 : 1;  // of a hard pixel, which is 1
    const auto paint = [=](const std::uint8_t* values, int left, int row, int length) {
        cover_row(coverage->line[row] + left, values, length, factor);
    };
    draw_text(coverage, font, text, x, y, edges, paint);
}

}  // namespace nubo
