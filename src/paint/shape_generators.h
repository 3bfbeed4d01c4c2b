#pragma once
// The generators of shapes: from values to the points of `point_list`, and to `shape_box` for those that can be
// dragged. They read nothing else. Angles are degrees.
#include "state/shape.h"
#include "state/tools.h"
#include <bitset>

namespace nubo {

/// Empties the list and gives its memory back.
void free_point_list();

/// A regular polygon of `sides`, 3 to 32, around (cx, cy), its corners on a circle of `radius`, 1 to 512; closed. With
/// angle 0 an edge lies at the bottom. The number of points, or -1 with a line in the log when a value is out of range
/// or the list has no memory yet.
int plot_polygon(int cx, int cy, int angle, int radius, int sides);

/// An unbroken outline, pixel by pixel, of the ellipse with the half-axes `a` and `b` that is turned by `rotation`.
/// `steps` is how many points of the circle it goes by, 1 to 360.
void interpolate_ellipse(int cx, int cy, int a, int b, int rotation, int steps);

/// `scale` in hundredths of a pixel to a radian, `spread` how fast the windings part.
void build_spiral(int cx, int cy, int angle, int scale, int wraps, int spread, int flip);

/// What the SUPERSHAPE window's sliders say.
struct Supershape {
    int angle = 0;
    double n1 = 0, n2 = 0, n3 = 0;
    int arms = 1, magnitude = 0;
};
/// The point of the superformula, with a and b of 1, in the direction `phi`, radians; (0, 0) where its r is 0.
void superformula(double m, double n1, double n2, double n3, double phi, double& x, double& y);
/// The 641 points of the shape around (cx, cy), the first of them again at the end. Tells the points to which the
/// preview draws no line from the next one.
std::bitset<supershape_steps> plot_supershape(const Supershape& shape, int cx, int cy);

}  // namespace nubo
