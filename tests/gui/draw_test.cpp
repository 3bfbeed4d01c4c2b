// What the elements look like.
#include "framework/resources.h"
#include "gui/shapes.h"
#include "gui_kit.h"
#include "state/gui.h"
#include "state/resources.h"

namespace nubo {
namespace {

constexpr Color paper = 0x123456;

class DrawTest : public GuiTest {
protected:
    /// The program's own sheets and fonts, from a copy of its folder.
    static void load_art() {
        const ScratchFolder folder;
        std::filesystem::copy(NUBO_FOLDER "/resource", ".", std::filesystem::copy_options::recursive);
        UA_load_framework_video(Folder("."));
    }
    static bool touched_outside(int left, int top, int right, int bottom) {
        for (int y = 0; y < view_h; ++y)
            for (int x = 0; x < view_w; ++x)
                if ((x < left || x > right || y < top || y > bottom) && screen_pixel(x, y) != paper) return true;
        return false;
    }
    static int touched() {
        int count = 0;
        for (int y = 0; y < view_h; ++y)
            count +=
                static_cast<int>(std::count_if(pixels_at(screen_buffer, 0, y), pixels_at(screen_buffer, 0, y) + view_w,
                                               [](Color pixel) { return pixel != paper; }));
        return count;
    }
};

TEST_F(DrawTest, TheRoundedBoxHasClippedCorners) {
    add(5, ELEMENT_BUTTON, 10, 10, 6, 5);
    gui::label[5] = LABEL_NONE;
    draw_on(paper);
    const std::string picture[] = {"  bb  ", " bffb ", "bffffb", " bffb ", "  bb  "};
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 6; ++x) {
            const char part = picture[y][at(x)];
            const Color expected = part == 'b' ? ui_border : part == 'f' ? ui_background : paper;
            EXPECT_EQ(screen_pixel(10 + x, 10 + y), expected) << x << ", " << y;
        }
    EXPECT_FALSE(touched_outside(10, 10, 15, 14));
}

TEST_F(DrawTest, EveryTypeOfTheToolkitDrawsAndNotBeyondItsElement) {
    load_art();
    static const char* const words = "SOME WORDS";
    for (const ElementType type : {ELEMENT_TEXT, ELEMENT_CAPTION, ELEMENT_SWATCH_WAIT, ELEMENT_BOX, ELEMENT_TITLE,
                                   ELEMENT_BUTTON, ELEMENT_BUTTON_DOWN, ELEMENT_BUTTON_LIT, ELEMENT_BUTTON_LIT_DARK,
                                   ELEMENT_TEXT_FIELD, ELEMENT_LIST, ELEMENT_NUMBER, ELEMENT_PROGRESS, ELEMENT_RADIO_ON,
                                   ELEMENT_RADIO_OFF, ELEMENT_ARROW, ELEMENT_FAILURE_BOX, ELEMENT_WINDOW}) {
        add(5, type, 40, 30, 130, 90);
        gui::label[5] = LABEL_OKAY;
        gui::value_text[5] = words;
        GUI_set_list(5, {.rows = 9, .row_h = 9}, LABEL_HOTKEY_FIRST, 20);  // of more letters than there is room for
        gui::progress[at(5)] = 50;
        if (type == ELEMENT_LIST) GUI_set_vertical_slider(5, 118, 0, 12, 1);
        draw_on(paper);
        EXPECT_GT(touched(), 0) << "type " << type;
        // A window's own border lies one pixel right of and below its size.
        const int extra = type == ELEMENT_WINDOW ? 1 : 0;
        EXPECT_FALSE(touched_outside(40, 30, 169 + extra, 119 + extra)) << "type " << type;
    }
}

TEST_F(DrawTest, CenteredTextStandsInTheMiddleWithoutItsColorCodes) {
    load_art();
    const auto first_column = [] {
        for (int x = 0; x < view_w; ++x)
            for (int y = 0; y < view_h; ++y)
                if (screen_pixel(x, y) != paper) return x;
        return -1;
    };
    static const char* const plain = "HH";
    static const char* const coded = "|c21H|c24H";
    for (const char* const text : {plain, coded}) {
        add(5, ELEMENT_TEXT, 100, 50, 40, 9);
        gui::value_text[5] = text;
        gui::color[5] = TEXT_GREEN;
        draw_on(paper);
        const int column = first_column();  // 100 + 1 + 40 / 2 - 3 * 2 = 115, where the cell begins
        EXPECT_GE(column, 115) << text;
        EXPECT_LE(column, 116) << text;
    }
    EXPECT_EQ(shown_length("|c21AB|c"), 2);
    EXPECT_EQ(shown_length("A|B"), 3);
}

TEST_F(DrawTest, TheKnobShowsItsValueOnTheSideWithRoom) {
    load_art();
    GUI_add_slider(5, 100, 50, 115, 31);
    const auto plate_columns = [] {  // of the plate's dark, a quarter below the shadow: 58 - 58 / 4, nearly
        int first = -1, last = -1;
        for (int x = 0; x < view_w; ++x) {
            const int gray = static_cast<int>(screen_pixel(x, 51) & 0xff);
            if (gray < 42 || gray > 45) continue;
            if (first == -1) first = x;
            last = x;
        }
        return std::pair{first, last};
    };
    draw_on(paper);
    EXPECT_EQ(plate_columns().first, 115);  // the knob of 5 stands on stop 0, at 110
    gui::slider_value[5] = 30;
    draw_on(paper);
    EXPECT_EQ(plate_columns().second, 199);  // and now on the last stop, at 200
}

}  // namespace
}  // namespace nubo
