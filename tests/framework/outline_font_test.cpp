// Outline fonts against FreeType itself, called with the same settings; fonts that lie, and files that are none.
#include "framework/outline_font.h"

#include "harness/harness.h"
#include <ft2build.h>
#include <memory>
#include <sys/stat.h>
#include FT_FREETYPE_H

namespace nubo {
namespace {

using OwnedFont = std::unique_ptr<OutlineFont, OutlineFontDestroyer>;

constexpr const char* delivered_font = NUBO_FOLDER "/fonts/system.ttf";

OwnedFont from_memory(const std::string& bytes) {
    return OwnedFont(font_load_from_memory(bytes.data(), static_cast<int>(bytes.size())));
}

class OutlineFontTest : public testing::Test {
protected:
    OutlineFontTest() { EXPECT_EQ(font_system_init(), 0); }
    ~OutlineFontTest() override {
        font_text_mode(-1);
        font_system_exit();
    }
    OutlineFontTest(const OutlineFontTest&) = delete;
    OutlineFontTest& operator=(const OutlineFontTest&) = delete;
};

// ---- FreeType alone ------------------------------------------------------------------------------------------------

class PlainFace {
public:
    explicit PlainFace(const char* path) {
        EXPECT_EQ(FT_Init_FreeType(&library_), 0);
        EXPECT_EQ(FT_New_Face(library_, path, 0, &face), 0);
    }
    ~PlainFace() {
        FT_Done_Face(face);
        FT_Done_FreeType(library_);
    }
    PlainFace(const PlainFace&) = delete;
    PlainFace& operator=(const PlainFace&) = delete;

    int line_at(int size) const {
        FT_Set_Pixel_Sizes(face, 0, static_cast<FT_UInt>(size));
        return static_cast<int>((face->size->metrics.ascender >> 6) + (-face->size->metrics.descender >> 6));
    }
    /// The largest size whose line isn't higher.
    int size_for(int height) const {
        int size = 1;
        while (line_at(size + 1) <= height) ++size;
        return size;
    }
    /// Draws one code after the other at (x, y) into bytes of `w` a row, each pixel the strongest.
    std::vector<int> draw(const std::u32string& codes, int gap, TextEdges edges, int x, int y, int w, int h) const {
        std::vector<int> pixels(static_cast<std::size_t>(w) * static_cast<std::size_t>(h));
        const int ascender = static_cast<int>(face->size->metrics.ascender >> 6);
        for (const char32_t code : codes) {
            FT_Load_Char(face, code, FT_LOAD_DEFAULT);
            FT_Render_Glyph(face->glyph, edges == EDGES_SMOOTH ? FT_RENDER_MODE_NORMAL : FT_RENDER_MODE_MONO);
            const FT_Bitmap& bitmap = face->glyph->bitmap;
            for (int gy = 0; gy < static_cast<int>(bitmap.rows); ++gy)
                for (int gx = 0; gx < static_cast<int>(bitmap.width); ++gx) {
                    const unsigned char* const row = bitmap.buffer + gy * bitmap.pitch;
                    const int bit = (row[gx / 8] >> (7 - gx % 8) & 1) * 255;
                    const int value = edges == EDGES_SMOOTH ? row[gx] : bit;
                    const int px = x + face->glyph->bitmap_left + gx, py = y + ascender - face->glyph->bitmap_top + gy;
                    int& pixel = pixels[static_cast<std::size_t>(py * w + px)];
                    pixel = std::max(pixel, value);
                }
            x += static_cast<int>(face->glyph->advance.x >> 6) + gap;
        }
        return pixels;
    }

