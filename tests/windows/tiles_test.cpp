// The Frame as a tile: what the screen shows, outlines and areas across its seams, and the roll that brings one into
// the middle.
#include "cel_kit.h"
#include "paint/image_maps.h"
#include "view/view.h"
#include "windows/cel/cel_commands.h"
#include "windows/guide_switches.h"
#include <random>

namespace nubo {
namespace {

class TilesTest : public CelCommandTest {
protected:
    TilesTest() {
        opt_crosshair_strength = opt_status_bar = opt_zoom_preview = 0;
        gui_visible = 0;
    }
    static void fill_anyhow() {
        std::minstd_rand numbers(1);
        for (int y = 0; y < frame_h; ++y)
            for (int x = 0; x < frame_w; ++x) *pixels_at(current_frame, x, y) = numbers() & 0xffffff;
        note_all_touched();
    }
    static Color real(int x, int y) {
        const Point pixel = real_pixel({x, y});
        return frame_pixel(pixel.x, pixel.y);
    }
    static std::vector<Color> picture() {
        picking_color = 1;
        update_screen(UPDATE_STROKE);
        picking_color = 0;
        const Color* const first = pixels_at(screen_buffer, 0, 0);
        return {first, first + view_w * view_h};
    }
};

TEST_F(TilesTest, TheFrameRepeatsOnTheScreenWhereverOneGoes) {
    for (const auto& [w, h] : {std::pair{7, 5}, {1, 3}, {400, 2}})
        for (const int tiling : {TILES_BOTH, TILES_ACROSS, TILES_DOWN})
            for (const int level : {1, 4, 6}) {
                new_frame(w, h);
                fill_anyhow();
                guides.tiles = tiling;
                zoom = level;
                pan_x = tiles_across() ? -1003 : 0, pan_y = tiles_down() ? 704 : 0;
                view_tick();
                const std::vector<Color> shown_picture = picture();
                const int scale = zoom_scale[at(level)];
                for (int i = 0; i < view_w * view_h; ++i) {
                    const Point pixel{pan_x + i % view_w / scale, pan_y + i / view_w / scale};
                    if (!lies_in_frame(pixel)) continue;
                    ASSERT_EQ(shown_picture[at(i)], real(pixel.x, pixel.y)) << i << " at level " << level;
                }
                view_to_frame();
                EXPECT_EQ(picture(), shown_picture);
                EXPECT_TRUE(!tiles_across() || (view_center_x >= 0 && view_center_x < w)) << view_center_x;
                choose_tiles(TILES_OFF);
                EXPECT_GE(pan_x, -view_w / 2 / scale);
                guides.tiles = TILES_OFF;
            }
}

std::vector<Color> outline;

TEST_F(TilesTest, OutlinesStandWhereThePaintGoes) {
    for (const BrushTool tool : {TOOL_LINE, TOOL_CIRCLE, TOOL_BOX}) {
        new_frame(40, 28);
        guides.tiles = TILES_BOTH;
        guides.symmetry = SYMMETRY_ACROSS;
        take_tool(tool);
        pan_x = pan_y = 0;
        outline.clear();
        play([](User& user) -> Script {
            co_await click_place(user, 30, 60);
            co_await user.move_to(64, 77);  // beyond the next tile
            outline.assign(pixels_at(overlay, 0, 0), pixels_at(overlay, 0, 0) + view_w * view_h);
            co_await user.tap_left(64, 77);
            co_await user.wait(4);
        });
        int painted = 0;
        for (int y = 0; y < view_h; ++y)
            for (int x = 0; x < view_w; ++x) {
                const bool is_outlined = outline[at(y * view_w + x)] != transparent_color;
                ASSERT_EQ(is_outlined, real(pan_x + x, pan_y + y) == white) << tool << " at " << x << ',' << y;
                painted += is_outlined ? 1 : 0;
            }
        EXPECT_GT(painted, 100);
    }
}

TEST_F(TilesTest, AnAreaAcrossASeamIsOnePiece) {
    new_frame(320, 240);
    fill_anyhow();
    guides.tiles = TILES_BOTH;
    const std::vector<Color> before = frame_pixels();
    OwnedBitmap taken = copy_of_area({-3, -2, 1, 4});
    for (int y = 0; y < 7; ++y)
        for (int x = 0; x < 5; ++x) ASSERT_EQ(*pixels_at(taken.get(), x, y), real(x - 3, y - 2)) << x << ',' << y;

    take_tool(TOOL_MOVE);
    mask_color = black;
    pan_x = pan_y = -20;  // the Frame's corner is at 20, 20
    play([](User& user) -> Script {
        co_await click_place(user, 16, 17);
        co_await click_place(user, 24, 23);
        EXPECT_EQ(status_message, MESSAGE_CEL_REPOSITION);
        co_await tap(user, KEY_DOWN);
        co_await click_place(user, 200, 200, right_button);
    });
    EXPECT_EQ(undo_steps(), 1);
    int moved = 0;
    for (int y = -3; y <= 3; ++y)
        for (int x = -4; x <= 4; ++x) {
            const Color was = before[at(wrapped(y, frame_h) * frame_w + wrapped(x, frame_w))];
            ASSERT_EQ(real(x, y + 1), was) << x << ',' << y;
            moved += y == -3 && real(x, y) == black ? 1 : 0;
        }
    EXPECT_EQ(moved, 9) << "the row that it left";

    fill(0, 0, 319, 239, black);
    take_cel(std::move(taken));
    cel_x = 318, cel_y = 238;
    play([](User& user) -> Script {
        co_await click(user, DRAWING_CEL);
        co_await click(user, slot_of(LABEL_BELOW));
        co_await click_place(user, 200, 100, right_button);
    });
    for (int y = 0; y < 7; ++y)
        for (int x = 0; x < 5; ++x) ASSERT_EQ(real(318 + x, 238 + y), cel_pixel(x, y)) << x << ',' << y;
}

TEST_F(TilesTest, ARunOfRollsIsOneStep) {
    new_frame(320, 240);
    fill_anyhow();
    const std::vector<Color> before = frame_pixels();
    gui_visible = 1;
    play([](User& user) -> Script {
        co_await user.hold_key(KEY_LCONTROL);
        co_await user.tap_key(KEY_LEFT);
        co_await user.tap_key(KEY_UP);
        co_await user.hold_key(KEY_LSHIFT);
        co_await user.tap_key(KEY_UP);
        co_await user.release_key(KEY_LSHIFT);
        co_await user.release_key(KEY_LCONTROL);
    });
    for (int y = 0; y < frame_h; ++y)
        for (int x = 0; x < frame_w; ++x)
            ASSERT_EQ(frame_pixel(x, y), before[at((y + 9) % frame_h * frame_w + (x + 1) % frame_w)]) << x << ',' << y;
    EXPECT_EQ(pan_x, 0) << "the arrows pan without CTRL";
    EXPECT_EQ(undo_steps(), 1);
    play([](User& user) -> Script {
        co_await click_place(user, 10, 10);
        co_await user.hold_key(KEY_LCONTROL);
        co_await user.tap_key(KEY_RIGHT);
        co_await user.release_key(KEY_LCONTROL);
    });
    EXPECT_EQ(undo_steps(), 3) << "a stroke ends the run";
    while (undo_reach().done > 0) undo_last();
    EXPECT_EQ(frame_pixels(), before);

    grab_sprite();
    play([](User& user) -> Script {
        co_await tap(user, KEY_TILDE);
        co_await user.hold_key(KEY_LCONTROL);
        co_await user.tap_key(KEY_RIGHT);
        EXPECT_EQ(cel_place.x, 41) << "the arrows are those of a Cel that floats";
        co_await user.release_key(KEY_LCONTROL);
        co_await tap(user, KEY_ESC);
    });
    EXPECT_EQ(frame_pixels(), before);
}

}  // namespace
}  // namespace nubo
