#include "framework/text.h"
#include "harness/harness.h"
#include "state/run.h"
#include <gtest/gtest.h>

namespace nubo {
namespace {

OwnedBitmap saved_template() {
    set_color_depth(8);
    PALETTE colors;
    return OwnedBitmap(load_pcx("font.pcx", colors));
}

TEST(FontTemplate, HoldsTheGridTheHeaderAndTheCharactersInReadingOrder) {
    const ScratchFolder folder;
    UA_make_font_template(5, 7, 6);  // cells of 6 by 8: 53 to a row
    EXPECT_EQ(exit_requested, 1);
    const OwnedBitmap page = saved_template();
    ASSERT_TRUE(page);
    ASSERT_EQ(page->w, 320);
    ASSERT_EQ(page->h, 200);
    const auto expect_values = [&page](int x, int y, std::initializer_list<int> values) {
        for (const int value : values) {
            EXPECT_EQ(getpixel(page.get(), x, y), value) << x << ' ' << y;
            ++x;
        }
    };
    expect_values(0, 0, {5, 7, 2, 2, 255, 255, 'A', 0, 6, 255});
    expect_values(0, 1, {255, 0, 0, 0, 0, 0, 255, 0});
    expect_values(0, 8, {'%', 0, 6, 255, 255, 255, '_', 0, 6, 255, 255, 255, '=', 0, 6, 255, 255, 255, 255, 255});
    expect_values(317, 8, {255, 0, 0});  // the last column ends at 53 * 6
}

TEST(FontTemplate, StopsAtTheEndOfThePageAndRefusesCellsWithoutRoomForTheHeader) {
    const ScratchFolder folder;
    UA_make_font_template(2, 7, 6);
    EXPECT_EQ(exit_requested, 0);
    UA_make_font_template(63, 99, 200);  // five by two cells: the header and nine characters
    const OwnedBitmap page = saved_template();
    ASSERT_TRUE(page);
    EXPECT_EQ(getpixel(page.get(), 256, 100), 'I');
    EXPECT_EQ(getpixel(page.get(), 258, 100), 200);
}

}  // namespace
}  // namespace nubo
