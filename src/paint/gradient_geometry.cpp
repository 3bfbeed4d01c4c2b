#include "paint/gradient_geometry.h"

#include "base/geometry.h"
#include "state/cel.h"
#include "state/stroke.h"
#include <cmath>

namespace nubo {

void update_gradient_geometry() {
    constexpr double radians_per_degree = 0.017453277777777776;
    const int x1 = gradient_node(INK_LGRAD, 0), y1 = gradient_node(INK_LGRAD, 1), x2 = gradient_node(INK_LGRAD, 2),
              y2 = gradient_node(INK_LGRAD, 3);
    linear_axis.angle = static_cast<float>(-UA_angle_degrees(x1, y1, x2, y2) * radians_per_degree);
    linear_axis.length = static_cast<float>(UA_distance_2d(x1, y1, x2, y2));
    linear_axis.sin = std::sin(linear_axis.angle);
    linear_axis.cos = std::cos(linear_axis.angle);
    ink_option(INK_RGRAD, OPTION_RADIAL_RADIUS) =
        UA_distance_2d(gradient_node(INK_RGRAD, 0), gradient_node(INK_RGRAD, 1), gradient_node(INK_RGRAD, 2),
                       gradient_node(INK_RGRAD, 3)) +
        1;
}

}  // namespace nubo
