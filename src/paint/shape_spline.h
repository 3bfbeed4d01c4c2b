#pragma once
// The curve of SPLINE: from the nodes in `click_points` to the points of `point_list`.
#include "state/shape.h"

namespace nubo {

/// Copies the user's nodes, the slots 1 to `n` - 1 of `click_points`, to `spline_nodes`, and adds those that close the
/// curve, or end it, by the tool's option CLOSED.
void close_spline(int n);

/// Each node's direction, that from the one before it to the one after it. An open curve gets a node beyond each end.
void calc_tangents(int count);

/// The distance of two nodes, as Allegro's fixed-point number.
int node_distance(const SplineNode& a, const SplineNode& b);

/// The four control points of the curve between two nodes, x and y by turns, by the tool's option CURVE.
void get_control_points(const SplineNode& a, const SplineNode& b, std::array<int, 8>& points);

/// Builds the curve through the `point_count` - 2 user nodes that `close_spline` has copied: 32 points from each node
/// to the next.
void build_spline();

}  // namespace nubo
