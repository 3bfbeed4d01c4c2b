
#include "harness/user.h"
#include "state/mouse.h"
#include "view/view.h"

namespace nubo {
namespace {

class ViewTest : public EditorTest {
protected:
    static void look(int level, int x, int y) {
        zoom = level;
        pan_x = x;
        pan_y = y;
        view_update_pixel();
    }
    static void point_at(int x, int y) {
        mouse_x = x;
        mouse_y = y;
        view_update_pixel();
    }
};

TEST_F(ViewTest, ZoomKeepsThePixelUnderTheMouseNear) {
    look(1, 0, 0);
    point_at(100, 50);
    // In: the centre (160, 120) goes halfway to the mouse, (130, 85); half of 160x120 frame pixels before it is (50,
    // 25).
    view_zoom(ZOOM_IN);
    EXPECT_EQ(zoom, 2);
    EXPECT_EQ(pan_x, 50);
    EXPECT_EQ(pan_y, 25);
    EXPECT_EQ(pixel_x, 100);  // 100 / 2 + 50
    EXPECT_EQ(pixel_y, 50);
    // Out: away from the mouse by 30 / 1.5 = 20 and trunc(35 / 1.5) = 23, centre (150, 108).
    view_zoom(ZOOM_OUT);
    EXPECT_EQ(zoom, 1);
    EXPECT_EQ(pan_x, -10);
    EXPECT_EQ(pan_y, -12);
}

TEST_F(ViewTest, ZoomAtTheLimitsMovesNothing) {
    look(6, 13, 17);
    view_zoom(ZOOM_IN);
    EXPECT_EQ(zoom, 6);
    EXPECT_EQ(pan_x, 13);
    look(1, -7, 9);
    view_zoom(ZOOM_OUT);
    EXPECT_EQ(zoom, 1);
    EXPECT_EQ(pan_x, -7);
    EXPECT_EQ(pan_y, 9);
}

TEST_F(ViewTest, TheCentreReachesEachEdgeAndNoFurther) {
    new_frame(100, 50);
    struct Case {
        int level, low_x, high_x, low_y, high_y;
    };
    // Half the view: 320/2 and 240/2 at level 1, ceil(320/32)/2 = 5 and ceil(7.5)/2 = 4 at level 6.
    for (const Case& at : {Case{1, -160, -60, -120, -70}, Case{6, -5, 95, -4, 46}}) {
        look(at.level, -9999, -9999);
        view_clamp();
        EXPECT_EQ(pan_x, at.low_x);
        EXPECT_EQ(pan_y, at.low_y);
        look(at.level, 9999, 9999);
        view_clamp();
        EXPECT_EQ(pan_x, at.high_x);
        EXPECT_EQ(pan_y, at.high_y);
    }
}

TEST_F(ViewTest, TheUserZoomsByWheelAndPansByKeys) {
    play([](User& user) -> Script {
        co_await user.move_to(160, 120);
        co_await user.turn_wheel(1);
        EXPECT_EQ(zoom, 2);
        EXPECT_EQ(pan_x, 80);  // the middle stays in the middle
        co_await user.turn_wheel(-1);
        EXPECT_EQ(zoom, 1);
        EXPECT_EQ(pan_x, 0);
        co_await user.hold_key(KEY_RIGHT);
        co_await user.release_key(KEY_RIGHT);
        EXPECT_GT(pan_x, 0);
        EXPECT_EQ(pan_x % 3, 0);  // three frame pixels a tick at level 1
        const int before = pan_x;
        co_await user.hold_key(KEY_LCONTROL);
        co_await user.hold_key(KEY_RIGHT);  // another combination than the bare key
        EXPECT_EQ(pan_x, before);
        co_await user.release_key(KEY_RIGHT);
        co_await user.release_key(KEY_LCONTROL);
    });
}

}  // namespace
}  // namespace nubo
