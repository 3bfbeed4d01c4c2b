#include "paint/shape_fill.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <utility>
#include <vector>

namespace nubo {
namespace {

// Columns as fixed-point numbers, of which a pixel is this large. More or fewer digits give other pixels on the rim.
constexpr int fraction_bits = 18;
using Fixed = std::int64_t;
constexpr Fixed pixel = Fixed{1} << fraction_bits;

/// An edge between two points: on each row it covers the columns through which it passes there.
struct Edge {
    int top, bottom;            // rows, both included
    Fixed start;                // left end of what it covers on its first row
    Fixed slope;                // columns to a row
    Fixed left = 0, right = 0;  // what it covers on the present row
};

Edge edge_between(Point a, Point b) {
    if (b.y < a.y) std::swap(a, b);
    const Fixed run = (Fixed{b.x} - a.x) * pixel;
    Edge edge{a.y, b.y, a.x * pixel + pixel / 2, a.y == b.y ? 2 * run : run / (Fixed{b.y} - a.y)};
    if (edge.slope < 0) edge.start += edge.slope / 2;
    return edge;
}

/// On its first and on its last row an edge covers only half of what it covers on the others.
void move_to_row(Edge& edge, int row) {
    edge.left = edge.start + edge.slope * (row - edge.top);
    if (row > edge.top && edge.slope > 0) edge.left -= edge.slope / 2;
    if (row > edge.top && row == edge.bottom && edge.slope < 0) edge.left -= edge.slope / 2;
    const Fixed width = std::max<Fixed>(std::abs(edge.slope) - 1, 0);
    edge.right = edge.left + (row == edge.top || row == edge.bottom ? width / 2 : width);
}

/// By their left ends; from row to row few change places.
void sort_edges(std::vector<Edge>& edges) {
    for (std::size_t i = 1; i < edges.size(); ++i)
        for (std::size_t j = i; j > 0 && edges[j].left < edges[j - 1].left; --j) std::swap(edges[j], edges[j - 1]);
}

/// The runs of one row: what the edges cover, and what lies between an edge that leads in and one that leads out.
template <typename Paint> void paint_row(const std::vector<Edge>& edges, int row, Paint paint) {
    if (edges.empty()) return;
    const auto column = [](Fixed at) { return at >> fraction_bits; };
    Fixed first = column(edges.front().left), last = first;
    bool inside = false;
    for (const Edge& edge : edges) {
        if (!inside && column(edge.left) > last + 1) {
            paint(first, last);
            first = column(edge.left);
        }
        last = std::max(last, column(edge.right));
        if (row != edge.bottom) inside = !inside;
    }
    paint(first, last);
}

std::vector<Edge> edges_of(std::span<const Point> points, const Area& clip) {
    std::vector<Edge> edges;
    edges.reserve(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Edge edge = edge_between(points[i], points[i == 0 ? points.size() - 1 : i - 1]);
        if (edge.bottom >= clip.top && edge.top <= clip.bottom) edges.push_back(edge);
    }
    std::ranges::stable_sort(edges, {}, &Edge::top);
    return edges;
}

}  // namespace

void fill_polygon(std::span<const Point> points, const Area& clip, const PaintRun& paint) {
    const std::vector<Edge> edges = edges_of(points, clip);
    if (edges.empty()) return;
    std::vector<Edge> active;
    auto next = edges.begin();
    for (int row = std::max(edges.front().top, clip.top);
         row <= clip.bottom && (next != edges.end() || !active.empty()); ++row) {
        std::erase_if(active, [row](const Edge& edge) { return edge.bottom < row; });
        for (; next != edges.end() && next->top <= row; ++next) active.push_back(*next);
        for (Edge& edge : active) move_to_row(edge, row);
        sort_edges(active);
        paint_row(active, row, [&](Fixed first, Fixed last) {
            first = std::max<Fixed>(first, clip.left), last = std::min<Fixed>(last, clip.right);
            if (first <= last) paint(static_cast<int>(first), static_cast<int>(last), row);
        });
    }
}

}  // namespace nubo
