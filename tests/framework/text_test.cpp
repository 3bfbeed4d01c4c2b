#include "framework/text.h"

#include "font_sheet.h"
#include "harness/harness.h"
#include "state/run.h"

namespace nubo {
namespace {

constexpr Color paper = 0x202020;

/// Slot 5 holds 'A', two rows of tones 0 to 4 and 1, 6 wide; a blank of 4; 'd', one dot of tone 2 that hangs 2 lower;
/// and the characters of colour codes as dots.
class TextTest : public testing::Test {
protected:
    TextTest() : target_(make_bitmap(view_w, view_h, paper)) {
        UA_log_open();
        set_test_palette();
        UA_init_text_colors();
        load_font("01234");
        UA_set_font(FONT_WIDE, TEXT_OWN_COLORS, 0, 0, 0, 0, 0, 0);
    }
    ~TextTest() override { UA_log_close(); }
    static void load_font(std::string_view first_row) {
        FontSheet sheet;
        sheet.add('A', 0, 6, {first_row, "1...."});
        sheet.add(' ', 0, 4, {});
        sheet.add('d', 2, 7, {"..2.."});
        for (const char c : std::string_view("|c0123456789")) sheet.add(c, 0, 3, {"0"});
        BITMAP* const bitmap = sheet.bitmap();
        ASSERT_TRUE(build_font(FONT_WIDE, {&bitmap, 1}));
    }
    Color at(int x, int y) const { return *pixels_at(target_.get(), x, y); }
    int draw(int x, int y, std::string_view text) { return UA_text(target_.get(), x, y, text); }
    int painted() const {
        int count = 0;
        for (int y = 0; y < view_h; ++y)
            for (int x = 0; x < view_w; ++x) count += at(x, y) != paper ? 1 : 0;
        return count;
    }

