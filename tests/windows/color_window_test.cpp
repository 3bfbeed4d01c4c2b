// The colour window, colours picked from the screen, and the gradient nodes, by the hand of a user.
#include "windows/colors/color_window.h"

#include "gui/window.h"
#include "harness/user.h"
#include "paint/spectrum.h"
#include "windows/colors/color_elements.h"
#include "windows/colors/gradient_nodes.h"
#include "windows/colors/screen_pick.h"

namespace nubo {
namespace {

constexpr Color red = 0xff0000, teal = 0x0a9c7b;
constexpr int middle_button = 4;
Color result;

class ColorWindowTest : public EditorTest {
protected:
    ColorWindowTest() {
        mouse_reversed = 0;
        spectrum_fold = 0;
        ink_option(active_ink(), OPTION_BANDING) = 0;
    }
    static int left_of(int slot) { return gui::x[at(slot)]; }
    static int middle_x(int slot) { return gui::x[at(slot)] + gui::w[at(slot)] / 2; }
    static int middle_y(int slot) { return gui::y[at(slot)] + gui::h[at(slot)] / 2; }
};

#define CLICK_LEFT(x, y)                                                                                               \
    co_await user.move_to(x, y);                                                                                       \
    co_await user.press_left(x, y);                                                                                    \
    co_await user.release_left()
#define CLICK_RIGHT(x, y)                                                                                              \
    co_await user.move_to(x, y);                                                                                       \
    co_await user.press_right(x, y);                                                                                   \
    co_await user.release_right()

void edit_brush() { result = color_window(EDIT_BRUSH_COLOR); }
void edit_given() { result = color_window(EDIT_GIVEN_COLOR, teal); }

// Places from the table of the window, whose corner is (0, 147).

TEST_F(ColorWindowTest, SpacesKeepTheColorAndSlidersFollowIt) {
    brush_color = teal;  // VGA has no such colour: 0x0a >> 2 << 2 is 0x08
    play_on(edit_brush, [](User& user) -> Script {
        co_await user.wait(8);
        EXPECT_EQ(menu_id, WINDOW_COLOR);
        CLICK_LEFT(20, 163);  // VGA
        EXPECT_EQ(colorspace, SPACE_VGA);
        EXPECT_EQ(brush_color, teal);
        EXPECT_EQ(gui::slider_value[COLOR_SLIDER_FIRST], 0x0a >> 2);
        EXPECT_EQ(gui::slider_value[COLOR_SLIDER_FIRST + 2], 0x7b >> 2);
        EXPECT_EQ(gui::slider_max[COLOR_SLIDER_FIRST], 64);
        CLICK_LEFT(20, 173);  // HLS
        EXPECT_EQ(brush_color, teal);
        EXPECT_EQ(gui::label[COLOR_NAME_FIRST], LABEL_HLS_HUE);
        CLICK_LEFT(60, 163);  // RGB
        co_await user.move_to(250, 152);
        co_await user.turn_wheel(1);
        EXPECT_EQ(brush_color & 0x00ffffU, teal & 0x00ffffU);
        EXPECT_EQ(brush_color >> 16, 0x0aU + 10U) << "a horizontal slider goes up with the wheel, 10 a notch";
        co_await user.turn_wheel(-1);
        EXPECT_EQ(brush_color, teal) << "back where they started, the sliders give the colour of the start";
        CLICK_RIGHT(160, 60);
        co_await user.wait(4);
    });
    EXPECT_EQ(result, teal);
    EXPECT_EQ(gui::active[COLOR_MAP], 0);
}

TEST_F(ColorWindowTest, EveryFieldGivesItsColor) {
    brush_color = 0x808080;
    colorspace = SPACE_RGB;
    color_slots[3] = red;
    play_on(edit_brush, [](User& user) -> Script {
        co_await user.wait(8);
        CLICK_LEFT(104 + 3 * 11 + 4, 153);  // the fourth colour slot
        EXPECT_EQ(brush_color, red);
        CLICK_LEFT(104 + 27, 173);  // the middle of black to white: 27 / 54 of 255, by hand 127
        EXPECT_EQ(brush_color, 0x7f7f7fU);
        CLICK_LEFT(2 + 4, 213);  // the lightest of the lightness cells, +7: 127 + 70
        EXPECT_EQ(brush_color, 0xc5c5c5U);
        CLICK_LEFT(159 + 1 + 100, 147 + 32 + 1 + 30);  // 100 * 256 / 157 = 163 across, 30 * 256 / 57 = 134 down
        EXPECT_EQ(brush_color, (0xc5U << 16 | 163U << 8 | 134U));
        EXPECT_EQ(*pixels_at(screen_buffer, 260, 210), brush_color) << "the map shows what it gives";
        CLICK_LEFT(20, 20);  // the Frame
        EXPECT_EQ(brush_color, 0U);
    });
}

TEST_F(ColorWindowTest, AColorIsShownAndTypedByItsNumber) {
    brush_color = teal;
    play_on(edit_brush, [](User& user) -> Script {
        const auto shown_digits = [] {
            std::array<char, 16> text{};
            GUI_read_field(COLOR_HEX, text);
            return std::string(text.data());
        };
        co_await user.wait(8);
        EXPECT_EQ(shown_digits(), "0A9C7B");
        CLICK_LEFT(20, 163);                 // VGA, whose sliders have no such colours
        CLICK_LEFT(114 + 20, 147 + 32 + 4);  // its digits
        for (const int code : {KEY_C, KEY_0, KEY_G, KEY_F, KEY_F}) co_await user.tap_key(code);
        EXPECT_EQ(menu_id, WINDOW_COLOR) << "C is a digit here, and not the window's key";
        EXPECT_EQ(shown_digits(), "C0FF") << "in the place of all, G is none";
        for (const int code : {KEY_0, KEY_0, KEY_LEFT, KEY_LEFT, KEY_7, KEY_B}) co_await user.tap_key(code);
        EXPECT_EQ(shown_digits(), "C0FF7B") << "digits take each other's place";
        EXPECT_EQ(brush_color, 0xc0ff7bU);
        co_await user.tap_key(KEY_BACKSPACE);
        EXPECT_EQ(shown_digits(), "C0FF7");
        EXPECT_NE(gui::invalid[COLOR_HEX], 0);
        EXPECT_EQ(brush_color, 0xc0ff7bU) << "five digits are no colour yet";
        co_await user.tap_key(KEY_E);
        EXPECT_EQ(brush_color, 0xc0ff7eU);
        co_await user.tap_key(KEY_END);
        co_await user.tap_key(KEY_5);
        EXPECT_EQ(shown_digits(), "0FF7E5") << "behind the last digit the first makes room";
        co_await user.tap_key(KEY_6);
        EXPECT_EQ(shown_digits(), "FF7E56");
        co_await user.tap_key(KEY_ENTER);
        EXPECT_EQ(key_focus, -1);
        CLICK_LEFT(20, 20);  // the Frame, which is black
        EXPECT_EQ(shown_digits(), "000000") << "it follows what is picked otherwise";
        CLICK_RIGHT(160, 60);
        co_await user.wait(4);
    });
    EXPECT_EQ(brush_color, 0U);
}

TEST_F(ColorWindowTest, FoldInvertAndPickChangeTheSpectrum) {
    ::rectfill(current_frame, 0, 0, 40, 40, static_cast<int>(red));
    spectrum_start = 1;
    spectrum_end = 2;
    color_slots[0] = teal;
    play_on(edit_given, [](User& user) -> Script {
        co_await user.wait(8);
        EXPECT_EQ(gui::color[COLOR_BRUSH], static_cast<int>(teal));
        for (int i = 0; i < 4; ++i) {
            CLICK_LEFT(86, 173);
        }
        EXPECT_EQ(spectrum_fold, 3);
        CLICK_RIGHT(86, 173);
        EXPECT_EQ(spectrum_fold, 2);
        CLICK_LEFT(97, 173);
        EXPECT_EQ(spectrum_start, 2U);
        CLICK_RIGHT(130, 173);  // pick, and change one's mind after the first
        EXPECT_EQ(status_message, MESSAGE_SPECTRUM_START);
        CLICK_LEFT(20, 20);
        EXPECT_EQ(status_message, MESSAGE_SPECTRUM_END);
        CLICK_RIGHT(20, 20);
        EXPECT_EQ(spectrum_start, 2U);
        CLICK_RIGHT(130, 173);
        CLICK_LEFT(20, 20);
        CLICK_LEFT(108, 153);  // a colour slot, which is picked from and not pressed
        EXPECT_EQ(spectrum_start, red);
        EXPECT_EQ(spectrum_end, teal);
        EXPECT_EQ(status_message, status_coordinates);
        CLICK_RIGHT(108, 153);
        EXPECT_EQ(gui::type[COLOR_SLOT_FIRST], ELEMENT_SWATCH_WAIT);
        CLICK_LEFT(20, 20);
        EXPECT_EQ(color_slots[0], red);
        EXPECT_EQ(gui::type[COLOR_SLOT_FIRST], ELEMENT_SWATCH);
        CLICK_RIGHT(160, 60);
    });
    EXPECT_EQ(result, teal) << "picking for a slot and for the Spectrum leaves the colour";
}

TEST_F(ColorWindowTest, VariationsMoveOneOfThreeAndStopAtTheEnds) {
    // 0x3f7fbf: hue 149, lightness 127, saturation 128 on scales of 255, by the formulas on paper.
    EXPECT_EQ(color_to_sliders(SPACE_HLS, variant_color(ELEMENT_VARIANT_LIGHT, 0x000000, 7))[1], 70);
    EXPECT_EQ(variant_color(ELEMENT_VARIANT_LIGHT, 0xf0f0f0, 7), 0xffffffU);
    EXPECT_EQ(variant_color(ELEMENT_VARIANT_LIGHT, 0x102010, -7), 0x000000U);
    EXPECT_EQ(variant_color(ELEMENT_VARIANT_HUE, 0x808080, 7), 0x808080U) << "gray has no hue";
    // Hue 0 can't go below 0: red of half light, at hls (0, 127, 255), is (254, 0, 0).
    EXPECT_EQ(variant_color(ELEMENT_VARIANT_HUE, red, -7), 0xfe0000U);
}

// ---- Gradient nodes ------------------------------------------------------------------------------------------------

class NodesTest : public ColorWindowTest {};

TEST_F(NodesTest, ANodeIsTakenUpMovedAndLetGo) {
    for (int i = 0; i < 4; ++i) ink_options[INK_LGRAD][static_cast<std::size_t>(OPTION_NODE + i)] = 50 + 100 * (i / 2);
    ink_options[INK_LGRAD][OPTION_NODE] = 5000;  // clamped into the Frame
    play_on([] { reposition_gradient(INK_LGRAD); },
            [](User& user) -> Script {
                co_await user.wait(8);
                EXPECT_EQ(ink_options[INK_LGRAD][OPTION_NODE], 319);
                EXPECT_EQ(tool_preview, nodes_preview + INK_LGRAD);
                CLICK_LEFT(150, 159);  // the end at (150, 150): 9 away is not near
                co_await user.move_to(40, 60);
                EXPECT_EQ(ink_options[INK_LGRAD][OPTION_NODE + 2], 150);
                CLICK_LEFT(150, 158);  // 8 away is
                co_await user.move_to(40, 60);
                EXPECT_EQ(ink_options[INK_LGRAD][OPTION_NODE + 2], 40);
                EXPECT_EQ(ink_options[INK_LGRAD][OPTION_NODE + 3], 60);
                pan_x = -100;
                co_await user.move_to(50, 60);
                EXPECT_EQ(ink_options[INK_LGRAD][OPTION_NODE + 2], -50) << "outside the Frame";
                pan_x = 0;
                co_await user.move_to(40, 60);
                CLICK_LEFT(40, 60);
                co_await user.move_to(200, 100);
                EXPECT_EQ(ink_options[INK_LGRAD][OPTION_NODE + 2], 40) << "let go";
                EXPECT_NE(getpixel(overlay, 48, 60), static_cast<int>(transparent_color)) << "the rim of its circle";
                CLICK_RIGHT(200, 100);
            });
    EXPECT_EQ(tool_preview, -1);
    EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
}

TEST_F(NodesTest, NodesOutOfViewAreJumpedTo) {
    new_frame(1000, 1000);
    ink_options[INK_HGRAD][OPTION_NODE] = 600;
    ink_options[INK_HGRAD][OPTION_NODE + 1] = 900;
    play_on([] { reposition_gradient(INK_HGRAD); },
            [](User& user) -> Script {
                co_await user.wait(8);
                EXPECT_EQ(gui::label[high_slot + slot_title], LABEL_NODES_OFFSCREEN);
                const int y_before = pan_y;
                CLICK_LEFT(150, 120);  // JUMP TO START
                EXPECT_EQ(pan_x, 600 - 160);
                EXPECT_EQ(pan_y, y_before);
                EXPECT_EQ(gui::active[high_slot], 0) << "a node is in view again";
                co_await user.move_to(160, 119);  // the middle of quick pan's map
                co_await user.hold_key(KEY_0_PAD);
                co_await user.release_key(KEY_0_PAD);
                EXPECT_EQ(pan_x, 500 - 160);
                ::mouse_b = middle_button;
                co_await user.move_to(190, 119);
                ::mouse_b = 0;
                co_await user.wait(4);
                EXPECT_EQ(pan_x, 600 - 160);
                CLICK_RIGHT(300, 200);
            });
    reposition_gradient(INK_OPAQUE);  // logged, and returns at once
    EXPECT_EQ(tool_preview, -1);
}

}  // namespace
}  // namespace nubo
