// The status bar, the measured distance and the two hold commands.
#include "editor/status_bar.h"
#include "framework/resources.h"
#include "gui/elements.h"
#include "harness/user.h"
#include "paint/shape_in_hand.h"
#include "state/shape.h"

namespace nubo {
namespace {

constexpr Color white = 0xffffff, bar_on_white = 0x5e5e5e;  // black at 160: 255 * (256 - 161) >> 8 = 94

class AidsTest : public EditorTest {
protected:
    static Color screen_pixel(int x, int y) { return *pixels_at(screen_buffer, x, y); }
    /// The first row of the bar on a white screen, -1 for none.
    static int bar_row_with(int mouse, int window_y) {
        GUI_clear_element(slot_window);
        if (window_y >= 0) GUI_add_window(0, window_y, 319, 32, 1);
        shown.mouse_y = mouse;
        clear_to_color(screen_buffer, static_cast<int>(white));
        draw_status_bar();
        for (int y = 0; y < view_h; ++y)
            if (screen_pixel(view_w - 1, y) == bar_on_white) return y;
        return -1;
    }
};

TEST_F(AidsTest, TheStatusBarStandsWhereItIsNotInTheWay) {
    struct Case {
        int mouse, window_y, row;
    };
    for (const Case& at : {Case{100, -1, 0}, Case{3, -1, 233}, Case{100, 207, 0}, Case{3, 207, 200}, Case{3, 100, 233},
                           Case{100, 0, 233}, Case{3, 0, 233}, Case{235, 0, 33}})
        EXPECT_EQ(bar_row_with(at.mouse, at.window_y), at.row) << at.mouse << ", " << at.window_y;
    opt_status_bar = 0;
    EXPECT_EQ(bar_row_with(100, -1), -1);
    // Asked for, or a loss that has to be told, whatever the option says.
    for (const int message : {status_bar_only, int{MESSAGE_SAVE_FAILED}, int{MESSAGE_FRAME_OUT_OF_REACH}}) {
        shown.status_message = message;
        EXPECT_EQ(bar_row_with(100, -1), 0) << message;
    }
}

TEST_F(AidsTest, TheStatusBarForgetsTheShapeWithItsTool) {
    const auto picture = [] {
        clear_to_color(screen_buffer, static_cast<int>(white));
        draw_status_bar();
        const Color* const pixels = pixels_at(screen_buffer, 0, 0);
        return std::vector<Color>(pixels, pixels + view_w * view_h);
    };
    UA_load_framework_video(Folder(NUBO_FOLDER "/resource"));
    tool_preview_on = 1;  // a Cel floats
    const std::vector<Color> mouse = picture();
    std::strcpy(placing_text.data(), "SIZE > 9 X 9");
    EXPECT_TRUE(picture() == mouse);
    tool_preview = TOOL_BOX;
    const std::vector<Color> nine = picture();
    EXPECT_FALSE(nine == mouse);
    // What is long keeps out of the column of the pixel.
    const auto keeps_out = [&](const std::string& text) {
        std::strcpy(placing_text.data(), text.c_str());
        const std::vector<Color> told = picture();
        const auto is_same = [&](std::size_t i) { return i % view_w < 119 || told[i] == nine[i]; };
        for (std::size_t i = 0; i < told.size(); ++i)
            if (!is_same(i)) return false;
        return true;
    };
    tell_size(70'000, 65'535);
    EXPECT_STREQ(placing_text.data(), "SIZE > |c24> 65535 X 65535");
    EXPECT_TRUE(keeps_out(placing_text.data()));
    EXPECT_TRUE(keeps_out("AXES > |c24500 X 500, 359"));
}

TEST_F(AidsTest, AMeasureLastsFromPressToPress) {
    play([](User& user) -> Script {
        co_await user.move_to(50, 60);
        co_await user.hold_key(KEY_F12);
        co_await user.release_key(KEY_F12);
        EXPECT_EQ(measure_x, 50);
        EXPECT_EQ(measure_y, 60);
        co_await user.move_to(90, 30);
        EXPECT_NE(*pixels_at(overlay, 50, 20), transparent_color);  // the lines run from the anchor
        EXPECT_NE(*pixels_at(overlay, 200, 60), transparent_color);
        EXPECT_EQ(measure_x, 50);
        co_await user.hold_key(KEY_F12);
        co_await user.release_key(KEY_F12);
        EXPECT_EQ(measure_x, -1);
        co_await user.hold_key(KEY_F12);
        co_await user.release_key(KEY_F12);
        for (const auto& [w, h, holds_anchor] : {std::tuple{91, 31, true}, {91, 30, false}, {90, 31, false}}) {
            new_frame(w, h);
            co_await user.wait(2);
            int drawn = 0;
            for (int i = 0; i < view_w * view_h; ++i)
                drawn += *pixels_at(overlay, i % view_w, i / view_w) != transparent_color ? 1 : 0;
            EXPECT_EQ(drawn > 0, holds_anchor) << w << ", " << h;
        }
    });
}

TEST_F(AidsTest, QuickPanGoesToThePlaceUnderTheMouse) {
    new_frame(600, 436);  // twice the map
    play([](User& user) -> Script {
        co_await user.move_to(160, 119);  // the middle of the map, which begins at (10, 10)
        co_await user.hold_key(KEY_0_PAD);
        co_await user.release_key(KEY_0_PAD);
        EXPECT_EQ(pan_x, 2 * 150 - 160);
        EXPECT_EQ(pan_y, 2 * 109 - 120);
    });
}

TEST_F(AidsTest, QuickPanEndsWithTheMapsElement) {
    new_frame(1200, 2180);  // a row of the map is ten of the Frame
    play([](User& user) -> Script {
        for (const auto& [x, y, pans] :
             {std::tuple{309, 229, true}, {309, 230, false}, {310, 229, false}, {9, 100, false}}) {
            pan_x = pan_y = 0;
            co_await user.move_to(x, y);
            co_await user.hold_key(KEY_0_PAD);
            co_await user.release_key(KEY_0_PAD);
            EXPECT_EQ(pan_x, pans ? 4 * 299 - 160 : 0) << x << ", " << y;
            EXPECT_EQ(pan_y > 1900, pans) << x << ", " << y;
        }
    });
}

TEST_F(AidsTest, QuickPanOfASmallFrameOnlySaysSo) {
    play([](User& user) -> Script {
        co_await user.hold_key(KEY_0_PAD);
        EXPECT_EQ(status_message, MESSAGE_QUICK_PAN_TOO_SMALL);
        co_await user.release_key(KEY_0_PAD);
        EXPECT_EQ(status_message, status_coordinates);
        EXPECT_EQ(pan_x, 0);
    });
}

}  // namespace
}  // namespace nubo