    ScratchFolder folder_;
    OwnedBitmap target_;
};

TEST_F(TextTest, ASheetGivesItsSizesItsCharactersAndItsTones) {
    const FontSlot& font = font_slots[FONT_WIDE];
    EXPECT_EQ(font.cell_w, 5);
    EXPECT_EQ(font.cell_h, 7);
    EXPECT_EQ(font.shadow_dx, 2);
    EXPECT_EQ(font.shadow_dy, 1);
    EXPECT_EQ(font.tones[7], 135);
    EXPECT_EQ(font.glyph_x['A'], 5);  // cell 1
    EXPECT_EQ(font.glyph_dy['d'], 2);
    EXPECT_EQ(font.advance[' '], 4);
    EXPECT_EQ(font.advance['Z'], 8);
    BITMAP* const too_small = make_bitmap(100, 100).release();
    EXPECT_FALSE(build_font(FONT_NARROW, {&too_small, 1}) || build_font(16, {}));
    destroy_bitmap(too_small);
}

TEST_F(TextTest, DrawsAGlyphAtItsPlaceInItsColours) {
    EXPECT_EQ(draw(10, 20, "Ad"), 13);
    for (int i = 0; i < 5; ++i) EXPECT_EQ(at(10 + i, 20), tone_color(i)) << i;
    EXPECT_EQ(at(10, 21), tone_color(1));
    EXPECT_EQ(at(11, 21), paper);
    EXPECT_EQ(at(16 + 2, 22), tone_color(2));  // 'd' hangs 2 lower
    EXPECT_EQ(painted(), 7);
    draw(100, 100, "Z");  // undefined: the sheet's first cell, a black box
    EXPECT_EQ(at(100, 100), 0u);
    EXPECT_EQ(painted(), 7 + 5 * 7);
}

// Names of files and what users type: no colour codes, a cell a character, boxes for what the font lacks.
TEST_F(TextTest, AsItIsEachCharacterHasItsCell) {
    set_font(FONT_WIDE, TEXT_LIGHT);
    text_colors[TEXT_LIGHT][0] = 0x123456;
    UA_text_as_is(target_.get(), 10, 20,
                  "d|c01\xc3\xa9\xe9"
                  "d",
                  7);
    const auto is_box = [&](int x) {
        return at(x, 20) == 0x123456u && at(x + 5, 24) == 0x123456u && at(x + 2, 22) == paper && at(x + 6, 20) == paper;
    };
    EXPECT_TRUE(is_box(10 + 5 * 7) && is_box(10 + 6 * 7));
    for (const int cell : {0, 7}) EXPECT_NE(at(10 + cell * 7 + 2, 22), paper) << "a d, hanging by 2";
    for (const int cell : {1, 2, 3, 4}) EXPECT_NE(at(10 + cell * 7, 20), paper);
    font_slots[FONT_WIDE].glyph_x['?'] = font_slots[FONT_WIDE].glyph_x['A'];
    UA_text_as_is(target_.get(), 10, 40, "\xc3\xa9", 7);
    EXPECT_NE(at(10 + 1, 40), paper);
    EXPECT_EQ(at(10 + 5, 44), paper) << "no box where there is a question mark";
}

TEST_F(TextTest, MeasuresWhatItDraws) {
    // By hand: A 6, blank 4, d 7, undefined 8, characters of a broken code 3 each, codes nothing.
    const std::pair<std::string_view, int> cases[] = {
        {"", 0},  {"A d", 17},  {"|c24A|c32d", 13}, {"A|c21", 6}, {"|c2", 9},     {"|c", 6},
        {"|", 3}, {"|c2A", 15}, {"||c24A", 9},      {"|cA1", 15}, {"|c99AZ", 14}, {"|c24|c25|c26", 0}};
    for (const auto& [text, width] : cases)
        for (const int x : {50, 318, -8, 5000, -9000}) {
            EXPECT_EQ(draw(x, 50, text), width) << text << " at " << x;
            EXPECT_EQ(draw(50, -300, text), width) << text;
        }
    EXPECT_EQ(text_width("A d"), 17);
}

TEST_F(TextTest, AColourCodeRecoloursTheTonesThatItsRowNamesAndStays) {
    draw(0, 0, "A|c21A");
    EXPECT_EQ(at(0, 0), tone_color(0));
    EXPECT_EQ(at(6, 0), 0xbebebau);  // row 21
    EXPECT_EQ(at(7, 0), 0x9da19du);
    EXPECT_EQ(at(8, 0), tone_color(2));
    EXPECT_EQ(text_attributes.color_row, 21);
    draw(20, 0, "A|c38");
    EXPECT_EQ(at(20, 0), 0xbebebau);
    EXPECT_EQ(text_attributes.color_row, 38);
    draw(40, 0, "|c43A|c00A|c99A");
    EXPECT_EQ(at(40, 0), 0x7d0303u);  // half of fa, a quarter of 0c
    EXPECT_EQ(at(46, 0), tone_color(0));
    EXPECT_EQ(at(52, 0), tone_color(0));
}

TEST_F(TextTest, ChangesOfRowPaletteAndFontShowAtOnce) {
    set_font(FONT_WIDE, TEXT_SELECTED);
    draw(0, 0, "A");
    EXPECT_EQ(at(0, 0), 0x005cbcu);
    set_text_color(TEXT_SELECTED, 0x123456);
    draw(0, 0, "A");
    EXPECT_EQ(at(1, 0), 0x123456u);
    load_font("11111");
    set_text_color(TEXT_SELECTED, 0xaaaaaa, 0xbbbbbb);
    draw(0, 0, "A");
    EXPECT_EQ(at(0, 0), 0xbbbbbbu);
    RGB white{63, 63, 63, 0};
    set_color(first_tone + 1, &white);  // tone 1 now names another colour: the sheet's stays what it was
    const Color drawn = *pixels_at(font_slots[FONT_WIDE].sheet, 5, 0);
    draw(0, 0, "A");
    EXPECT_EQ(at(0, 0), drawn);
}

TEST_F(TextTest, SetFontKeepsWhatIsMinusOneAndRefusesABadSlot) {
    UA_set_font(5, 24, 1, 7, 0, 3, 1, 90);
    UA_set_font(4, -1, -1, -1, -1, -1, -1, -1);
    EXPECT_EQ(text_attributes.font_slot, 4);
    EXPECT_EQ(text_attributes.color_row, 24);
    EXPECT_EQ(text_attributes.shadow_value, 7);
    EXPECT_EQ(text_attributes.blend_amount, 90);
    EXPECT_EQ(draw(0, 0, "A"), 0);  // slot 4 holds no font
    UA_set_font(16, 0, 0, 0, 0, 0, 0, 0);
    EXPECT_EQ(text_attributes.outline, 3);
    text_attributes.font_slot = 16;
    EXPECT_EQ(draw(0, 0, "A"), 0);
    EXPECT_EQ(log_text(), "[ ERROR ] : Tried to set font attribute for invalid slot. Slot = 16\n"
                          "[ ERROR ] : Tried to write text using an invalid slot. Slot = 16\n");
}

TEST_F(TextTest, ShadowsLieAtTheFontsOffset) {
    // The shadow of the 'd' at (2, 2) of its cell lies 2 right and 1 down. Tone 2, entry 130, is (2, 0, 2) in eighths
    // of the palette's steps: 2 * 9 = 18 of 63 red, 2 * 20 = 40 of 63 blue, which are 73 and 162 of 255.
    ASSERT_EQ(tone_color(2), 0x4900a2u);
    UA_set_font(5, 0, SHADOW_SOLID, 9, 0, 0, 0, 0);
    draw(0, 0, "d");
    EXPECT_EQ(at(2, 2), tone_color(2));
    EXPECT_EQ(at(4, 3), UA_palette_color(9));
    UA_set_font(5, 0, SHADOW_MIXED, 128, 0, 0, 0, 0);
    draw(20, 0, "d");
    EXPECT_EQ(at(24, 3), 0x240051u);  // half of it with black: 73 / 2 and 162 / 2
    UA_set_font(5, 0, SHADOW_SOFT, 1, 0, 0, 0, 0);
    draw(40, 0, "d");
    // 73 * 10 / 256 = 2 and 162 * 10 / 256 = 6; then by 30 with entry 1, 9 of 63 red, which is 36: 2 * 30 / 256 +
    // 36 * 226 / 256 = 0 + 31, and 6 * 30 / 256 = 0.
    EXPECT_EQ(at(44, 3), 0x1f0000u);
    EXPECT_EQ(painted(), 6);
    font_slots[FONT_WIDE].shadow_style = SHADOW_SOLID;
    UA_set_font(5, 0, 0, 9, 0, 0, 0, 0);  // 0 takes the slot's own
    draw(60, 0, "d");
    EXPECT_EQ(at(64, 3), UA_palette_color(9));
}

TEST_F(TextTest, BlendsAreTranslucentAboveZeroAndWashedBelow) {
    UA_set_font(5, 0, 0, 0, 0, 0, 1, 128);
    draw(0, 0, "d");
    // trans_blit at 128 takes 129 of 256 of the source: red 32 * 127 / 256 + 73 * 129 / 256 = 15.9 + 36.8.
    EXPECT_NEAR(red_of(at(2, 2)), 52, 1);
    EXPECT_NEAR(green_of(at(2, 2)), 15, 1);
    UA_set_font(5, 0, 0, 0, 0, 0, -2, 64);
    draw(20, 0, "d");
    EXPECT_EQ(at(22, 2), pack_color(18 + 190, 190, 40 + 190));  // a quarter of it, three quarters of 254: 190
    EXPECT_EQ(painted(), 2);
}

TEST_F(TextTest, AnOutlineRunsRoundTheGlyphAndIsCutAtTheTargetsEdge) {
    UA_set_font(5, 0, 0, 0, 0, 9, 0, 0);
    draw(10, 10, "d");
    const Color outline = UA_palette_color(9);
    EXPECT_EQ(at(12, 12), tone_color(2));
    for (const auto& [x, y] : {std::pair{12, 11}, {12, 13}, {11, 12}, {13, 12}}) EXPECT_EQ(at(x, y), outline);
    EXPECT_EQ(painted(), 5);
    draw(-2, -2, "d");  // the dot at (0, 0): only its right and lower neighbour fit
    EXPECT_EQ(at(1, 0), outline);
    EXPECT_EQ(painted(), 5 + 3);
}

TEST_F(TextTest, PlainAndDecoratedTextSetTheSamePixels) {
    const OwnedBitmap other = make_bitmap(view_w, view_h, paper);
    for (BITMAP* const bitmap : {target_.get(), other.get()}) {
        // A shadow of mix 256 below the glyph repeats the glyph; laid exactly under it, nothing differs.
        font_slots[FONT_WIDE].shadow_dx = font_slots[FONT_WIDE].shadow_dy = 0;
        UA_set_font(5, 21, bitmap == other.get() ? SHADOW_MIXED : 0, 256, 0, 0, 0, 0);
        set_clip_rect(bitmap, 3, 1, 300, 200);
        for (const int x : {-3, 0, 100, 297}) UA_text(bitmap, x, x / 2, "AdA Z|c24A");
    }
    for (int y = 0; y < view_h; ++y)
        EXPECT_EQ(std::memcmp(pixels_at(target_.get(), 0, y), pixels_at(other.get(), 0, y), view_w * sizeof(Color)), 0)
            << y;
    EXPECT_GT(painted(), 0);
}

TEST_F(TextTest, TheWobbleFollowsTheClockAndTheSlantTheRow) {
    UA_set_font_sine(5, 0, 10);
    UA_phase_counter = 49;  // 49 + 15 is a quarter of a circle for the second character
    draw(0, 20, "|d");
    EXPECT_EQ(at(3 + 2, 20 + 2 + 10), tone_color(2));
    UA_set_font_sine(5, 9, 10);  // off again
    UA_set_font_sine(16, 0, 1);
    UA_set_font_sine(0, 10, 1);
    EXPECT_EQ(log_text(), "[ ERROR ] : Call to set font attributes out of range! Slot = 16\n"
                          "[ ERROR ] : Call to set font sine delay out of range! Delay = 10\n");
    UA_set_font_slant(5, 0.5F);
    draw(100, 100, "A");  // rows 6 and 5 from the bottom: 3 and 2 to the right
    EXPECT_EQ(at(103, 100), tone_color(0));
    EXPECT_EQ(at(107, 100), tone_color(4));
    EXPECT_EQ(at(102, 101), tone_color(1));
    UA_set_font_slant(5, 0);
    draw(200, 100, "A");
    EXPECT_EQ(at(200, 100), tone_color(0));
}

}  // namespace
}  // namespace nubo
