// The sheet: where its cells lie, and names.
#include "codecs/sheet.h"
#include <gtest/gtest.h>

namespace nubo {
namespace {

TEST(Sheet, LaysItsCellsOutByRowsColumnsOrASquare) {
    struct SheetCase {
        int frames, w, h;
        SheetOptions options;
        int width, height, last_x, last_y;  // of the sheet, and the place of the last cell
    };
    for (const SheetCase& row : {SheetCase{3, 10, 20, {SHEET_ROWS, 0, 0}, 30, 20, 20, 0},
                                 SheetCase{3, 10, 20, {SHEET_ROWS, 2, 1}, 36, 24, 24, 2},
                                 SheetCase{3, 10, 20, {SHEET_COLUMNS, 2, 1}, 14, 66, 2, 44},
                                 SheetCase{5, 10, 10, {SHEET_SQUARE, 0, 0}, 30, 20, 10, 10},
                                 SheetCase{4, 10, 20, {SHEET_SQUARE, 0, 0}, 40, 20, 30, 0},  // as good as 20 x 40
                                 SheetCase{100, 600, 600, {SHEET_SQUARE, 0, 0}, 6000, 6000, 5400, 5400},
                                 SheetCase{1, 7, 5, {SHEET_SQUARE, 3, 9}, 13, 11, 3, 3}}) {
        const auto layout = lay_out_sheet(row.frames, row.w, row.h, row.options);
        ASSERT_TRUE(layout && layout->cells.size() == static_cast<std::size_t>(row.frames));
        EXPECT_TRUE(layout->width == row.width && layout->height == row.height)
            << row.frames << ": " << layout->width << " x " << layout->height;
        EXPECT_TRUE(layout->cells.back().x == row.last_x && layout->cells.back().y == row.last_y) << row.frames;
    }
    EXPECT_FALSE(lay_out_sheet(100, 700, 10, {SHEET_ROWS, 0, 0})) << "no picture is so wide";
}

TEST(Sheet, NumbersNames) {
    EXPECT_EQ(numbered_name("hero", 7), "hero07");
    EXPECT_EQ(numbered_name("a#b#c", 99), "a#b99c");
    const auto layout = lay_out_sheet(1, 1, 1, {});
    const std::string json = sheet_json(*layout, {{1, 12}}, {"a\"\\\n", "b.png"}, LOOP_ONCE);
    EXPECT_NE(json.find("\"name\": \"a\\\"\\\\?\""), std::string::npos) << json;
    EXPECT_NE(json.find("\"repeat\": \"1\""), std::string::npos);
}

}  // namespace
}  // namespace nubo
