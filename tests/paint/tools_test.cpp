// The tools that need nothing but the mouse, from press to commit and from press to leaving.
#include "base/random.h"
#include "harness/user.h"
#include "paint/stroke.h"

namespace nubo {
namespace {

constexpr Color white = 0xffffff, black = 0x000000, red = 0xff0000, near_red = 0xfa0000;  // by 5
int draws_taken;

class ToolTest : public EditorTest {
protected:
    static void paint_rect(int x1, int y1, int x2, int y2, Color color) {
        rectfill(current_frame, x1, y1, x2, y2, static_cast<int>(color));
    }
};

struct Journey {
    BrushTool tool;
    int option_0, option_1, tip;
    Point to;    // the second click, or where the hand moves with the button held; the press is at (62, 62)
    int pixels;  // that become white
};

// Counted by hand. Around the press lies a red square of 5 by 5, right of its middle row a pixel of nearly red, and at
// the left edge of the Frame a second square. Tip 1 is a square of 3 by 3. Filled shapes take no tip.
constexpr Journey journeys[] = {
    {TOOL_BOX, 0, 0, 0, {72, 68}, 2 * 11 + 2 * 5},
    {TOOL_BOX, 0, 0, 1, {52, 56}, 13 * 9 - 7 * 3},
    {TOOL_BOX, 1, 0, 1, {72, 56}, 11 * 7},
    {TOOL_BOX, 0, 0, 1, {62, 62}, 9},
    {TOOL_CIRCLE, 0, 0, 1, {62, 62}, 9},
    {TOOL_CIRCLE, 1, 0, 1, {62, 62}, 1},
    {TOOL_CIRCLE, 1, 0, 0, {63, 63}, 5},  // the distance is truncated to 1
    {TOOL_LINE, 0, 0, 0, {72, 68}, 11},
    {TOOL_LINE, 0, 0, 1, {62, 62}, 9},
    {TOOL_DRAW, 0, 0, 0, {64, 62}, 3},                    // without a gap
    {TOOL_DRAW, 0, 0, 0, {162, 62}, 101},                 // in one jump
    {TOOL_DRAW, 0, 0, 1, {250, 62}, 3 * (169 - 61 + 1)},  // out of the Frame
    {TOOL_SPRAY, 255, 0, 1, {62, 62}, 0},
    {TOOL_SPRAY, 255, 1, 1, {62, 62}, 1},
    {TOOL_EDGE, 1, 0, 1, {62, 62}, 16 + 13},      // none along the Frame's edge
    {TOOL_EDGE, 5, 0, 1, {62, 62}, 15 + 13},      // nearly red is no outside
    {TOOL_EDGE, 6, 0, 1, {62, 62}, 15 + 1 + 13},  // but of the area
    {TOOL_SEP, 0, 0, 1, {62, 62}, 0},
    {TOOL_SEP, 5, 0, 1, {62, 62}, 25 + 25},
    {TOOL_SEP, 6, 0, 1, {62, 62}, 25 + 1 + 25},
    {TOOL_FILL, 0, 0, 1, {62, 62}, 0},
    {TOOL_FILL, 1, 0, 1, {62, 62}, 25},
    {TOOL_FILL, 5, 0, 1, {62, 62}, 25 + 1},  // a span takes the tolerance itself along
};
const Journey* journey;

TEST_F(ToolTest, JourneysEndInTheirPixelsAndOneUndo) {
    new_frame(170, 130);
    paint_rect(60, 60, 64, 64, red);
    paint_rect(65, 62, 65, 62, near_red);
    paint_rect(0, 100, 4, 104, red);
    const auto before = frame_pixels();
    for (const Journey& one : journeys) {
        journey = &one;
        take_tool(one.tool);
        tool_options[one.tool] = {one.option_0, one.option_1};
        brush_tip = one.tip;
        play([](User& user) -> Script {
            const BrushTool tool = journey->tool;
            co_await user.press_left(62, 62);
            if (tool == TOOL_BOX || tool == TOOL_CIRCLE || tool == TOOL_LINE) co_await user.release_left();
            co_await user.press_left(journey->to.x, journey->to.y);
            co_await user.wait(10);
            co_await user.release_left();
        });
        const auto row = journey - journeys;
        EXPECT_EQ(count_pixels(white), one.pixels) << row;
        EXPECT_EQ(undo_steps(), 1) << row;
        undo_last();
        EXPECT_EQ(frame_pixels(), before) << row;
    }
}

TEST_F(ToolTest, AStrokeGoesOnFromTheColumnLeftOfTheFrame) {
    take_tool(TOOL_DRAW);
    brush_tip = 0;
    play([](User& user) -> Script {
        pan_x = -50;
        co_await user.press_left(60, 62);
        co_await user.drag_to(49, 62);
        co_await user.drag_to(150, 62);
        co_await user.release_left();
    });
    EXPECT_EQ(count_pixels(white), 101) << "0 to 100";
}

TEST_F(ToolTest, RightPressLeavesNoTrace) {
    opt_tool_distance = 1;
    for (const BrushTool tool : {TOOL_BOX, TOOL_CIRCLE, TOOL_LINE}) {
        take_tool(tool);
        play([](User& user) -> Script {
            pan_x = 5;
            co_await user.press_left(10, 10);
            co_await user.release_left();
            co_await user.move_to(20, 16);
            const Point rim = active_tool() == TOOL_CIRCLE ? Point{10, 21} : Point{20, 16};  // a radius of 11
            EXPECT_NE(*pixels_at(overlay, rim.x, rim.y), transparent_color) << "the stripes follow the mouse";
            EXPECT_EQ(measure_x, 15) << "the Frame's pixel under the first click";
            co_await user.press_right(20, 16);
            co_await user.release_right();
        });
        EXPECT_EQ(undo_steps(), 0) << tool;
        EXPECT_EQ(count_pixels(black), view_w * view_h) << tool;
        EXPECT_EQ(tool_preview, -1);
        EXPECT_EQ(measure_x, -1);
    }
}

TEST_F(ToolTest, InksDrawOnceForEachStampThatIsTold) {
    // JUMBLE takes two draws a pixel. DRAW stamps one tip of 17 by 15 while the mouse rests; EDGE stamps a lone pixel
    // once for each of its four outer neighbours.
    take_ink(INK_JUMBLE, 3);
    tool_option(TOOL_EDGE, OPTION_TOLERANCE) = 1;
    for (const auto& [tool, draws] : {std::pair{TOOL_DRAW, 17 * 15 * 2}, std::pair{TOOL_EDGE, 4 * 2}}) {
        take_tool(tool);
        paint_rect(0, 0, view_w - 1, view_h - 1, black);
        paint_rect(100, 100, 100, 100, red);
        draws_taken = 0;
        set_random_source([](int) { return ++draws_taken, 3; });
        play([](User& user) -> Script {
            co_await user.press_left(100, 100);
            co_await user.wait(30);
            co_await user.release_left();
        });
        EXPECT_EQ(draws_taken, draws) << tool;
    }
}

TEST_F(ToolTest, DrizNarrowsWithSpeedAndSkipsWhatIsTooFast) {
    take_tool(TOOL_DRIZ);
    tool_options[TOOL_DRIZ] = {4, 10};  // radius, taper distance
    play([](User& user) -> Script {
        struct Move {
            int x, radius;  // of the disc there; -1 none
        };
        // A press: 4. A move of 6 of 10: 4 - trunc(2.4). Of 10 of 10: 0. Of 11: nothing. Of a pixel: 4.
        for (const Move move : {Move{50, 4}, Move{56, 2}, Move{66, 0}, Move{77, -1}, Move{78, 4}}) {
            co_await user.press_left(move.x, 50);
            EXPECT_EQ(frame_pixel(move.x, 50 + std::max(move.radius, 0)), move.radius < 0 ? black : white) << move.x;
            EXPECT_EQ(frame_pixel(move.x, 50 + move.radius + 1), black) << move.x;
        }
        EXPECT_EQ(frame_pixel(62, 50), black) << "the discs are not joined";
        co_await user.release_left();
    });
}

TEST_F(ToolTest, SprayTriesThePlacesThatAreDrawn) {
    take_tool(TOOL_SPRAY);
    tool_options[TOOL_SPRAY] = {1, 5};  // density, radius
    set_random_source([](int n) {
        // x, y by turns, from (100 - 5, 100 - 5): (102, 100), (95, 95), (96, 103).
        constexpr std::array<int, 6> draws{7, 5, 0, 0, 1, 8};
        EXPECT_EQ(n, 10);
        return draws[static_cast<std::size_t>(draws_taken++) % draws.size()];
    });
    play([](User& user) -> Script {
        co_await user.press_left(100, 100);
        co_await user.wait_until([] { return draws_taken >= 6; });
        co_await user.release_left();
    });
    EXPECT_EQ(frame_pixel(102, 100), white);
    EXPECT_EQ(count_pixels(white), 1) << "7 pixels away is too far, and so is 5, the radius itself";
}

// ---- FILL ----------------------------------------------------------------------------------------------------------

/// The fill as its rule is told, one pixel and one seed at a time, all kept until the end.
class PlainFill {
public:
    PlainFill(int x, int y, int tolerance) : color_(*pixels_at(stroke_snapshot(), x, y)), tolerance_(tolerance) {
        seeds_.push_back({x, y});
        for (std::size_t at = 1; at > 0;) {
            const std::size_t before = seeds_.size();
            const Point seed = seeds_[at - 1];
            if (is_seed(seed.x, seed.y)) take_span(seed.x, seed.y);  // a done seed is visited
            at = seeds_.size() > before ? seeds_.size() : at - 1;
        }
    }

private:
    bool is_open(int x, int y, int most) {
        if (!frame_contains(current_frame, x, y) || visited_[y][x]) return false;
        const Color other = *pixels_at(stroke_snapshot(), x, y);
        return std::abs(red_of(other) - red_of(color_)) <= most &&
               std::abs(green_of(other) - green_of(color_)) <= most &&
               std::abs(blue_of(other) - blue_of(color_)) <= most;
    }
    bool is_seed(int x, int y) { return is_open(x, y, tolerance_ - 1); }
    void take_span(int x, int y) {
        int first = x, last = x;
        while (is_open(first - 1, y, tolerance_)) --first;
        while (is_open(last + 1, y, tolerance_)) ++last;
        for (int i = first; i <= last; ++i) {
            stamp_tip(i, y, TOOL_FILL, INK_JUMBLE, tip_single, brush_color);
            visited_[y][i] = true;
            for (const int beside : {y - 1, y + 1})
                if (is_seed(i, beside)) seeds_.push_back({i, beside});
        }
    }

