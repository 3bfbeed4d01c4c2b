#include "paint/stroke.h"
#include "paint/tool_table.h"
#include "state/shape.h"

#include "harness/user.h"

namespace nubo {
namespace {

constexpr Color white = 0xffffff, black = 0x000000;

class StrokeTest : public EditorTest {
protected:
    /// What a stroke has before its first stamp.
    static void begin_stroke() {
        ASSERT_TRUE(save_undo(false));
        clear_stroke_mask();
    }
};

TEST_F(StrokeTest, CoverageMapIsClearedAtRestButNotDuringAStroke) {
    const auto mark = [](int y) -> Color& { return *pixels_at(stroke_mask, 0, y); };
    const int last = stroke_mask->h - 1;
    const auto mark_both = [=] {
        for (const int y : {0, last}) note_painted(0, y, 1), mark(y) = 7;
    };
    begin_stroke();
    mark_both();
    EXPECT_FALSE(prepare_stroke_mask());
    EXPECT_EQ(mark(0), 7U);
    clear_stroke_mask();  // by a commit, which releases nothing
    EXPECT_EQ(mark(0) | mark(last), 0U);
    mark_both();
    release_stroke_mask();
    EXPECT_TRUE(prepare_stroke_mask());
    EXPECT_EQ(mark(0) | mark(last), 0U);
}

TEST_F(StrokeTest, RefusesNumbersOutOfRangeWithALine) {
    const ScratchFolder scratch;
    UA_log_open();
    for (const int wrong : {-2, 100}) {
        std::string told;
        for (const char* what :
             {"Brush type is OOB in call to draw_to_frame! brush", "Brush style is OOB in call to draw_to_frame! style",
              "Ink type is OOB in call to draw_to_frame! Ink"})
            told += std::string("[ ERROR ] : ") + what + " = " + std::to_string(wrong) + "\n";
        for (const auto stroke : {draw_to_frame, stamp_tip}) {
            const std::string before = log_text();
            stroke(0, 0, wrong, wrong, wrong, white);
            stroke(0, 0, TOOL_LINE, wrong, wrong, white);
            stroke(0, 0, TOOL_LINE, wrong, tip_single, white);
            EXPECT_EQ(log_text(), before + told);
        }
    }
    for (const Point outside : {Point{-1, 0}, Point{0, -1}, Point{view_w, 0}, Point{0, view_h}})
        draw_to_frame(outside.x, outside.y, TOOL_LINE, INK_OPAQUE, 0, white);
    EXPECT_EQ(stroke_snapshot(), nullptr) << "none of these is an undo step";
    refuse_undo_memory(true);
    draw_to_frame(0, 0, TOOL_LINE, INK_OPAQUE, 0, white);  // without memory
    refuse_undo_memory(false);
    tool_option(TOOL_SEP, OPTION_TOLERANCE) = 1;
    draw_to_frame(0, 0, TOOL_SEP, INK_COUNT, 0, white);  // in range, though no ink has the number
    EXPECT_NE(stroke_snapshot(), nullptr);
    UA_log_close();
    EXPECT_EQ(count_pixels(black), view_w * view_h);
}

TEST_F(StrokeTest, StampPaintsThePixelsOfTheCellThatLieInTheFrame) {
    // The CustomTip, at (0, 45) of the sheet, drawn by lot and changed before each stamp. By the rule of the cell,
    // whose centre is column 8, row 7, each Frame pixel is decided. Red 0 is full strength.
    std::mt19937 lot(7);
    const auto any = [&lot](int n) { return static_cast<int>(lot() % static_cast<unsigned>(n)); };
    for (int trial = 0; trial < 200; ++trial) {
        std::array<std::array<bool, 17>, 15> tip{};
        for (int row = 0; row < 15; ++row)
            for (int column = 0; column < 17; ++column) {
                tip[row][column] = any(2) == 0;
                *pixels_at(tip_sheet, column, 45 + row) = tip[row][column] ? 0x00ffff : transparent_color;
            }
        const int width = 1 + any(25), height = 1 + any(25), x = any(width + 4) - 2, y = any(height + 4) - 2;
        new_frame(width, height);
        begin_stroke();
        stamp_tip(x, y, TOOL_DRAW, INK_OPAQUE, tip_custom, brush_color);
        for (int fy = 0; fy < height; ++fy)
            for (int fx = 0; fx < width; ++fx) {
                const int column = fx - x + 8, row = fy - y + 7;
                const bool centre_inside = x >= 0 && x < width && y >= 0 && y < height;
                const bool in_cell = column >= 0 && column < 17 && row >= 0 && row < 15;
                ASSERT_EQ(frame_pixel(fx, fy) == white, centre_inside && in_cell && tip[row][column])
                    << fx << "," << fy << " of a stamp at " << x << "," << y;
            }
    }
}

TEST_F(StrokeTest, EveryToolPaintsInTheColorOfItsStroke) {
    constexpr Color stroke_color = 0x123456;
    for (int tool = TOOL_BOX; tool < TOOL_COUNT; ++tool)
        for (const int filled_or_tolerance : {0, 1}) {
            if (tool_rows[at(tool)].commit == nullptr || tool == TOOL_SPRAY) continue;  // SPRAY waits for a tick
            new_frame(60, 40);
            *pixels_at(current_frame, 9, 8) = 0x808080;  // a rim for EDGE
            tool_slots[0] = tool;
            ink_slots[0] = INK_OPAQUE;
            tool_options[at(tool)][OPTION_FILLED] = filled_or_tolerance;
            click_points[0] = {8, 8}, click_points[1] = {20, 20};
            point_list = {{8, 8}, {30, 8}, {20, 20}};
            previous_point = no_point;
            draw_to_frame(8, 8, tool, INK_OPAQUE, 0, stroke_color);
            EXPECT_EQ(count_pixels(brush_color), 0) << tool;
            const bool holds_nothing =
                filled_or_tolerance == 0 && (tool == TOOL_EDGE || tool == TOOL_FILL || tool == TOOL_SEP);
            EXPECT_EQ(count_pixels(stroke_color) > 0, !holds_nothing) << tool;
        }
}

TEST_F(StrokeTest, DiscFillsTheRowsOfItsCircle) {
    // Allegro's circle on a plain bitmap tells the rim; the disc holds what lies between the rim's ends of each row.
    for (const Point center : {Point{30, 20}, Point{0, 0}, Point{-1, 7}, Point{58, 39}, Point{20, -6}})
        for (const int radius : {0, 1, 2, 3, 7, 8, 19, 40}) {
            new_frame(60, 40);
            const OwnedBitmap rim = make_bitmap(240, 240);
            circle(rim.get(), center.x + 100, center.y + 100, radius, 1);
            begin_stroke();
            fill_disc(center.x, center.y, radius, brush_color);
            for (int y = 0; y < 40; ++y) {
                const Color* const row = pixels_at(rim.get(), 0, y + 100);
                const auto left = std::find(row, row + 240, 1U) - row - 100;
                for (int x = 0; x < 60; ++x)
                    ASSERT_EQ(frame_pixel(x, y) == white, x >= left && x <= 2 * center.x - left)
                        << x << "," << y << " of radius " << radius << " at " << center.x << "," << center.y;
            }
        }
}

}  // namespace
}  // namespace nubo
