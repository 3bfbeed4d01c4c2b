// What shapes paint: lines and fills against Allegro's own, the commit of a list, and that of OVAL.
#include "base/random.h"
#include "harness/user.h"
#include "paint/shape_fill.h"
#include "paint/shape_generators.h"
#include "paint/shape_lines.h"
#include "paint/stroke.h"
#include "paint/tool_table.h"
#include "state/messages.h"
#include "state/shape.h"

namespace nubo {
namespace {

constexpr Color white = 0xffffff;
constexpr int small_w = 40, small_h = 30;
using Points = std::vector<Point>;

class Lot {
public:
    int between(int low, int high) { return std::uniform_int_distribution(low, high)(random_); }
    Point point(int reach) { return {between(-reach, small_w + reach), between(-reach, small_h + reach)}; }

private:
    std::mt19937 random_{7};
};

Points visited;
void visit(int x, int y) { visited.push_back({x, y}); }

TEST(ShapeLineTest, VisitsThePixelsOfTheWholeLineThatLieInside) {
    Lot lot;
    for (int trial = 0; trial < 20'000; ++trial) {
        const int reach = trial % 200;
        const Point from = lot.point(reach), to = lot.point(reach);
        visited.clear();
        do_line(nullptr, from.x, from.y, to.x, to.y, 0, [](BITMAP*, int x, int y, int) { visit(x, y); });
        std::erase_if(visited, [](Point at) { return at.x < 0 || at.x >= small_w || at.y < 0 || at.y >= small_h; });
        const Points expected = std::move(visited);
        visited = {};
        walk_line(from, to, {0, 0, small_w - 1, small_h - 1}, visit);
        ASSERT_EQ(visited, expected) << trial;
    }
    visited.clear();
    walk_line({-far_pixel, -far_pixel}, {far_pixel, far_pixel}, {0, 0, small_w - 1, small_h - 1}, visit);
    EXPECT_EQ(visited.size(), static_cast<std::size_t>(small_h)) << "the diagonal";
}

TEST(ShapeFillTest, PaintsThePixelsOfAllegrosPolygon) {
    static BITMAP* mine;
    const OwnedBitmap own = make_bitmap(small_w, small_h), theirs = make_bitmap(small_w, small_h);
    mine = own.get();
    Lot lot;
    for (int trial = 0; trial < 5'000; ++trial) {
        Points points(static_cast<std::size_t>(lot.between(1, 12)));
        std::vector<int> flat;
        for (Point& point : points) {
            point = lot.point(trial % 100);
            flat.insert(flat.end(), {point.x, point.y});
        }
        clear_to_color(theirs.get(), 0);
        polygon(theirs.get(), static_cast<int>(points.size()), flat.data(), 1);
        for (const int away : {0, 50'000}) {  // where Allegro's arithmetic has ended
            clear_to_color(mine, 0);
            for (Point& point : points) point.x += away;
            fill_polygon(points, {0, 0, small_w + away - 1, small_h - 1}, [away](int x1, int x2, int y) {
                for (int x = std::max(x1, away); x <= x2; ++x) *pixels_at(mine, x - away, y) += 1;
            });
            for (int y = 0; y < small_h; ++y)
                ASSERT_TRUE(
                    std::equal(pixels_at(mine, 0, y), pixels_at(mine, small_w, y), pixels_at(theirs.get(), 0, y)))
                    << trial << ' ' << y << ' ' << away;
        }
    }
}

// ---- The commit ----------------------------------------------------------------------------------------------------

class ShapeCommitTest : public EditorTest {
protected:
    ~ShapeCommitTest() override { free_point_list(); }
    static void commit(BrushTool tool, const Points& points, int filled, int tip) {
        undo_last();
        take_tool(tool);
        tool_option(tool, OPTION_FILLED) = filled;
        brush_tip = tip;
        point_list = points;
        draw_to_frame(0, 0, tool, active_ink(), brush_tip, brush_color);
    }
};

TEST_F(ShapeCommitTest, OutlineTakesTheTipAndFillDoesNot) {
    const Points square{{10, 10}, {20, 10}, {20, 18}, {10, 18}, {10, 10}};
    commit(TOOL_POLY, square, 0, 0);
    EXPECT_EQ(count_pixels(white), 2 * 11 + 2 * 7);
    commit(TOOL_POLY, square, 0, 1);
    EXPECT_EQ(count_pixels(white), 13 * 11 - 7 * 5);
    commit(TOOL_POLY, square, 1, 1);
    EXPECT_EQ(count_pixels(white), 11 * 9);
    commit(TOOL_SPIRAL, square, 1, 0);  // always hollow
    EXPECT_EQ(count_pixels(white), 2 * 11 + 2 * 7);
    commit(TOOL_POLY, {{10, 10}, {10, 10}}, 1, 1);
    EXPECT_EQ(count_pixels(white), 1);
    commit(TOOL_POLY, {{10, 10}}, 0, 1);
    EXPECT_EQ(count_pixels(white), 0);
    commit(TOOL_POLY, {{-far_pixel, 50}, {far_pixel, 50}, {0, far_pixel}}, 0, 0);
    EXPECT_EQ(count_pixels(white), view_w) << "a shape far larger than the Frame";
    EXPECT_EQ(undo_steps(), 1);
}

TEST_F(ShapeCommitTest, OutlineStampsOnceWhereItCrossesItself) {
    static int draws;
    draws = 0;
    set_random_source([](int) { return ++draws, 3; });  // JUMBLE takes two a pixel
    take_ink(INK_JUMBLE, 3);
    commit(TOOL_FSHAPE, {{10, 10}, {30, 30}, {30, 10}, {10, 30}, {10, 10}, {30, 30}}, 0, 0);
    // Two diagonals with one pixel in common, and two sides; each stamp is a cell of 17 by 15.
    EXPECT_EQ(draws, 2 * 17 * 15 * (21 + 21 + 19 + 19 - 1));
}

TEST_F(ShapeCommitTest, MemoryRefusedForTheMaskPaintsNothingAndLeavesNoStep) {
    set_shape_mask_source([](std::size_t) { return MaskWords(); });
    commit(TOOL_POLY, {{10, 10}, {20, 10}, {20, 18}}, 0, 0);
    EXPECT_EQ(count_pixels(white), 0);
    EXPECT_EQ(undo_steps(), 0);
    EXPECT_EQ(status_message, MESSAGE_NO_MEMORY);
    set_shape_mask_source(nullptr);
    commit(TOOL_POLY, {{10, 10}, {20, 10}, {20, 18}}, 0, 0);
    EXPECT_EQ(undo_steps(), 1);
}

TEST_F(ShapeCommitTest, OvalIsItsOutlineOrAllBetween) {
    take_tool(TOOL_OVAL);
    brush_tip = 0;
    interpolate_ellipse(50, 50, 20, 10, 0, 360);
    commit_outline(brush_color);
    const int outline = count_pixels(white);
    EXPECT_EQ(frame_pixel(50, 50), 0u);
    undo_last();
    brush_tip = 1;
    fill_outline(brush_color);
    const int filled = count_pixels(white);
    EXPECT_NEAR(filled, 3.1416 * 20 * 10, outline) << "the area, but for the pixels of the rim";
    EXPECT_EQ(frame_pixel(70, 50), white);
    EXPECT_EQ(frame_pixel(71, 50), 0u);
    undo_last();
    interpolate_ellipse(19, 50, 21, 10, 0, 360);
    fill_outline(brush_color);
    for (int x = 0; x < 39; ++x) EXPECT_EQ(frame_pixel(x, 48), white) << x << ": the row begins in column -1";
    undo_last();
    interpolate_ellipse(0, 0, 400, 300, 20, 360);
    fill_outline(brush_color);
    EXPECT_EQ(frame_pixel(0, 0), white) << "cut by the Frame";
    EXPECT_EQ(undo_steps(), 1);
}

}  // namespace
}  // namespace nubo
