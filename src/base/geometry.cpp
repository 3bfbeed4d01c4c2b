#include "base/geometry.h"

#include "base/bitmap.h"
#include "state/run.h"

namespace nubo {
namespace {

constexpr double degrees_per_radian = 57.29577950560105;  // a little low: 45 degrees come out just below 45

/// The angle of (dx, dy) from the positive x axis, clockwise on the screen, given that of its absolute values.
template <typename Angle> Angle in_quadrant(bool left, bool up, Angle angle) {
    if (left) return up ? 180 + angle : 180 - angle;
    return up ? 360 - angle : angle;
}

}  // namespace

float UA_angle_degrees(int x1, int y1, int x2, int y2) {
    double dx = static_cast<double>(x2) - x1;
    const double dy = static_cast<double>(y2) - y1;
    if (dx == 0) dx = 0.000001;
    const double angle = std::atan(std::fabs(dy) / std::fabs(dx)) * degrees_per_radian;
    double turned = in_quadrant(dx < 0, dy < 0, angle) - 90;
    if (turned < 0) turned += 360;
    const auto result = static_cast<float>(turned);
    // The rounding to float must not turn "just below 360" into 360.
    return result < 360.0F ? result : std::nextafter(360.0F, 0.0F);
}

int UA_angle_256(int x1, int y1, int x2, int y2) {
    const double dx = static_cast<double>(x2) - x1, dy = static_cast<double>(y2) - y1;
    const double angle = dx == 0 && dy == 0 ? 0 : std::atan(std::fabs(dy) / std::fabs(dx)) * degrees_per_radian;
    const int degrees = in_quadrant(dx < 0, dy < 0, static_cast<int>(angle));
    return (static_cast<int>(degrees * 0.7111111) - 64) & 255;
}

bool UA_in_bitmap(const BITMAP* bitmap, int x, int y) { return frame_contains(bitmap, x, y); }

bool UA_on_screen(int x, int y) { return x >= 0 && x < view_w && y >= 0 && y < view_h; }

}  // namespace nubo
