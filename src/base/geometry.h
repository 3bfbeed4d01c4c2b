#pragma once
// Distances, directions and bits.
#include <algorithm>
#include <allegro.h>
#include <climits>
#include <cmath>

namespace nubo {

/// The Euclidean distance of two points in space, truncated; held at the largest int, which far corners would pass.
inline int UA_distance_3d(int x1, int y1, int z1, int x2, int y2, int z2) {
    const double dx = static_cast<double>(x2) - x1, dy = static_cast<double>(y2) - y1,
                 dz = static_cast<double>(z2) - z1;
    return static_cast<int>(std::min(std::sqrt(dx * dx + dy * dy + dz * dz), static_cast<double>(INT_MAX)));
}

/// The Euclidean distance of two points, truncated.
inline int UA_distance_2d(int x1, int y1, int x2, int y2) { return UA_distance_3d(x1, y1, 0, x2, y2, 0); }

/// The name that the paint engine uses for `UA_distance_3d`.
inline int int_distance(int x1, int y1, int z1, int x2, int y2, int z2) {
    return UA_distance_3d(x1, y1, z1, x2, y2, z2);
}

/// The direction from the first point to the second, in degrees from 0 up to, not including, 360: larger x is 270,
/// smaller y 180, smaller x 90; straight toward larger y lies just below 360.
float UA_angle_degrees(int x1, int y1, int x2, int y2);

/// The direction as a 256th of a circle, for Allegro's rotation calls. By way of whole degrees, each truncated: larger
/// x is 192, smaller y 128, smaller x 63, larger y 255.
int UA_angle_256(int x1, int y1, int x2, int y2);

/// True when the point lies inside the bitmap.
bool UA_in_bitmap(const BITMAP* bitmap, int x, int y);

/// True when the point lies on the logical screen.
bool UA_on_screen(int x, int y);

/// One bit of a value, 0 to 31: its state, and the value with it flipped.
constexpr bool UA_bit_test(unsigned value, int bit) { return (value >> bit & 1U) != 0; }
constexpr unsigned UA_bit_flip(unsigned value, int bit) { return value ^ (1U << bit); }

}  // namespace nubo
