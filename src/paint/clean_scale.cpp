#include "paint/clean_scale.h"

#include <algorithm>
#include <array>

namespace nubo {
namespace {

/// The drawing enlarged by Scale2x `times` times. Of each pixel of the drawing before become four: one takes the colour
/// of the two that it touches if they agree, unless either goes on beyond the pixel on the other side.
template <int times> Color doubled(BITMAP* drawing, int x, int y) {
    if constexpr (times == 0) {
        return *pixels_at(drawing, x, y);
    } else {
        const auto before = [drawing](int at_x, int at_y) { return doubled<times - 1>(drawing, at_x, at_y); };
        const int right = (drawing->w << (times - 1)) - 1, bottom = (drawing->h << (times - 1)) - 1;
        const int column = x / 2, row = y / 2, toward_x = x % 2 != 0 ? 1 : -1, toward_y = y % 2 != 0 ? 1 : -1;
        const auto beside = [=](int step) { return before(std::clamp(column + step, 0, right), row); };
        const auto above = [=](int step) { return before(column, std::clamp(row + step, 0, bottom)); };
        const Color touched = beside(toward_x);
        const bool changes = touched == above(toward_y) && touched != beside(-toward_x) && touched != above(-toward_y);
        return changes ? touched : before(column, row);
    }
}

/// A pixel of the drawing and those around it, row by row.
using Around = std::array<Color, 9>;
constexpr std::size_t middle = 4;

Around pixels_around(BITMAP* drawing, int x, int y) {
    const int left = std::max(x - 1, 0), right = std::min(x + 1, drawing->w - 1);
    Around around;
    for (std::size_t row = 0; row < 3; ++row) {
        const Color* const line = pixels_at(drawing, 0, std::clamp(y + static_cast<int>(row) - 1, 0, drawing->h - 1));
        around[row * 3] = line[left], around[row * 3 + 1] = line[x], around[row * 3 + 2] = line[right];
    }
    return around;
}

/// One of the nine pixels that Scale3x makes of the middle one. That of a corner goes by its two sides; that of a side
/// by the corners at both its ends, where the pixel beyond the other end differs.
Color tripled(const Around& p, int column, int row) {
    const auto at = [&p](int x, int y) { return p[static_cast<std::size_t>(middle + 3 * y + x)]; };
    const Color own = p[middle];
    if (at(0, -1) == at(0, 1) || at(-1, 0) == at(1, 0) || (column == 0 && row == 0)) return own;
    if (column != 0 && row != 0) return at(column, 0) == at(0, row) ? at(column, 0) : own;
    const int along_x = row != 0 ? 1 : 0, along_y = 1 - along_x;  // from the side's middle to its ends
    const Color side = at(column, row);
    for (const int end : {-1, 1}) {
        const int x = end * along_x, y = end * along_y;
        if (side == at(x, y) && own != at(column - x, row - y)) return side;
    }
    return own;
}

/// What lies in a flat part, one pixel around, stays as it is however often it is enlarged.
bool is_flat(const Around& around) {
    return std::all_of(around.begin(), around.end(), [&](Color color) { return color == around[middle]; });
}

}  // namespace

Color clean_pixel(BITMAP* drawing, int scale, int x, int y) {
    switch (scale) {
    case 2: return doubled<1>(drawing, x, y);
    case 3: return tripled(pixels_around(drawing, x / 3, y / 3), x % 3 - 1, y % 3 - 1);
    case 4: return doubled<2>(drawing, x, y);
    case clean_scale_finest: {
        const Around around = pixels_around(drawing, x / clean_scale_finest, y / clean_scale_finest);
        return is_flat(around) ? around[middle] : doubled<3>(drawing, x, y);
    }
    default: return doubled<0>(drawing, x, y);
    }
}

}  // namespace nubo
