#pragma once
// With SNAP on, corners lie on the edges of the grid's cells. Frame pixels, also beyond the Frame.
#include "state/guides.h"
#include "state/stroke.h"

namespace nubo {

/// The first pixel of the cell in which `pixel` lies, along one axis of a grid.
constexpr int cell_start(int pixel, int offset, int side) {
    const int in_cell = (pixel - offset) % side;
    return pixel - (in_cell < 0 ? in_cell + side : in_cell);
}

/// Moves both corners of a rectangle so far out that it takes whole cells; without SNAP they stay.
inline void snap_corners(Point& from, Point& to) {
    const auto snap_axis = [](int& a, int& b, int offset, int side) {
        int& low = a <= b ? a : b;
        int& high = a <= b ? b : a;
        low = cell_start(low, offset, side);
        high = cell_start(high, offset, side) + side - 1;
    };
    if (guides.snap == 0) return;
    snap_axis(from.x, to.x, guides.cell_x, guides.cell_w);
    snap_axis(from.y, to.y, guides.cell_y, guides.cell_h);
}

/// Of the four pixels in the corners of the cell in which a point lies, the nearest; without SNAP the point. So corners
/// around a cell take that cell and no pixel of its neighbours.
inline Point snapped_corner(Point point) {
    const auto snap = [](int pixel, int offset, int side) {
        const int first = cell_start(pixel, offset, side), last = first + side - 1;
        return pixel - first <= last - pixel ? first : last;
    };
    if (guides.snap == 0) return point;
    return {snap(point.x, guides.cell_x, guides.cell_w), snap(point.y, guides.cell_y, guides.cell_h)};
}

/// The corner of a cell that is the nearest to a point; without SNAP the point.
inline Point snapped_place(Point place) {
    if (guides.snap == 0) return place;
    return {cell_start(place.x + guides.cell_w / 2, guides.cell_x, guides.cell_w),
            cell_start(place.y + guides.cell_h / 2, guides.cell_y, guides.cell_h)};
}

}  // namespace nubo
