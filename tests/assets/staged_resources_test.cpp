// The staged sheets, read back by the program's own loaders: scrambling, palette and depth all lie between.
#include "base/utf8.h"
#include "framework/outline_font.h"
#include "framework/resources.h"
#include "framework/text.h"
#include "gui_sheet.h"
#include "harness/harness.h"
#include "state/resources.h"

#include <memory>

namespace nubo {
namespace {

/// Loads the sheets from a copy of the folder, for the loader unpacks a sheet beside its file.
class StagedResources : public testing::Test {
protected:
    void SetUp() override {
        std::filesystem::copy(NUBO_FOLDER "/resource", ".", std::filesystem::copy_options::recursive);
        UA_load_framework_video(Folder("."));
    }
    ScratchFolder folder_;
};

// ---- Fonts ---------------------------------------------------------------------------------------------------------

struct FontCase {
    Font slot;
    int pace;  // the width of a cell and of every advance
};
void PrintTo(const FontCase& font, std::ostream* out) { *out << "font " << font.slot; }

constexpr int glyph_height = 7, capital_height = 5;

class StagedFonts : public StagedResources, public testing::WithParamInterface<FontCase> {
protected:
    const FontSlot& font() const { return font_slots[static_cast<std::size_t>(GetParam().slot)]; }

