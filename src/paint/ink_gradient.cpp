// The inks that take their colour from the Spectrum by position: H.GRAD, V.GRAD, L.GRAD, R.GRAD.
#include "base/geometry.h"
#include "paint/gradient_geometry.h"
#include "paint/ink_rows.h"
#include "paint/spectrum.h"
#include "state/cel.h"
#include "state/stroke.h"

#include <cmath>
#include <cstdlib>

namespace nubo {
namespace {

/// The end common to all four: `color_at(x)` gives the gradient's colour on this row.
template <typename ColorAt> void cover_gradient(const InkRow& row, ColorAt color_at) {
    for_each_run(row, [&](const TipRun& run) {
        cover_run_dear(run, run.tip_coverage(), [&](int i) {
            const Color color = color_at(run.x + i);
            return run.tip == 0 ? color : blend_color(run.before[i], color, run.tip_coverage());
        });
    });
}

/// H.GRAD and V.GRAD: the band between two nodes on one axis.
struct AxisBand {
    explicit AxisBand(Ink ink)
        : low(std::min(gradient_node(ink, 0), gradient_node(ink, 1))),
          high(std::max(gradient_node(ink, 0), gradient_node(ink, 1))), length(high + 1 - low),
          repeats(ink_option(ink, OPTION_REPEAT) != 0), banding(ink_option(ink, OPTION_BANDING)),
          is_forward(gradient_node(ink, 0) < gradient_node(ink, 1)) {}

    Color color_at(int place) const {
        const auto t = static_cast<float>(static_cast<double>(steps(place)) / static_cast<double>(length));
        return is_forward ? spectrum_color(spectrum_start, spectrum_end, banding, t)
                          : spectrum_color(spectrum_end, spectrum_start, banding, t);
    }

private:
    long long steps(long long place) const {
        if (!repeats) return place - low;
        return place < low ? high - low - std::llabs(place + 1 - low) % length : (place - low) % length;
    }

    long long low, high, length;  // wide: nodes may lie anywhere
    bool repeats;
    int banding;
    bool is_forward;
};

/// L.GRAD: the position for the distance `d` along the axis, whole pixels.
float linear_position(int d, float length, bool repeats) {
    if (length == 0) return 0;
    if (!repeats) return static_cast<float>(d) / length;
    const int period = static_cast<int>(length + 1);
    if (static_cast<float>(d) < length + 1) {
        const int back = std::abs(static_cast<int>(static_cast<float>(d) - length));
        return (length - static_cast<float>(back % period)) / length;
    }
    return static_cast<float>(d % period) / length;
}

/// R.GRAD: the position for the distance `d` from the centre.
float radial_position(int d, int radius, bool repeats) {
    return static_cast<float>(repeats ? d % radius : d) / static_cast<float>(radius);
}

}  // namespace

template <> void paint_row_with<INK_HGRAD>(const InkRow& row, Color) {
    const AxisBand band(INK_HGRAD);
    cover_gradient(row, [&](int x) { return band.color_at(x); });
}

template <> void paint_row_with<INK_VGRAD>(const InkRow& row, Color) {
    const Color color = AxisBand(INK_VGRAD).color_at(row.y);
    cover_gradient(row, [=](int) { return color; });
}

template <> void paint_row_with<INK_LGRAD>(const InkRow& row, Color) {
    const double along_x = linear_axis.sin, start_x = gradient_node(INK_LGRAD, 0);
    const double from_y = (row.y - static_cast<double>(gradient_node(INK_LGRAD, 1))) * linear_axis.cos;
    const bool repeats = ink_option(INK_LGRAD, OPTION_REPEAT) != 0;
    const int banding = ink_option(INK_LGRAD, OPTION_BANDING);
    cover_gradient(row, [=](int x) {
        const int d = static_cast<int>(std::round(from_y + (x - start_x) * along_x));
        return spectrum_color(spectrum_start, spectrum_end, banding, linear_position(d, linear_axis.length, repeats));
    });
}

template <> void paint_row_with<INK_RGRAD>(const InkRow& row, Color) {
    const int center_x = gradient_node(INK_RGRAD, 0), center_y = gradient_node(INK_RGRAD, 1);
    const int radius = ink_option(INK_RGRAD, OPTION_RADIAL_RADIUS);
    const bool repeats = ink_option(INK_RGRAD, OPTION_REPEAT) != 0;
    const int banding = ink_option(INK_RGRAD, OPTION_BANDING);
    cover_gradient(row, [=](int x) {
        const int d = UA_distance_2d(x, row.y, center_x, center_y);
        return spectrum_color(spectrum_start, spectrum_end, banding, radial_position(d, radius, repeats));
    });
}

}  // namespace nubo
