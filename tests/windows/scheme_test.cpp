// The ColorScheme on the interface's colours and sprites, and the window that edits it.
#include "windows/scheme_window.h"

#include "framework/text.h"
#include "menus_kit.h"
#include "state/resources.h"
#include "windows/colors/color_window.h"
#include <utility>

namespace nubo {
namespace {

constexpr int swatch(SchemeColor color) { return scheme_swatch_first + color; }

class SchemeTest : public MenuTest {
protected:
    static constexpr int sheet_w = 320, sheet_h = 200;
    SchemeTest() { replace_bitmap(gui_sheet, make_bitmap(sheet_w, sheet_h, transparent_color)); }
    static Color sheet_pixel(int x, int y) { return *pixels_at(gui_sheet, x, y); }
    static void put(int x, int y, Color color) { *pixels_at(gui_sheet, x, y) = color; }
};

TEST_F(SchemeTest, InterfaceTakesTheSchemeAndThePreviewTheSwatches) {
    for (int i = 0; i < SCHEME_COUNT; ++i) color_scheme[at(i)] = 0x112233U * static_cast<Color>(i);
    color_scheme[SCHEME_TEXT_LIGHT_ALT] = 0x80c04c;
    apply_scheme(SCHEME_TO_INTERFACE);
    EXPECT_EQ(ui_background, 0U);
    EXPECT_EQ(ui_shadow, 0x224466U);
    EXPECT_EQ(ui_highlight_back, 0x4488ccU);
    EXPECT_EQ(text_colors[41][1], 0x112233 * 5);
    EXPECT_EQ(text_colors[37][0], 0x112233 * 6);
    EXPECT_EQ(text_colors[40][0], 0x112233 * 7);
    EXPECT_EQ(text_colors[38][0], 0x80c04c);
    EXPECT_EQ(text_colors[39][1], 0x112233 * 9);
    EXPECT_EQ(text_colors[43][0], 0x80c04c) << "on a dark ground it is TEXT LIGHT ALT";
    color_scheme[SCHEME_BACKGROUND] = 0x808080;
    apply_scheme(SCHEME_TO_INTERFACE);
    EXPECT_EQ(text_colors[43][0], 0x403013) << "else its red halved, green and blue quartered";
    apply_scheme(SCHEME_TO_SWATCHES);
    gui::color[at(scheme_swatch_first + SCHEME_TEXT_LIGHT_ALT)] = 0x0400ff;
    apply_scheme(SCHEME_FROM_SWATCHES);
    EXPECT_EQ(color_scheme[SCHEME_TEXT_LIGHT_ALT], 0x0400ffU);
    EXPECT_EQ(color_scheme[SCHEME_TEXT_SELECTED], 0x112233U * 9);
    EXPECT_EQ(text_colors[48][1], 0x0400ff);
    EXPECT_EQ(text_colors[53][0], 0x02003f);
    EXPECT_EQ(text_colors[51][0], 0x112233 * 5);
    EXPECT_EQ(text_colors[38][0], 0x80c04c) << "the interface keeps its colours until it is told";
}

// Blends by hand: a + (b - a) * n / 255, truncated.
TEST_F(SchemeTest, EachTemplateGivesItsSpriteItsColor) {
    struct Case {
        int red;
        Color color;
    };
    constexpr Color ground = 0x6432c8, border = 0x0a0a0a, shadow = 0x640000, ground2 = 0x000064;
    constexpr Case cases[]{
        {105, shadow},   {125, border}, {153, ground}, {154, ground},  // as six bits of 153 come out of a palette
        {206, 0x914b4b},                                               // 100 + 155 * 75 / 255 = 145.6, 75
        {226, 0x525252},                                               // 10 + 245 * 75 / 255 = 82.06
        {48, 0x361d68},   // 100 - 90 * 128 / 255 = 54.8; 50 - 40 * .50196 = 29.9; 200 - 190 * .50196 = 104.6
        {170, 0x715f94},  // 54 + 201 * .29412 = 113.1; 29 + 226 * .29412 = 95.5; 104 + 151 * .29412 = 148.4
        {255, 0x3c3c88},  // 60; 100 + 155 * 60 / 255 = 136.5
        {12, 0x010203},   // no part
    };
    int x = 60;
    for (const Case& each : cases) {
        put(x, 111, pack_color(each.red, 0, 0));
        put(x - 60, 111, 0x010203);
        ++x;
    }
    put(0, 163, 0x010203);  // its template is nothing
    put(109, 163, pack_color(105, 0, 0));
    put(60, 110, pack_color(105, 0, 0));
    put(60, 164, pack_color(105, 0, 0));
    put(110, 163, pack_color(105, 0, 0));
    recolor_gui_sheet(ground, border, shadow, ground2);
    x = 0;
    for (const Case& each : cases) EXPECT_EQ(sheet_pixel(x++, 111), each.color) << "red " << each.red;
    EXPECT_EQ(sheet_pixel(0, 163), 0x010203U);
    EXPECT_EQ(sheet_pixel(49, 163), shadow);
    for (const auto& [out_x, out_y] : {std::pair{0, 110}, {0, 164}, {50, 163}})
        EXPECT_EQ(sheet_pixel(out_x, out_y), transparent_color) << "beyond the sprites";
}

// ---- The window -----------------------------------------------------------------------------------------------------

TEST_F(SchemeTest, SwatchesChangeThePreviewAndOkayTheInterface) {
    color_scheme[SCHEME_BORDER] = 0x00ff00;  // another than the default, as after loading
    put(60, 111, pack_color(105, 0, 0));
    put(0, 111, 0x010203);
    play_on(menu_loop, [](User& user) -> Script {
        co_await click(user, DRAWING_USER);
        co_await click(user, slot_of(LABEL_SCHEME));
        EXPECT_EQ(menu_id, WINDOW_COLOR_SCHEME);
        EXPECT_EQ(gui::color[swatch(SCHEME_BORDER)], 0x00ff00);
        co_await click(user, swatch(SCHEME_BORDER), right_button);
        EXPECT_EQ(color_scheme[SCHEME_BORDER], 0x646464U) << "the default";
        co_await click(user, swatch(SCHEME_SHADOW));
        EXPECT_EQ(menu_id, WINDOW_COLOR);
        EXPECT_EQ(sheet_pixel(0, 111), 0x3a3a3aU);
        color_slots[3] = 0x80c0e0;
        co_await click(user, COLOR_SLOT_FIRST + 3);
        co_await right_click_outside(user);
        EXPECT_EQ(menu_id, WINDOW_COLOR_SCHEME);
        EXPECT_EQ(gui::color[swatch(SCHEME_SHADOW)], 0x80c0e0);
        EXPECT_EQ(gui::color[swatch(SCHEME_BORDER)], 0x646464) << "kept while colours are chosen";
        EXPECT_EQ(sheet_pixel(0, 111), 0x80c0e0U) << "sprites show the edited scheme";
        EXPECT_EQ(*pixels_at(screen_buffer, gui::x[SCHEME_PREVIEW_TITLE] + 2, gui::y[SCHEME_PREVIEW_TITLE] + 4),
                  0x80c0e0U);
        EXPECT_EQ(ui_shadow, 0x3a3a3aU) << "not before OKAY";
        co_await click(user, SCHEME_OKAY);
        EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
    });
    EXPECT_EQ(ui_shadow, 0x80c0e0U);
    EXPECT_EQ(color_scheme[SCHEME_SHADOW], 0x80c0e0U);
}

TEST_F(SchemeTest, CancelAndTheProgramsEndKeepTheOldColors) {
    play_on(menu_loop, [](User& user) -> Script {
        color_scheme[SCHEME_TEXT_LIGHT] = 0x123456;
        for (int turn = 0; turn < 2; ++turn) {
            co_await click(user, DRAWING_USER);
            co_await click(user, slot_of(LABEL_SCHEME));
            co_await right_click_outside(user);
            EXPECT_EQ(gui::hidden[slot_window], 1);
            co_await right_click_outside(user);
            EXPECT_EQ(gui::hidden[slot_window], 0);
            co_await click(user, swatch(SCHEME_TEXT_LIGHT), right_button);
            EXPECT_EQ(color_scheme[SCHEME_TEXT_LIGHT], 0xdadadaU);
            EXPECT_EQ(text_colors[TEXT_PREVIEW_LIGHT][0], 0xdadada);
            if (turn == 0) {
                co_await click(user, SCHEME_CANCEL);
                EXPECT_EQ(color_scheme[SCHEME_TEXT_LIGHT], 0x123456U);
            } else {
                exit_requested = 1;
            }
        }
    });
    EXPECT_EQ(color_scheme[SCHEME_TEXT_LIGHT], 0x123456U);
}

}  // namespace
}  // namespace nubo
