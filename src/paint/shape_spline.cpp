#include "paint/shape_spline.h"

#include "state/tools.h"
#include <algorithm>
#include <allegro.h>
#include <cstdint>
#include <limits>

namespace nubo {
namespace {

constexpr int piece_points = 32;  // of the curve between two nodes

SplineNode& node(int slot) { return spline_nodes[static_cast<std::size_t>(slot)]; }

bool is_closed() { return tool_option(TOOL_SPLINE, OPTION_CLOSED) != 0; }

/// A node a little beyond the end `last` of an open curve, on the far side from the node `before` it.
SplineNode phantom_node(const SplineNode& last, const SplineNode& before) {
    constexpr int part = 8;
    return {last.x - (before.x - last.x) / part, last.y - (before.y - last.y) / part, 0};
}

}  // namespace

void close_spline(int n) {
    for (int slot = 0; slot < n; ++slot) {
        const Point point = click_points[static_cast<std::size_t>(slot)];
        node(slot).x = point.x;
        node(slot).y = point.y;
    }
    node(n) = is_closed() ? node(1) : node(n - 1);
    if (!is_closed()) return;
    node(n + 1) = node(2);
    node(0) = node(n - 1);
}

void calc_tangents(int count) {
    if (!is_closed()) {
        node(0) = phantom_node(node(1), node(2));
        node(count) = phantom_node(node(count - 1), node(count - 2));
    }
    for (int i = 1; i <= count - 2; ++i) {
        // The directions of far nodes are wanted too, whose differences no fixed-point number holds.
        int dx = node(i + 1).x - node(i - 1).x, dy = node(i + 1).y - node(i - 1).y;
        for (constexpr int fixed_max = 32'767; std::max(std::abs(dx), std::abs(dy)) > fixed_max; dx /= 2, dy /= 2) {
        }
        node(i).tangent = fixatan2(itofix(dy), itofix(dx));
    }
}

int node_distance(const SplineNode& a, const SplineNode& b) {
    // A 64th of the difference as a fixed-point number, so that its square is one too.
    constexpr int part = 64, part_of_pixel = (1 << 16) / part;
    const fixed dx = (b.x - a.x) * part_of_pixel, dy = (b.y - a.y) * part_of_pixel;
    // Far nodes: the products end at the largest number, and so does their sum.
    constexpr std::int64_t fixed_end = std::numeric_limits<fixed>::max();
    const std::int64_t square = std::int64_t{fixmul(dx, dx)} + fixmul(dy, dy);
    return fixmul(fixsqrt(static_cast<fixed>(std::min(square, fixed_end))), itofix(part));
}

void get_control_points(const SplineNode& a, const SplineNode& b, std::array<int, 8>& points) {
    constexpr double percent = 100;
    const fixed reach = fixmul(node_distance(a, b), ftofix(tool_option(TOOL_SPLINE, OPTION_CURVE) / percent));
    const auto reach_x = [&](const SplineNode& at) { return fixtoi(fixmul(fixcos(at.tangent), reach)); };
    const auto reach_y = [&](const SplineNode& at) { return fixtoi(fixmul(fixsin(at.tangent), reach)); };
    points = {a.x, a.y, a.x + reach_x(a), a.y + reach_y(a), b.x - reach_x(b), b.y - reach_y(b), b.x, b.y};
}

void build_spline() {
    const int closed = is_closed() ? 1 : 0, count = point_count + 1;
    const int pieces = point_count + closed - 3;
    point_list.clear();
    calc_tangents(count);
    for (int i = 1; i <= pieces; ++i) {
        std::array<int, 8> control{};
        std::array<int, piece_points> x{}, y{};
        get_control_points(node(i), node(i + 1), control);
        calc_spline(control.data(), piece_points, x.data(), y.data());
        for (std::size_t k = 0; k < piece_points; ++k) point_list.push_back({x[k], y[k]});
    }
}

}  // namespace nubo
