#include "editor/screen.h"

#include "gui/mouse.h"
#include "harness/user.h"

namespace nubo {
namespace {

constexpr Color red = 0xff0000, blue = 0x0000ff;

class ScreenTest : public EditorTest {
protected:
    ScreenTest() { opt_crosshair_strength = opt_status_bar = 0; }
    static Color screen_pixel(int x, int y) { return *pixels_at(screen_buffer, x, y); }
    /// A picture without cursor, crosshairs and tint, which is never presented.
    static void draw_bare_picture() {
        picking_color = 1;
        update_screen(UPDATE_NORMAL);
        picking_color = 0;
    }
    static void point_at(int x, int y) {
        ::mouse_x = x * pixel_scale;
        ::mouse_y = y * pixel_scale;
        note_hand();
        renew_input();
    }
    static bool is_checker(Color color) { return color == pack_color(84, 98, 143) || color == pack_color(84, 94, 128); }
};

TEST_F(ScreenTest, EachLevelEnlargesTheFrameAndLeavesTheCheckerAround) {
    struct Case {
        int level, scale;
    };
    for (const auto& [level, scale] : {Case{1, 1}, Case{2, 2}, Case{3, 4}, Case{4, 8}, Case{5, 16}, Case{6, 32}}) {
        new_frame(2, 2, red);
        *pixels_at(current_frame, 1, 1) = blue;
        zoom = level;
        pan_x = pan_y = -1;
        draw_bare_picture();
        EXPECT_TRUE(is_checker(screen_pixel(scale - 1, scale - 1))) << level;
        EXPECT_EQ(screen_pixel(scale, scale), red) << level;
        EXPECT_EQ(screen_pixel(2 * scale - 1, 2 * scale - 1), red) << level;
        EXPECT_EQ(screen_pixel(2 * scale, 2 * scale), blue) << level;
        EXPECT_EQ(screen_pixel(3 * scale - 1, 3 * scale - 1), blue) << level;
        EXPECT_TRUE(is_checker(screen_pixel(3 * scale, 3 * scale))) << level;
    }
}

TEST_F(ScreenTest, TheLastRowOfTheLastLevelIsCutByTheEdge) {
    new_frame(20, 20, red);
    *pixels_at(current_frame, 0, 7) = blue;  // the eighth row, of which 240 - 7 * 32 = 16 pixels show
    zoom = 6;
    pan_x = pan_y = 0;
    draw_bare_picture();
    EXPECT_EQ(screen_pixel(0, 7 * 32 - 1), red);
    EXPECT_EQ(screen_pixel(0, 7 * 32), blue);
    EXPECT_EQ(screen_pixel(31, view_h - 1), blue);
}

TEST_F(ScreenTest, TheOverlayCountsOnlyWhileAPreviewIsOn) {
    new_frame(view_w, view_h, red);
    *pixels_at(overlay, 3, 2) = blue;
    *pixels_at(overlay, 4, 2) = mask_color;
    draw_bare_picture();
    EXPECT_EQ(screen_pixel(3, 2), red);
    tool_preview_on = 1;
    draw_bare_picture();
    EXPECT_EQ(screen_pixel(3, 2), blue);
    EXPECT_EQ(screen_pixel(4, 2), mask_color);
    zoom = 3;  // read per cell, and there the mask colour means nothing either
    draw_bare_picture();
    EXPECT_EQ(screen_pixel(3 * 4 + 3, 2 * 4), blue);
    EXPECT_EQ(screen_pixel(4 * 4, 2 * 4), red);
    replace_bitmap(cel, make_bitmap(1, 1, mask_color));
    for (zoom = 1; zoom <= 6; zoom += 1) {  // but for a Cel, which will be painted
        cel_place = {.x = 4, .y = 2, .mode = CEL_PASTE, .selected = 0};
        update_screen(UPDATE_NORMAL);
        EXPECT_EQ(screen_pixel(4 << (zoom - 1), 2 << (zoom - 1)), mask_color) << zoom;
    }
}

TEST_F(ScreenTest, CrosshairsBlendFourBarsFromTheMouse) {
    opt_crosshair_strength = 13;
    opt_cursor_zoom = 1;
    point_at(100, 100);
    update_screen(UPDATE_NORMAL);
    const Color bar = pack_color(13, 13, 13);  // white over black at 13: 255 * 14 >> 8
    for (const auto& [x, y] : {Point{100, 105}, Point{100, 95}, Point{105, 100}, Point{95, 100}, Point{0, 100}})
        EXPECT_EQ(screen_pixel(x, y), bar) << x << ", " << y;
    EXPECT_EQ(screen_pixel(101, 105), 0U);
    EXPECT_EQ(screen_pixel(101, 101), 0U);
}

TEST_F(ScreenTest, ScaledCrosshairsStandOnWholeFramePixels) {
    opt_crosshair_strength = 254;
    opt_cursor_zoom = 1;
    zoom = 4;  // cells of 8 pixels
    point_at(83, 85);
    update_screen(UPDATE_NORMAL);
    // The cell under the mouse is (10, 10); the bars begin four cells away.
    EXPECT_NE(screen_pixel(80, 14 * 8), 0U);
    EXPECT_NE(screen_pixel(87, 14 * 8), 0U);
    EXPECT_NE(screen_pixel(80, 7 * 8 - 1), 0U);
    EXPECT_EQ(screen_pixel(80, 14 * 8 - 1), 0U);
    EXPECT_EQ(screen_pixel(80, 7 * 8), 0U);
    EXPECT_EQ(screen_pixel(88, 14 * 8), 0U);
}

TEST_F(ScreenTest, TheCursorGrowsWithTheZoomUnlessItIsAskedNotTo) {
    new_frame(view_w, view_h, red);
    brush_color = blue;
    zoom = 3;
    point_at(101, 81);
    update_screen(UPDATE_NORMAL);
    for (const auto& [x, y] : {Point{100, 80}, Point{103, 83}}) EXPECT_EQ(screen_pixel(x, y), blue);
    EXPECT_EQ(screen_pixel(100 + 2 * 4, 80), fixed_black);
    EXPECT_EQ(screen_pixel(100 - 4 * 4, 80), fixed_light);
    EXPECT_EQ(screen_pixel(104, 80), red);
    opt_cursor_zoom = 1;
    update_screen(UPDATE_NORMAL);
    EXPECT_EQ(screen_pixel(101, 81), blue);
    EXPECT_EQ(screen_pixel(100, 80), red);
    EXPECT_EQ(screen_pixel(101, 81 + 2), fixed_black);
}

}  // namespace
}  // namespace nubo
