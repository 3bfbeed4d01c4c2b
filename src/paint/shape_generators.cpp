#include "paint/shape_generators.h"

#include "base/log.h"
#include "paint/shape_lines.h"
#include <algorithm>
#include <allegro.h>
#include <cmath>
#include <cstdlib>

namespace nubo {
namespace {

constexpr double radians_per_degree = 0.017453292522222223;
constexpr double short_pi = 3.14159;  // of SPIRAL and SSHAPE
constexpr double half_circle = 180;

void add_to_shape(Point point) {
    point_list.push_back(point);
    shape_box.left = std::min(shape_box.left, point.x);
    shape_box.top = std::min(shape_box.top, point.y);
    shape_box.right = std::max(shape_box.right, point.x);
    shape_box.bottom = std::max(shape_box.bottom, point.y);
}

void begin_shape() {
    point_list.clear();
    shape_box = {};
}

bool are_neighbors(Point a, Point b) { return std::abs(a.x - b.x) <= 1 && std::abs(a.y - b.y) <= 1; }

/// Every pixel of the line, its ends included.
void fill_gap(Point from, Point to) {
    do_line(nullptr, from.x, from.y, to.x, to.y, 0, [](BITMAP*, int x, int y, int) { point_list.push_back({x, y}); });
}

}  // namespace

void free_point_list() { point_list = std::vector<Point>(); }

int plot_polygon(int cx, int cy, int angle, int radius, int sides) {
    constexpr int sides_min = 3, sides_max = 32, radius_max = 512;
    constexpr double pi = 3.141592654, full_circle = 6.283185308;
    begin_shape();
    if (sides < sides_min || sides > sides_max) {
        UA_log("[ ERROR ] : Number of sides OOB in call to plot_polygon. Sides = %d", sides);
        return -1;
    }
    if (radius < 1 || radius > radius_max) {
        UA_log("[ ERROR ] : Radius OOB in call to plot_polygon. Radius = %d", radius);
        return -1;
    }
    if (point_list.capacity() == 0) {
        UA_log("[ ERROR ] : Illegal midget toss detected in sector Z3. Aborting!");
        return -1;
    }
    const double turn = angle * radians_per_degree;
    for (int i = 0; i < sides; ++i) {
        const double a = i * full_circle / sides + pi / sides;
        const double u = radius * std::sin(a), w = radius * std::cos(a);
        add_to_shape({nearest_pixel(std::cos(turn) * u - std::sin(turn) * w) + cx,
                      nearest_pixel(w * std::cos(turn) + u * std::sin(turn)) + cy});
    }
    add_to_shape(point_list.front());
    return static_cast<int>(point_list.size());
}

void interpolate_ellipse(int cx, int cy, int a, int b, int rotation, int steps) {
    constexpr int full_circle = 360;
    const double turn = -rotation * radians_per_degree;
    point_list.clear();
    for (int i = 0; i < full_circle; i += full_circle / steps) {
        const double at = i * radians_per_degree;
        const Point point{pixel_of(std::cos(turn) * std::cos(at) * a - std::sin(turn) * std::sin(at) * b + cx),
                          pixel_of(std::sin(at) * b * std::cos(turn) + std::cos(at) * a * std::sin(turn) + cy)};
        const Point previous = point_list.empty() ? point : point_list.back();
        if (point_list.empty() || (!(point == previous) && are_neighbors(point, previous)))
            point_list.push_back(point);
        else if (!(point == previous))
            fill_gap(previous, point);
    }
    if (!are_neighbors(point_list.front(), point_list.back())) fill_gap(point_list.front(), point_list.back());
}

void build_spiral(int cx, int cy, int angle, int scale, int wraps, int spread, int flip) {
    constexpr double winding = 6.28, theta_step = 0.01, scale_unit = 100, spread_unit = 30'000;
    constexpr std::size_t points_of_winding = 628;
    begin_shape();
    point_list.reserve((static_cast<std::size_t>(wraps) + 1) * points_of_winding);
    const double turn = angle * short_pi / half_circle, cos_turn = std::cos(turn), sin_turn = std::sin(turn);
    double growth = 1;
    for (double theta = 0; theta < wraps * winding; theta += theta_step) {
        const double x = theta * growth * std::cos(theta) * (scale / scale_unit);
        const double y = theta * growth * std::sin(theta) * (scale / scale_unit);
        const double turned_x = cos_turn * x - y * sin_turn, turned_y = x * sin_turn + y * cos_turn;
        add_to_shape({pixel_of(flip != 0 ? -turned_x : turned_x) + cx, pixel_of(turned_y) + cy});
        growth += spread / spread_unit;
    }
}

void superformula(double m, double n1, double n2, double n3, double phi, double& x, double& y) {
    const double q = m * phi * 0.25;
    const double r = std::pow(std::pow(std::fabs(std::cos(q)), n2) + std::pow(std::fabs(std::sin(q)), n3), 1 / n1);
    x = r == 0 ? 0 : std::cos(phi) / r;
    y = r == 0 ? 0 : std::sin(phi) / r;
}

std::bitset<supershape_steps> plot_supershape(const Supershape& shape, int cx, int cy) {
    constexpr double full_circle = 6.28318;
    const double turn = shape.angle * short_pi / half_circle, cos_turn = std::cos(turn), sin_turn = std::sin(turn);
    std::bitset<supershape_steps> gaps;
    begin_shape();
    point_list.reserve(list_capacity);
    for (int i = 0; i < supershape_steps; ++i) {
        double x = 0, y = 0;
        superformula(shape.arms, shape.n1, shape.n2, shape.n3, i * full_circle / supershape_steps, x, y);
        const double turned_x = x * cos_turn - y * sin_turn, turned_y = x * sin_turn + y * cos_turn;
        gaps[static_cast<std::size_t>(i)] = turned_x == 0 || turned_y == 0;
        add_to_shape({pixel_of(turned_x * shape.magnitude + cx), pixel_of(turned_y * shape.magnitude + cy)});
    }
    point_list.push_back(point_list.front());
    return gaps;
}

}  // namespace nubo
