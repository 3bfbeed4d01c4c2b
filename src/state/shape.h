#pragma once
// The shape that a tool builds before it paints it: its points, the box around them, and the nodes of a spline.
#include "state/stroke.h"
#include <array>
#include <vector>

namespace nubo {

// ---- The points ----------------------------------------------------------------------------------------------------

/// The outline of the running shape tool, in frame pixels, but SSHAPE's until its commit from the view's corner. Empty
/// and without memory while no shape tool runs.
inline constinit std::vector<Point> point_list{};

inline constexpr int list_capacity = 642;          // of POLY, R.POLY and SSHAPE, the closing point included
inline constexpr int freehand_capacity = 10'002;   // of FSHAPE
inline constexpr int freehand_points_max = 9'998;  // at which it stops, so that a closed list always fits
inline constexpr int supershape_steps = 640;       // points of SSHAPE, before the closing one

/// The bounding box of a shape that can be dragged, in the same pixels as its points.
struct ShapeBox {
    int left = 99'999, top = 99'999, right = 0, bottom = 0;
};
inline constinit ShapeBox shape_box;
inline constinit int shape_box_shown = 0;  // the preview draws the box too: the shape is being dragged

/// What the status bar tells of the shape in hand, in place of the mouse; with the preview of a tool only.
inline constinit std::array<char, 48> placing_text{};

// ---- The nodes of SPLINE -------------------------------------------------------------------------------------------

struct SplineNode {
    int x = 0, y = 0;
    int tangent = 0;  // Allegro's fixed-point angle
};
inline constexpr int spline_nodes_max = click_slots - 2;  // the user's, in `click_points` from slot 1 on
/// The nodes with those that close the curve or lead out of it: up to three more than there are slots.
inline constinit std::array<SplineNode, click_slots + 3> spline_nodes{};
inline constinit int point_count = 0;  // of SPLINE: the next free slot of `click_points`, and 1

}  // namespace nubo