    bool has_ink(int code, int x, int y) const {
        return *pixels_at(font().sheet, font().glyph_x[static_cast<std::size_t>(code)] + x, y) != transparent_color;
    }
    bool has_ink_in_row(int code, int y) const {
        for (int x = 0; x < GetParam().pace; ++x)
            if (has_ink(code, x, y)) return true;
        return false;
    }
    int different_pixels(int a, int b) const {
        int count = 0;
        for (int i = 0; i < GetParam().pace * glyph_height; ++i) {
            const int x = i % GetParam().pace, y = i / GetParam().pace;
            count += has_ink(a, x, y) != has_ink(b, x, y);
        }
        return count;
    }
};

TEST_P(StagedFonts, HaveEveryPrintableCharacterAtItsPace) {
    ASSERT_EQ(font().cell_w, GetParam().pace);
    ASSERT_EQ(font().cell_h, glyph_height);
    for (int code = ' '; code <= '~'; ++code) {
        EXPECT_NE(font().glyph_x[static_cast<std::size_t>(code)], 0) << code;
        EXPECT_EQ(font().glyph_dy[static_cast<std::size_t>(code)], 0) << code;
        EXPECT_EQ(font().advance[static_cast<std::size_t>(code)], GetParam().pace) << code;
        for (int y = 0; y < glyph_height; ++y)
            EXPECT_FALSE(has_ink(code, GetParam().pace - 1, y)) << char(code) << " touches the next letter";
    }
}

TEST_P(StagedFonts, HaveCapitalsAndDigitsOfOneHeight) {
    for (const char code : std::string("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"))
        for (int y = 0; y < glyph_height; ++y) EXPECT_EQ(has_ink_in_row(code, y), y < capital_height) << code << y;
}

TEST_P(StagedFonts, KeepLookalikesApart) {
    for (int a = ' '; a <= '~'; ++a)
        for (int b = a + 1; b <= '~'; ++b) EXPECT_GT(different_pixels(a, b), 0) << char(a) << char(b);
    for (const char* pair : {"0O", "0D", "1I", "1l", "Il", "5S", "8B", "2Z", "UV", "MN", "MW", "HM", "rn", "vu"})
        EXPECT_GE(different_pixels(pair[0], pair[1]), 2) << pair;
}

INSTANTIATE_TEST_SUITE_P(Both, StagedFonts, testing::Values(FontCase{FONT_WIDE, 6}, FontCase{FONT_NARROW, 4}),
                         [](const auto& info) { return info.param.slot == FONT_WIDE ? "Wide" : "Narrow"; });

TEST_F(StagedResources, HoldLettersThatTakeTheColoursOfTheirRow) {
    const OwnedBitmap target = make_bitmap(16, 8);
    set_font(FONT_WIDE, TEXT_YELLOW);
    UA_text(target.get(), 0, 0, "|");
    // A bar in the middle of five columns, its upper three rows in the row's first colour, two more in its second.
    const Color expected[] = {0xfac20c, 0xfac20c, 0xfac20c, 0xce9d00, 0xce9d00, 0, 0};
    for (int y = 0; y < glyph_height; ++y)
        for (int x = 0; x < 6; ++x) EXPECT_EQ(*pixels_at(target.get(), x, y), x == 2 ? expected[y] : 0) << x << y;
}

// ---- The interface's sprites ---------------------------------------------------------------------------------------

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

TEST_F(StagedResources, HoldEachSpriteInItsPlaceOverATemplateOfKnownParts) {
    std::set<std::vector<Color>> shapes;
    for (const SpriteCase& sprite : sprites) {
        std::vector<Color> shape;
        int left = sprite.width, right = -1, top = sprite.height, bottom = -1;
        for (int i = 0; i < sprite.width * sprite.height; ++i) {
            const int x = i % sprite.width, y = i / sprite.width;
            Color* const pixel = pixels_at(gui_sheet, sprite.x + x, sprite.y + y);
            Color* const pattern = pixel + template_distance;
            shape.push_back(*pattern);
            EXPECT_EQ(*pixel == transparent_color, *pattern == transparent_color) << sprite.name;
            if (*pattern != transparent_color) {
                EXPECT_TRUE(part_of_template(*pattern)) << sprite.name;
                left = std::min(left, x), right = std::max(right, x);
                top = std::min(top, y), bottom = std::max(bottom, y);
            }
            *pixel = *pattern = transparent_color;
        }
        EXPECT_TRUE(left == 0 && right == sprite.width - 1 && top == 0 && bottom == sprite.height - 1) << sprite.name;
        EXPECT_TRUE(shapes.insert(shape).second) << sprite.name << " is drawn like another";
    }
    // With these taken off, nothing is left but the ends that the program fills by itself.
    for (int y = 0; y < gui_sheet->h; ++y)
        for (int x = 0; x < gui_sheet->w; ++x)
            EXPECT_TRUE(*pixels_at(gui_sheet, x, y) == transparent_color ||
                        (x >= 39 && x <= 47 && y >= 142 && y <= 149))
                << x << ", " << y;
}

// ---- Fonts for TEXT ------------------------------------------------------------------------------------------------

TEST(StagedTextFonts, HaveTheLettersOfLatin1EachInAFormOfItsOwn) {
    ASSERT_EQ(font_system_init(), 0);
    for (const char* name : {"NuboWide.bdf", "NuboNarrow.bdf"}) {
        const std::unique_ptr<OutlineFont, OutlineFontDestroyer> font(
            font_load(std::string(NUBO_FOLDER "/fonts/") + name));
        ASSERT_NE(font, nullptr);
        font_set_convert(font.get(), CONVERT_WIDE);
        const auto form_of = [&](char32_t code) {
            const OwnedBitmap coverage(create_bitmap_ex(8, 20, 30));
            clear_bitmap(coverage.get());
            font_cover(coverage.get(), font.get(), utf8_of(code), 4, 8, EDGES_ROUGH);
            return std::vector<std::uint8_t>(coverage->line[0], coverage->line[0] + 20 * 30);
        };
        std::set<std::vector<std::uint8_t>> forms{form_of(U' ')};
        for (char32_t code = 0x21; code <= 0xff; ++code) {
            if ((code > 0x7e && code <= 0xa0) || code == 0xad) continue;  // controls, a blank, a second hyphen
            EXPECT_TRUE(forms.insert(form_of(code)).second) << name << " " << static_cast<int>(code);
        }
        const auto dots_added = [&](char32_t to, char32_t by) {
            const auto plain = form_of(to), marked = form_of(by);
            int dots = 0;
            for (std::size_t i = 0; i < plain.size(); ++i) dots += plain[i] != marked[i];
            return dots;
        };
        EXPECT_EQ(dots_added(U'A', U'\u00c4'), 2) << "two dots, over the line";
        EXPECT_EQ(dots_added(U'e', U'\u00e9'), 2);
        EXPECT_EQ(font_text_height(font.get()), glyph_height) << "the line is as high as without accents";
    }
    font_system_exit();
}

}  // namespace
}  // namespace nubo
