// The palette and the sheets that are drawn in it, made from their sources.
#include "font_sheet.h"
#include "gui_sheet.h"
#include "harness/harness.h"

#include "base/color.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace nubo {
namespace {

std::optional<ArtSource> source_of(const char* name) { return read_art(std::string(NUBO_ART "/") + name); }

// ---- Palette
// ---------------------------------------------------------------------------------------------------------

/// 256 greys and blues in 32 rows of 8, which are a palette.
ArtSource plain_palette() {
    ArtSource source{"palette", {{{"colors", "0"}, {}, 1}}};
    for (int i = 0; i < 256; ++i) {
        if (i % 8 == 0) source.blocks[0].rows.emplace_back();
        char word[7];
        std::snprintf(word, sizeof word, "%02x00%02x", i / 64 * 4, i % 64 * 4);
        source.blocks[0].rows.back().push_back(word);
    }
    return source;
}

TEST(Palette, RefusesWhatSheetsCouldNotBeReadWith) {
    ASSERT_TRUE(read_palette(plain_palette()));
    const struct {
        std::size_t row, column;
        const char* color;
    } faults[] = {{0, 0, "040404"},   // black is not first
                  {9, 3, "000004"},   // the color of entry 1 again
                  {31, 7, "fc00fc"},  // what marks transparent pixels
                  {5, 5, "000102"}};  // more than 6 bits a channel
    for (const auto& fault : faults) {
        ArtSource source = plain_palette();
        source.blocks[0].rows[fault.row][fault.column] = fault.color;
        EXPECT_FALSE(read_palette(source)) << fault.color;
    }
    ArtSource one_less = plain_palette();
    one_less.blocks[0].rows.back().pop_back();
    EXPECT_FALSE(read_palette(one_less));
}

TEST(Palette, HasAnOutlineColourAndFallingTones) {
    const auto palette = read_palette(source_of("palette.txt").value());
    ASSERT_TRUE(palette);
    const auto light = [&](std::size_t entry) {
        const Color color = (*palette)[entry];
        return red_of(color) + green_of(color) + blue_of(color);
    };
    EXPECT_LT(light(1), 48);
    for (std::size_t tone = 129; tone <= 135; ++tone) EXPECT_LT(light(tone), light(tone - 1)) << tone;
    EXPECT_EQ(nearest_entry(*palette, (*palette)[200]), 200);
}

// ---- Fonts
// -----------------------------------------------------------------------------------------------------------

struct Glyph {
    int advance;
    std::vector<int> cells;  // row by row; 0 clear
};

/// The glyphs of a sheet, read as the text engine does.
std::map<int, Glyph> glyphs_on(BITMAP* sheet) {
    const int width = getpixel(sheet, 0, 0), height = getpixel(sheet, 1, 0);
    const int per_row = 320 / (width + 1), rows = 200 / (height + 1);
    std::map<int, Glyph> glyphs;
    for (int cell = 1; cell < per_row * rows; ++cell) {
        const int x = cell % per_row * (width + 1), y = cell / per_row * (height + 1);
        if (getpixel(sheet, x, y) == 0) continue;
        Glyph glyph{getpixel(sheet, x + 2, y), {}};
        for (int i = 0; i < width * height; ++i)
            glyph.cells.push_back(getpixel(sheet, x + 1 + i % width, y + 1 + i / width));
        EXPECT_TRUE(glyphs.emplace(getpixel(sheet, x, y), glyph).second) << getpixel(sheet, x, y) << " twice";
    }
    return glyphs;
}

int different_cells(const Glyph& a, const Glyph& b) {
    int count = 0;
    for (std::size_t i = 0; i < a.cells.size(); ++i) count += (a.cells[i] == 0) != (b.cells[i] == 0);
    return count;
}

struct FontCase {
    const char* source;
    int width;  // of a cell and of every advance
};
void PrintTo(const FontCase& font, std::ostream* out) { *out << font.source; }
class Fonts : public testing::TestWithParam<FontCase> {
protected:
    void SetUp() override {
        const auto source = source_of(GetParam().source);
        ASSERT_TRUE(source);
        sheet_ = draw_font_sheet(*source);
        ASSERT_NE(sheet_, nullptr);
        glyphs_ = glyphs_on(sheet_.get());
    }
    OwnedBitmap sheet_;
    std::map<int, Glyph> glyphs_;
};

TEST_P(Fonts, HaveEveryPrintableCharacterAtTheirPace) {
    EXPECT_EQ(getpixel(sheet_.get(), 0, 0), GetParam().width);
    EXPECT_EQ(getpixel(sheet_.get(), 1, 0), 7);
    for (int tone = 0; tone < 8; ++tone) EXPECT_EQ(getpixel(sheet_.get(), tone, 199), 128 + tone);
    ASSERT_EQ(glyphs_.size(), 95u);  // 0x20 to 0x7e
    EXPECT_EQ(glyphs_.begin()->first, ' ');
    EXPECT_EQ(glyphs_.rbegin()->first, '~');
    for (const auto& [code, glyph] : glyphs_) {
        EXPECT_EQ(glyph.advance, GetParam().width) << code;
        EXPECT_EQ(std::ranges::all_of(glyph.cells, [](int cell) { return cell == 0; }), code == ' ') << code;
        for (std::size_t i = 0; i < glyph.cells.size(); ++i) {
            const int cell = glyph.cells[i];
            EXPECT_TRUE(cell == 0 || (cell >= 128 && cell <= 135)) << code;
            const auto width = static_cast<std::size_t>(GetParam().width);
            if (i % width == width - 1) {
                EXPECT_EQ(cell, 0) << code << " touches the next letter";
            }
        }
    }
}

TEST_P(Fonts, HaveCapitalsAndDigitsOfOneHeight) {
    const auto width = static_cast<std::size_t>(GetParam().width);
    for (const char code : std::string("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789")) {
        const Glyph& glyph = glyphs_.at(code);
        for (std::size_t row = 0; row < 7; ++row) {
            const auto from = glyph.cells.begin() + static_cast<std::ptrdiff_t>(row * width);
            const bool has_ink = std::any_of(from, from + GetParam().width, [](int cell) { return cell != 0; });
            EXPECT_EQ(has_ink, row < 5) << code << " row " << row;
        }
    }
}

TEST_P(Fonts, KeepLookalikesApart) {
    for (auto a = glyphs_.begin(); a != glyphs_.end(); ++a)
        for (auto b = std::next(a); b != glyphs_.end(); ++b)
            EXPECT_GT(different_cells(a->second, b->second), 0) << char(a->first) << char(b->first);
    for (const char* pair : {"0O", "0D", "1I", "1l", "Il", "5S", "8B", "2Z", "UV", "MN", "MW", "HM", "rn", "vu"})
        EXPECT_GE(different_cells(glyphs_.at(pair[0]), glyphs_.at(pair[1])), 2) << pair;
}

INSTANTIATE_TEST_SUITE_P(Both, Fonts, testing::Values(FontCase{"font_05.txt", 6}, FontCase{"font_04.txt", 4}),
                         [](const auto& info) { return info.param.width == 6 ? "Wide" : "Narrow"; });

// ---- The interface's sprites
// -----------------------------------------------------------------------------------------

struct SpriteCase {
    const char* name;
    int x, y, width, height;
};
constexpr SpriteCase sprites[] = {
    {"up", 4, 114, 7, 7},
    {"up pressed", 4, 121, 7, 7},
    {"down", 19, 114, 7, 7},
    {"down pressed", 19, 121, 7, 7},
    {"left", 3, 141, 7, 7},
    {"left pressed", 3, 148, 7, 7},
    {"right", 20, 141, 7, 7},
    {"right pressed", 20, 148, 7, 7},
    {"upright knob", 31, 112, 9, 7},
    {"level knob", 32, 125, 5, 9},
    {"right end", 39, 126, 4, 7},
    {"left end", 44, 126, 4, 7},
};

TEST(GuiSheet, HasEachSpriteInItsPlaceOverATemplateOfKnownGreys) {
    const auto palette = read_palette(source_of("palette.txt").value());
    ASSERT_TRUE(palette);
    const OwnedBitmap sheet = draw_gui_sheet(source_of("gui.txt").value(), *palette);
    ASSERT_NE(sheet, nullptr);
    // The greys of shadow, border, ground and so on, by which the program tells the parts.
    const std::set<int> reds{105, 125, 153, 206, 226, 48, 170, 255};
    OwnedBitmap left_over = copy_bitmap(sheet.get());
    std::set<std::vector<int>> shapes;
    for (const SpriteCase& sprite : sprites) {
        std::vector<int> shape;
        for (int y = sprite.y; y < sprite.y + sprite.height; ++y)
            for (int x = sprite.x; x < sprite.x + sprite.width; ++x) {
                const int entry = getpixel(sheet.get(), x + 60, y);
                EXPECT_EQ(getpixel(sheet.get(), x, y) == 0, entry == 0) << sprite.name;
                // 6 bits to 8: 63 becomes 255, truncated.
                const int red = red_of((*palette)[static_cast<std::size_t>(entry)]) / 4 * 255 / 63;
                EXPECT_TRUE(entry == 0 || reds.contains(red)) << sprite.name << " " << red;
                shape.push_back(entry);
            }
        // The whole of the rectangle is used: some pixel on each of its four sides.
        const auto on_side = [&](int from, int step, int count) {
            for (int i = 0; i < count; ++i)
                if (shape[static_cast<std::size_t>(from + i * step)] != 0) return true;
            return false;
        };
        EXPECT_TRUE(on_side(0, 1, sprite.width)) << sprite.name;
        EXPECT_TRUE(on_side((sprite.height - 1) * sprite.width, 1, sprite.width)) << sprite.name;
        EXPECT_TRUE(on_side(0, sprite.width, sprite.height)) << sprite.name;
        EXPECT_TRUE(on_side(sprite.width - 1, sprite.width, sprite.height)) << sprite.name;
        EXPECT_TRUE(shapes.insert(shape).second) << sprite.name << " is drawn like another";
        for (const int dx : {0, 60})
            rectfill(left_over.get(), sprite.x + dx, sprite.y, sprite.x + dx + sprite.width - 1,
                     sprite.y + sprite.height - 1, 0);
    }
    // Nothing lies anywhere else but the ends that the program fills by itself.
    for (int y = 0; y < sheet->h; ++y)
        for (int x = 0; x < sheet->w; ++x)
            EXPECT_TRUE(getpixel(left_over.get(), x, y) == 0 || (x >= 39 && x <= 47 && y >= 142 && y <= 149))
                << x << ", " << y;
}

}  // namespace
}  // namespace nubo