    FT_Face face = nullptr;

private:
    FT_Library library_ = nullptr;
};

TEST_F(OutlineFontTest, TextsAreThoseOfFreeType) {
    constexpr int w = 700, h = 130, x = 6, y = 9;
    const PlainFace plain(delivered_font);
    const OwnedFont font(font_load(delivered_font));
    ASSERT_NE(font, nullptr);
    font_set_convert(font.get(), CONVERT_WIDE);
    for (const int height : {8, 9, 28, 100})
        for (const int gap : {2, 5}) {  // so that no two glyphs share a pixel
            EXPECT_EQ(font_set_height(font.get(), height), 0);
            font_set_spacing(font.get(), gap);
            plain.line_at(plain.size_for(height));
            for (const TextEdges edges : {EDGES_SMOOTH, EDGES_ROUGH}) {
                const OwnedBitmap drawn(create_bitmap_ex(8, w, h));
                clear_bitmap(drawn.get());
                font_cover(drawn.get(), font.get(), "\xc3\x84 w\xd0\x96g\xe2\x82\xac", x, y, edges);
                const auto expected = plain.draw(U"\u00c4 w\u0416g\u20ac", gap, edges, x, y, w, h);
                int different = 0, covered = 0;
                for (int i = 0; i < w * h; ++i) {
                    different += expected[static_cast<std::size_t>(i)] != drawn->line[i / w][i % w] ? 1 : 0;
                    covered += expected[static_cast<std::size_t>(i)] != 0 ? 1 : 0;
                }
                EXPECT_EQ(different, 0) << height << ' ' << gap << ' ' << edges;
                EXPECT_GT(covered, 20);
            }
        }
}

TEST_F(OutlineFontTest, ALineIsNeverHigherThanAskedFor) {
    const PlainFace plain(delivered_font);
    const OwnedFont font(font_load(delivered_font));
    EXPECT_EQ(font_text_height(font.get()), 8);
    for (int height = 3; height <= 350; ++height) {
        ASSERT_EQ(font_set_height(font.get(), height), 0) << height;
        plain.line_at(plain.size_for(height));
        FT_Load_Char(plain.face, 'W', FT_LOAD_DEFAULT);
        ASSERT_EQ(font_text_length(font.get(), "W"), plain.face->glyph->advance.x >> 6) << height;
    }
    EXPECT_EQ(font_set_height(font.get(), 0), -1);
    EXPECT_EQ(font_set_height(font.get(), -5), -1);
    EXPECT_EQ(font_text_height(font.get()), 350);
}

TEST_F(OutlineFontTest, SpacingIsHeldToItsRangeAndFollowsEachGlyphThatMoves) {
    const OwnedFont font(font_load(delivered_font));
    const int width = font_text_length(font.get(), "AB");
    for (const auto& [asked, kept] : {std::pair{-1, 0}, std::pair{7, 7}, std::pair{5000, 4096}}) {
        font_set_spacing(font.get(), asked);
        EXPECT_EQ(font_text_length(font.get(), "AB"), width + 2 * kept);
        font_set_convert(font.get(), CONVERT_WIDE);
        EXPECT_EQ(font_text_length(font.get(), "A\xcc\x81"), font_text_length(font.get(), "A"))
            << "the accent stands over its letter";
        font_set_convert(font.get(), CONVERT_BYTES);
    }
}

TEST_F(OutlineFontTest, ColorsAreMixedWithTheBitmapOrWithABackground) {
    const OwnedFont font(font_load(delivered_font));
    font_set_height(font.get(), 40);
    const OwnedBitmap coverage(create_bitmap_ex(8, 60, 50));
    clear_bitmap(coverage.get());
    font_cover(coverage.get(), font.get(), "A", 5, 5, EDGES_SMOOTH);
    const OwnedBitmap over = make_bitmap(60, 50, 0x204060), ramp = make_bitmap(60, 50, 0x204060),
                      layer = make_bitmap(60, 50, 0x204060), hard = make_bitmap(60, 50, 0x204060);
    font_textout_aa(over.get(), font.get(), "A", 5, 5, 0xff8040);
    font_textout_aa(ramp.get(), font.get(), "A", 5, 5, 0xff8040, 0x0080c0);
    EXPECT_EQ(font_text_mode(0x0080c0), -1);
    font_textout_aa(layer.get(), font.get(), "A", 5, 5, 0xff8040);
    font_textout(hard.get(), font.get(), "A", 5, 5, 0xff8040);
    std::set<int> seen;
    for (int y = 0; y < 50; ++y)
        for (int x = 0; x < 60; ++x) {
            const int v = coverage->line[y][x];
            seen.insert(v);
            const Color mixed = *pixels_at(over.get(), x, y), ramped = *pixels_at(ramp.get(), x, y);
            ASSERT_EQ(ramped, *pixels_at(layer.get(), x, y));
            ASSERT_TRUE(*pixels_at(hard.get(), x, y) == 0x204060u || *pixels_at(hard.get(), x, y) == 0xff8040u);
            if (v == 0) {
                ASSERT_EQ(mixed, 0x204060u);
                ASSERT_EQ(ramped, 0x204060u) << "the background isn't filled in";
                continue;
            }
            // Allegro's: from + (to - from) * (v + 1) / 256, here on blue, into which nothing carries.
            ASSERT_EQ(mixed & 0xff, 0x60u - ((0x20u * static_cast<unsigned>(v == 255 ? 256 : v + 1) + 255) >> 8));
            // The ramp's: red rises by (255 - 0 + 1) / 256 a step, green stays, blue falls by (64 - 192 + 1) / 256.
            ASSERT_EQ(ramped >> 16, static_cast<Color>(v));
            ASSERT_EQ(ramped >> 8 & 0xff, 0x80u);
            ASSERT_EQ(ramped & 0xff, 0xc0u - static_cast<Color>((127 * v + 255) / 256));
        }
    EXPECT_GT(seen.size(), 20u);
}

TEST_F(OutlineFontTest, NothingIsDrawnBeyondTheClipRectangle) {
    const OwnedFont font(font_load(delivered_font));
    font_set_height(font.get(), 40);
    for (const auto& [x, y] : {std::pair{-20, -15}, std::pair{30, 25}, std::pair{-5000, 0}, std::pair{0, -41}}) {
        const OwnedBitmap whole = make_bitmap(200, 120), cut = make_bitmap(60, 50);
        set_clip_rect(cut.get(), 3, 4, 50, 40);
        font_textout(whole.get(), font.get(), "WgW", x + 50, y + 50, 0xffffff);
        font_textout(cut.get(), font.get(), "WgW", x, y, 0xffffff);
        for (int py = 0; py < 50; ++py)
            for (int px = 0; px < 60; ++px) {
                const bool inside = px >= 3 && px <= 50 && py >= 4 && py <= 40;
                ASSERT_EQ(*pixels_at(cut.get(), px, py), inside ? *pixels_at(whole.get(), px + 50, py + 50) : 0u);
            }
    }
}

// ---- Fonts of bitmaps ----------------------------------------------------------------------------------------------

/// Two letters of 8 pixels height, 'A' and code 200, in an encoding of nobody.
constexpr const char* bitmap_font = R"(STARTFONT 2.1
FONT -x-y-medium-r-normal--8-80-75-75-c-50-none-0
SIZE 8 75 75
FONTBOUNDINGBOX 5 8 0 -2
STARTPROPERTIES 2
FONT_ASCENT 6
FONT_DESCENT 2
ENDPROPERTIES
CHARS 2
STARTCHAR A
ENCODING 65
SWIDTH 500 0
DWIDTH 5 0
BBX 4 2 0 0
BITMAP
90
60
ENDCHAR
STARTCHAR other
ENCODING 200
SWIDTH 500 0
DWIDTH 6 0
BBX 1 1 0 0
BITMAP
80
ENDCHAR
ENDFONT
)";

TEST_F(OutlineFontTest, ABitmapFontHasItsOwnSizeAndHardPixelsEitherWay) {
    const OwnedFont font = from_memory(bitmap_font);
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(font_text_height(font.get()), 8);
    EXPECT_EQ(font_set_height(font.get(), 28), -1);
    EXPECT_EQ(font_set_height(font.get(), 8), 0);
    EXPECT_EQ(font_text_length(font.get(), "A\xc8"), 11);
    for (const TextEdges edges : {EDGES_SMOOTH, EDGES_ROUGH}) {
        const OwnedBitmap drawn(create_bitmap_ex(8, 20, 12));
        clear_bitmap(drawn.get());
        font_cover(drawn.get(), font.get(), "A\xc8", 1, 2, edges);
        const std::string rows[] = {".#..#......", "..##..#...."};  // baseline 2 + 6, the two rows above it
        for (int y = 0; y < 12; ++y)
            for (int x = 0; x < 11; ++x) {
                const bool set = y >= 6 && y < 8 && rows[y - 6][static_cast<std::size_t>(x)] == '#';
                EXPECT_EQ(drawn->line[y][x], set ? 255 : 0) << x << ' ' << y << ' ' << edges;
            }
    }
}

TEST_F(OutlineFontTest, ABitmapThatTheFileLacksIsNotDrawn) {
    const std::string whole = bitmap_font;
    const OwnedFont font = from_memory(whole.substr(0, whole.rfind("BITMAP")) + "ENDCHAR\nENDFONT\n");
    ASSERT_NE(font, nullptr);
    const OwnedBitmap drawn = make_bitmap(20, 12);
    font_textout(drawn.get(), font.get(), "\xc8", 1, 2, 0xffffff);
    font_textout_aa(drawn.get(), font.get(), "\xc8", 1, 2, 0xffffff);
    EXPECT_EQ(*pixels_at(drawn.get(), 1, 7), 0u);
}

// ---- Fonts that lie ------------------------------------------------------------------------------------------------

/// Where a table of the font begins.
std::size_t table_of(const std::string& font, const char* name) {
    const std::size_t row = font.find(name);
    std::size_t offset = 0;
    for (std::size_t i = 8; i < 12; ++i) offset = offset << 8 | static_cast<unsigned char>(font[row + i]);
    return offset;
}

void put_16(std::string& font, std::size_t at, int value) {
    font[at] = static_cast<char>(value >> 8);
    font[at + 1] = static_cast<char>(value);
}

TEST_F(OutlineFontTest, AFaceWithoutHeightFindsNoSizeAndGivesUp) {
    std::string bytes = bytes_of(delivered_font);
    for (const int at : {4, 6}) put_16(bytes, table_of(bytes, "hhea") + static_cast<std::size_t>(at), 0);
    for (const int at : {68, 70, 74, 76}) put_16(bytes, table_of(bytes, "OS/2") + static_cast<std::size_t>(at), 0);
    const OwnedFont font = from_memory(bytes);
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(font_set_height(font.get(), 28), -1);
    const OwnedBitmap drawn = make_bitmap(50, 50);
    font_textout(drawn.get(), font.get(), "A", 0, 0, 0xffffff);  // whatever it draws
}

TEST_F(OutlineFontTest, AGlyphOfManyThousandPixelsIsNotDrawn) {
    std::string bytes = bytes_of(delivered_font);
    put_16(bytes, table_of(bytes, "head") + 18, 16);  // units of the em, 2,048 before
    for (const int at : {4, 6})
        put_16(bytes, table_of(bytes, "hhea") + static_cast<std::size_t>(at), at == 4 ? 13 : -3);
    const OwnedFont font = from_memory(bytes);
    ASSERT_NE(font, nullptr);
    ASSERT_EQ(font_set_height(font.get(), 255), 0);
    EXPECT_GT(font_text_length(font.get(), "W"), 20'000);
    const OwnedBitmap drawn = make_bitmap(50, 50);
    font_textout_aa(drawn.get(), font.get(), "W", 0, -10'000, 0xffffff);
    font_textout(drawn.get(), font.get(), "W", 0, 0, 0xffffff);
    for (int x = 0; x < 50; ++x) EXPECT_EQ(*pixels_at(drawn.get(), x, 25), 0u);
}

TEST_F(OutlineFontTest, WhatIsNoFontIsNone) {
    const ScratchFolder scratch;
    std::filesystem::create_directory("folder");
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    std::ofstream("empty");
    std::ofstream("text") << std::string(5'000, 'x');
    for (const char* name : {"none", "folder", "pipe", "empty", "text"}) EXPECT_EQ(font_load(name), nullptr) << name;
    font_destroy(nullptr);
}

// A font that is cut or bent is none, or draws something: it never brings the program down.
TEST_F(OutlineFontTest, CutAndBentFontsDoNoHarm) {
    const std::string whole = bytes_of(delivered_font);
    std::mt19937 random(7);
    const OwnedBitmap drawn = make_bitmap(200, 60);
    int opened = 0;
    for (int turn = 0; turn < 120; ++turn) {
        std::string bytes = turn < 20 ? whole.substr(0, whole.size() * static_cast<std::size_t>(turn) / 20) : whole;
        for (int bend = 0; turn >= 20 && bend < 200; ++bend) {
            const std::size_t reach = bend % 2 == 0 ? 400 : bytes.size();  // half of them in the directory of tables
            if (bend % 2 == 0 && turn % 2 == 0) continue;
            bytes[random() % reach] = static_cast<char>(random());
        }
        const OwnedFont font = from_memory(bytes);
        if (font == nullptr) continue;
        ++opened;
        font_set_height(font.get(), 40);
        font_textout_aa(drawn.get(), font.get(), "HAMBURGefonts", 0, 0, 0xffffff);
        font_textout(drawn.get(), font.get(), "HAMBURGefonts", 0, 0, 0xffffff);
    }
    EXPECT_GT(opened, 20);
}

}  // namespace
}  // namespace nubo
