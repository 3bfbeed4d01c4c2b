// The generators of shapes, against closed forms and points worked out by hand.
#include "harness/harness.h"
#include "paint/shape_generators.h"
#include "paint/shape_lines.h"
#include "paint/shape_spline.h"

#include <allegro.h>
#include <cmath>

namespace nubo {

static void PrintTo(const Point& point, std::ostream* out) { *out << '(' << point.x << ", " << point.y << ')'; }

namespace {

using Points = std::vector<Point>;

class ShapePointsTest : public testing::Test {
protected:
    ShapePointsTest() { point_list.reserve(list_capacity); }
    ~ShapePointsTest() override { free_point_list(); }
    static double distance(Point a, Point b) { return std::hypot(a.x - b.x, a.y - b.y); }
};

TEST_F(ShapePointsTest, PolygonHasItsCornersOnTheCircleAndAnEdgeBelow) {
    EXPECT_EQ(plot_polygon(0, 0, 0, 100, 3), 4);
    EXPECT_EQ(point_list, (Points{{87, 50}, {0, -100}, {-87, 50}, {87, 50}})) << "upward, by sin 60 = 0.866";
    EXPECT_TRUE(shape_box.left == -87 && shape_box.right == 87 && shape_box.top == -100 && shape_box.bottom == 50);
    EXPECT_EQ(plot_polygon(10, 20, 90, 100, 4), 5);
    EXPECT_EQ(point_list[0], (Point{10 - 71, 20 + 71})) << "a quarter of a turn";
    for (const auto& [angle, radius, sides] : {std::tuple{0, 1, 3}, {123, 77, 5}, {359, 500, 32}, {7, 512, 31}}) {
        ASSERT_EQ(plot_polygon(300, 200, angle, radius, sides), sides + 1);
        EXPECT_EQ(point_list.front(), point_list.back());
        for (const Point& corner : point_list) EXPECT_NEAR(distance(corner, {300, 200}), radius, 0.75);
    }
}

TEST_F(ShapePointsTest, PolygonRefusesWhatIsOutOfRange) {
    const ScratchFolder scratch;
    UA_log_open();
    for (const auto& [radius, sides] : {std::pair{100, 2}, {100, 33}, {0, 5}, {513, 5}}) {
        EXPECT_EQ(plot_polygon(0, 0, 0, radius, sides), -1);
        EXPECT_TRUE(point_list.empty());
    }
    free_point_list();
    EXPECT_EQ(plot_polygon(0, 0, 0, 100, 3), -1) << "without memory";
    const std::string log = log_text();
    EXPECT_NE(log.find("[ ERROR ] : Number of sides OOB in call to plot_polygon. Sides = 33"), std::string::npos);
    EXPECT_NE(log.find("[ ERROR ] : Radius OOB in call to plot_polygon. Radius = 0"), std::string::npos);
    EXPECT_NE(log.find("[ ERROR ] : Illegal midget toss detected in sector Z3. Aborting!"), std::string::npos);
}

TEST_F(ShapePointsTest, EllipseIsAnUnbrokenLineAroundTheTrueOne) {
    for (const auto& [a, b, rotation] :
         {std::tuple{40, 20, 0}, {1, 1, 0}, {200, 150, 30}, {600, 9, 311}, {9, 500, 90}}) {
        interpolate_ellipse(100, 100, a, b, rotation, 360);
        const double turn = -rotation * std::acos(-1) / 180;
        for (std::size_t i = 0; i < point_list.size(); ++i) {
            const Point point = point_list[i], next = point_list[(i + 1) % point_list.size()];
            // Where the first point comes again, a last gap is filled from there.
            const int step = std::max(std::abs(point.x - next.x), std::abs(point.y - next.y));
            ASSERT_TRUE(step <= 1 || next == point_list.front()) << a << ' ' << i;
            // In the ellipse's own axes: it passes between what lies a pixel and a half further in and further out.
            const double x = point.x - 100, y = point.y - 100;
            const double u = std::abs(x * std::cos(turn) + y * std::sin(turn));
            const double v = std::abs(y * std::cos(turn) - x * std::sin(turn));
            const auto reach = [&, a = a, b = b](double by) {
                return std::hypot(std::max(u + by, 0.0) / a, std::max(v + by, 0.0) / b);
            };
            ASSERT_LE(reach(-1.5), 1) << a << ' ' << i;
            ASSERT_GE(reach(1.5), 1) << a << ' ' << i;
        }
    }
    interpolate_ellipse(0, 0, 10, 0, 0, 360);
    for (const Point& point : point_list) EXPECT_EQ(point.y, 0) << "flat";
    EXPECT_EQ(point_list.front(), (Point{10, 0}));
}

TEST_F(ShapePointsTest, SpiralGrowsWithItsAngle) {
    build_spiral(0, 0, 0, 100, 1, 0, 0);
    EXPECT_NEAR(static_cast<double>(point_list.size()), 628, 1) << "a sum of hundredths is no exact number";
    EXPECT_EQ(point_list.back(), (Point{6, 0})) << "6.28 pixels away, nearly a whole turn";
    for (const int flip : {0, 1}) {
        build_spiral(1000, 1000, 90, 250, 10, 0, flip);
        for (std::size_t i = 0; i < point_list.size(); ++i)
            ASSERT_NEAR(distance(point_list[i], {1000, 1000}), static_cast<double>(i) * 0.01 * 2.5, 1.5) << i;
        // A quarter of a winding on from straight down: to the left, or flipped to the right.
        EXPECT_EQ(point_list[157].x < 1000, flip == 0);
        EXPECT_EQ(shape_box.right, std::ranges::max(point_list, {}, &Point::x).x);
    }
    build_spiral(0, 0, 0, 500, 64, 255, 0);
    // The last radius: 401.91 radians, times 1 + 40,191 * 0.0085, times 5: beyond 680,000 pixels, far within the bound.
    EXPECT_NEAR(distance(point_list.back(), {0, 0}), 401.91 * (1 + 40'191 * 0.0085) * 5, 1'000);
}

TEST_F(ShapePointsTest, SupershapeIsADiamondAndACircle) {
    plot_supershape({.n1 = 1, .n2 = 1, .n3 = 1, .arms = 4, .magnitude = 100}, 0, 0);
    ASSERT_EQ(point_list.size(), 641u);
    for (const Point& point : point_list) EXPECT_NEAR(std::abs(point.x) + std::abs(point.y), 100, 2);
    for (const int arms : {1, 4, 20}) {
        plot_supershape({.angle = 77, .n1 = 2, .n2 = 2, .n3 = 2, .arms = arms, .magnitude = 200}, 500, 500);
        for (const Point& point : point_list) EXPECT_NEAR(distance(point, {500, 500}), 200, 1.5);
    }
    plot_supershape({.n1 = 2, .n2 = 2, .n3 = 2, .arms = 1, .magnitude = 10}, -100, 5);
    EXPECT_EQ(point_list[0], (Point{-90, 5}));
    EXPECT_EQ(point_list[1], (Point{-90, 5})) << "-90.0005, toward 0";
    const auto gaps = plot_supershape({.n1 = 2, .n2 = 2, .n3 = 2, .arms = 4, .magnitude = 0}, 7, 8);
    EXPECT_TRUE(std::ranges::all_of(point_list, [](Point point) { return point == Point{7, 8}; }));
    EXPECT_TRUE(gaps[0] && !gaps[1]) << "the first point lies exactly level with the centre";
}

TEST_F(ShapePointsTest, SupershapeOutOfAllBoundsStaysWithinFarPixels) {
    for (const Supershape& shape : {Supershape{.n1 = 0.1, .n2 = 30, .n3 = 30, .arms = 5, .magnitude = 500},
                                    {.n1 = 0, .n2 = 1, .n3 = 1, .arms = 3, .magnitude = 500},
                                    {.n1 = 0, .n2 = -30, .n3 = 0, .arms = 20, .magnitude = 500},
                                    {.angle = 359, .n1 = 0.01, .n2 = -30, .n3 = -30, .arms = 20, .magnitude = 500}}) {
        plot_supershape(shape, 100, 100);
        ASSERT_EQ(point_list.size(), 641u);
        for (const Point& point : point_list) EXPECT_LE(std::max(std::abs(point.x), std::abs(point.y)), far_pixel);
    }
}

// ---- SPLINE --------------------------------------------------------------------------------------------------------

void set_nodes(const Points& nodes, int closed, int curve) {
    tool_option(TOOL_SPLINE, OPTION_CLOSED) = closed;
    tool_option(TOOL_SPLINE, OPTION_CURVE) = curve;
    click_points.fill({-1, -1});
    std::ranges::copy(nodes, click_points.begin() + 1);
    point_count = static_cast<int>(nodes.size()) + 2;
    close_spline(point_count - 1);
    build_spline();
}

TEST_F(ShapePointsTest, SplineLeadsThroughItsNodes) {
    const Points nodes{{10, 10}, {90, 10}, {90, 200}, {300, 50}};
    for (const int closed : {0, 1})
        for (const int curve : {0, 33, 100}) {
            set_nodes(nodes, closed, curve);
            ASSERT_EQ(point_list.size(), (nodes.size() - 1 + static_cast<std::size_t>(closed)) * 32);
            for (std::size_t i = 0; i * 32 < point_list.size(); ++i) EXPECT_EQ(point_list[i * 32], nodes[i]);
            EXPECT_EQ(point_list.back(), closed != 0 ? nodes.front() : nodes.back());
        }
    set_nodes(nodes, 0, 0);
    for (std::size_t i = 0; i < 32; ++i) EXPECT_EQ(point_list[i].y, 10) << "straight";
    set_nodes({{100, 100}}, 0, 50);
    EXPECT_TRUE(point_list.empty());
    set_nodes({{100, 100}}, 1, 50);
    EXPECT_TRUE(std::ranges::all_of(point_list, [](Point point) { return point == Point{100, 100}; }));
    set_nodes(Points(254, {40'000, 3}), 1, 50);
    EXPECT_EQ(point_list.size(), 254u * 32) << "the most nodes there may be";
}

TEST_F(ShapePointsTest, SplineTurnsByItsNeighbors) {
    // By hand: at the corner of a right angle the tangent halves it, and the control points lie CURVE of the distance
    // along it: 100 * 0.5 * cos 45 = 35.
    set_nodes({{0, 0}, {100, 0}, {100, 100}}, 0, 50);
    EXPECT_EQ(spline_nodes[2].tangent, itofix(32)) << "45 degrees";
    EXPECT_NEAR(fixtof(node_distance({0, 0}, {300, 400})), 500, 0.1);
    std::array<int, 8> control{};
    get_control_points(spline_nodes[2], spline_nodes[3], control);
    EXPECT_EQ(control, (std::array{100, 0, 135, 35, 100, 50, 100, 100}));
    // The end of an open curve goes on from the node before it.
    EXPECT_EQ(spline_nodes[1].tangent, 0);
    EXPECT_EQ(spline_nodes[3].tangent, itofix(64));
    set_nodes({{0, 0}, {50'000, 50'000}, {100'000, 100'000}}, 0, 50);
    EXPECT_EQ(spline_nodes[2].tangent, itofix(32)) << "beyond what a fixed-point number holds";
}

}  // namespace
}  // namespace nubo
