// REDUCE: what it shows, what CANCEL puts back, what OKAY leaves.
#include "menus_kit.h"
#include "windows/reduce_window.h"

#include <set>

namespace nubo {
namespace {

enum : int { number_slider = slot_content + 1, to_best, to_favorites, off, bayer, diffuse, okay, cancel };

class ReduceWindowTest : public MenuTest {
protected:
    /// A ramp of all grays, on the mask colour.
    static void paint_ramp() {
        mask_color = 0x20c040;
        clear_frame_to(mask_color);
        for (int y = 0; y < 40; ++y)
            for (int x = 0; x < 256; ++x) *pixels_at(current_frame, x, y) = static_cast<Color>(x) * 0x010101;
        note_all_touched();
        reset_undo_slots();
    }
    static std::set<Color> colors() {
        std::set<Color> found;
        for (int y = 0; y < frame_h; ++y)
            found.insert(pixels_at(current_frame, 0, y), pixels_at(current_frame, 0, y) + frame_w);
        return found;
    }
};

TEST_F(ReduceWindowTest, ShowsAtOnceAndIsOneStep) {
    paint_ramp();
    static int end;
    for (const int last : {cancel, okay}) {
        end = last;
        play_on(reduce_window, [](User& user) -> Script {
            gui::slider_value[number_slider] = 5;
            co_await click(user, diffuse);
            EXPECT_EQ(colors().size(), 5u);
            EXPECT_EQ(count_pixels(mask_color), frame_w * frame_h - 256 * 40) << "the mask colour, and four";
            EXPECT_STREQ(gui::value_text[slot_content], "257 > 5");
            co_await click(user, end);
        });
        EXPECT_EQ(colors().size(), end == okay ? 5u : 257u);
        EXPECT_EQ(undo_reach().done, end == okay ? 1 : 0);
    }
    undo_last();
    EXPECT_EQ(colors().size(), 257u);
}

TEST_F(ReduceWindowTest, TakesTheFavoritesUpToTheirLast) {
    paint_ramp();
    favorites.fill(color_scheme[SCHEME_BACKGROUND]);
    favorites[0] = 0x202020, favorites[2] = 0xe0e0e0;
    play_on(reduce_window, [](User& user) -> Script {
        co_await click(user, to_favorites);
        co_await click(user, off);
        co_await click(user, okay);
    });
    EXPECT_EQ(colors(), (std::set<Color>{0x202020, 0xe0e0e0, color_scheme[SCHEME_BACKGROUND], mask_color}));
}

}  // namespace
}  // namespace nubo
