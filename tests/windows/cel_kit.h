#pragma once
// A Frame with a small sprite, and a user who takes it as the Cel or moves it.
#include "menus_kit.h"
#include "paint/cel_pixels.h"

namespace nubo {

inline constexpr Color red = 0xff0000, green = 0x00ff00, blue = 0x0000ff, white = 0xffffff, black = 0;

inline void fill(int x1, int y1, int x2, int y2, Color color) {
    rectfill(current_frame, x1, y1, x2, y2, static_cast<int>(color));
    note_touched(area_between(x1, y1, x2, y2));
}
inline Color cel_pixel(int x, int y) { return *pixels_at(cel_mask, x, y); }
inline User::Pause tap(User& user, int code) {
    return user.wait_until([code, update = 0]() mutable {
        ::key[code] = ++update < 6 ? 1 : 0;
        return update >= 12;
    });
}

class CelCommandTest : public MenuTest {
protected:
    CelCommandTest() {
        opt_cel_tolerance = 5;
        fill(40, 50, 42, 51, red);  // a sprite of 3 by 2 with one green pixel
        fill(42, 50, 42, 50, green);
    }
    static void grab_sprite() { take_cel(copy_of_area({40, 50, 42, 51})), cel_x = 40, cel_y = 50; }
    static void expect_at_rest() {
        EXPECT_EQ(cel_place.mode, -1);
        EXPECT_EQ(tool_preview_on, 0);
        EXPECT_EQ(draw_over_frame, nullptr);
        EXPECT_EQ(area_floats, 0);
        EXPECT_EQ(arrows_move_cel, 0);
        EXPECT_EQ(status_message, status_coordinates);
        EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
        EXPECT_EQ(slot_of(LABEL_UNDO), DRAWING_UNDO);
    }
};

}  // namespace nubo