    Color color_;
    int tolerance_;
    std::array<std::array<bool, 32>, 32> visited_{};
    std::vector<Point> seeds_;
};

TEST_F(ToolTest, FillVisitsPixelsInTheOrderOfThePlainRule) {
    // JUMBLE draws two numbers a pixel, so that any other order gives other pixels.
    take_ink(INK_JUMBLE, 5);
    std::mt19937 lot(11);
    const auto any = [&lot](int n) { return static_cast<int>(lot() % static_cast<unsigned>(n)); };
    for (int trial = 0; trial < 400; ++trial) {
        const int width = 1 + any(19), height = 1 + any(15), levels = 1 + any(4), tolerance = any(4);
        const int x = any(width), y = any(height);
        new_frame(width, height);
        for (int i = 0; i < width * height; ++i)
            *pixels_at(current_frame, i % width, i / width) = pack_color(any(levels), any(levels), any(2));

        random_first.seed(static_cast<std::uint32_t>(trial));
        tool_option(TOOL_FILL, OPTION_TOLERANCE) = tolerance;
        draw_to_frame(x, y, TOOL_FILL, INK_JUMBLE, 0, brush_color);
        const std::vector<Color> filled = frame_pixels();
        undo_last();
        ASSERT_TRUE(save_undo(false));
        random_first.seed(static_cast<std::uint32_t>(trial));
        PlainFill(x, y, tolerance);
        ASSERT_EQ(filled, frame_pixels()) << trial;
    }
}

TEST_F(ToolTest, FillOfItsOwnColorChangesNothing) {
    constexpr Color near_white = 0xfdfdfd;
    tool_option(TOOL_FILL, OPTION_TOLERANCE) = 4;
    for (const Color brush : {white, near_white}) {
        new_frame(9, 7, near_white);
        hline(current_frame, 0, 3, 8, static_cast<int>(white));
        brush_color = brush;
        draw_to_frame(4, 3, TOOL_FILL, INK_OPAQUE, 0, brush_color);
        EXPECT_EQ(count_pixels(near_white), brush == white ? 6 * 9 : 7 * 9);
    }
}

TEST_F(ToolTest, FillOfADeepAreaNeedsNoDeepStack) {
    // A comb of columns one pixel wide, joined at the bottom row: nearly as many spans as pixels.
    new_frame(801, 1200, 0);
    for (int x = 1; x < 801; x += 2) vline(current_frame, x, 0, 1198, 9);
    tool_option(TOOL_FILL, OPTION_TOLERANCE) = 1;
    draw_to_frame(0, 0, TOOL_FILL, INK_OPAQUE, 0, brush_color);
    EXPECT_EQ(count_pixels(0xffffff), 401 * 1199 + 801);
}

}  // namespace
}  // namespace nubo
