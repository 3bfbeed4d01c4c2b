#include "paint/cel_clean.h"

#include "base/bitmap.h"
#include "paint/clean_scale.h"
#include "state/cel.h"
#include "state/guides.h"
#include "state/run.h"
#include "state/shown.h"
#include "state/view.h"
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace nubo {
namespace {

constexpr int right_angle = 90, full_circle = 360;

/// The part of a row or column, from `start` on `size` long, that lies in `low` to `high`.
struct Visible {
    int first, count;
    Visible(int start, int size, int low, int high)
        : first(std::max(start, low)), count(std::max(std::min(start + size, high + 1) - first, 0)) {}
};

// ---- Turned --------------------------------------------------------------------------------------------------------

/// The Cel's pixel at (u, v) of the Cel turned by whole right angles, with the clock.
Color turned_pixel(int quarters, int u, int v) {
    switch (quarters) {
    case 1: return *pixels_at(cel, v, cel->h - 1 - u);
    case 2: return *pixels_at(cel, cel->w - 1 - u, cel->h - 1 - v);
    case 3: return *pixels_at(cel, cel->w - 1 - v, u);
    default: return *pixels_at(cel, u, v);
    }
}

void put_quarter_turned(int quarters, int x, int y, const Area& window, const PutRow& put) {
    const bool lies = quarters % 2 != 0;
    const int w = lies ? cel->h : cel->w, h = lies ? cel->w : cel->h, left = x - w / 2, top = y - h / 2;
    const Visible across(left, w, window.left, window.right), down(top, h, window.top, window.bottom);
    std::vector<Color> colors(static_cast<std::size_t>(across.count));
    for (int row = down.first; row < down.first + down.count && across.count > 0; ++row) {
        for (int i = 0; i < across.count; ++i)
            colors[static_cast<std::size_t>(i)] = turned_pixel(quarters, across.first + i - left, row - top);
        put(colors.data(), across.count, across.first, row);
    }
}

/// From the middle of a pixel of the Frame to the place in the Cel, eight times enlarged.
struct TurnedPlaces {
    double sine, cosine, middle_x, middle_y;
    TurnedPlaces(int degrees, int x, int y)
        : sine(std::sin(degrees * M_PI / 180)), cosine(std::cos(degrees * M_PI / 180)),
          middle_x(x - cel->w / 2 + cel->w / 2.0), middle_y(y - cel->h / 2 + cel->h / 2.0) {}

    Color pixel(int x, int y) const {
        const double dx = x + 0.5 - middle_x, dy = y + 0.5 - middle_y;
        const auto place = [](double from_middle, int side) {
            return static_cast<int>(std::floor((from_middle + side / 2.0) * clean_scale_finest));
        };
        const int column = place(dx * cosine + dy * sine, cel->w), row = place(dy * cosine - dx * sine, cel->h);
        const bool inside =
            column >= 0 && row >= 0 && column < cel->w * clean_scale_finest && row < cel->h * clean_scale_finest;
        return inside ? clean_pixel(cel, clean_scale_finest, column, row) : transparent_color;
    }
};

// ---- Stretched -----------------------------------------------------------------------------------------------------

/// The enlargement that a stretch to `w` by `h` goes by: its own, if there is one, else the finest.
int scale_of(int w, int h) {
    const int scale = w / cel->w;
    const bool is_even = scale * cel->w == w && scale * cel->h == h;
    return is_even && is_clean_scale(scale) ? scale : clean_scale_finest;
}

/// Where in the enlarged Cel, whose side is `source`, the middles of the pixels of a stretch lie: from its pixel
/// `first` on, of `size`.
std::vector<int> places_of(std::int64_t source, bool mirrored, int first, int count, std::int64_t size) {
    std::vector<int> places(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const auto place = static_cast<int>((2 * std::int64_t{first + i} + 1) * source / (2 * size));
        places[static_cast<std::size_t>(i)] = mirrored ? static_cast<int>(source) - 1 - place : place;
    }
    return places;
}

// ---- The preview ---------------------------------------------------------------------------------------------------

constinit CelPlace stood{};
constinit int stood_pan_x = 0, stood_pan_y = 0;
constinit int stands_since = 0;  // `UA_clock_ticks`
constinit bool is_drawn = false;
constinit std::array<Color, view_w * view_h> drawn{};  // what lies on the overlay, as long as nothing moves

bool is_same_place(const CelPlace& a, const CelPlace& b) {
    return a.x == b.x && a.y == b.y && a.x2 == b.x2 && a.y2 == b.y2 && a.degrees == b.degrees && a.mode == b.mode;
}

}  // namespace

void put_turned(int x, int y, const Area& window, const PutRow& put) {
    const int degrees = cel_place.degrees % full_circle;
    if (degrees % right_angle == 0) return put_quarter_turned(degrees / right_angle, x, y, window, put);
    const TurnedPlaces places(degrees, x, y);
    const int reach = static_cast<int>(std::hypot(cel->w, cel->h) / 2) + 2;
    const Visible across(x - reach, 2 * reach, window.left, window.right),
        down(y - reach, 2 * reach, window.top, window.bottom);
    std::vector<Color> colors(static_cast<std::size_t>(across.count));
    for (int row = down.first; row < down.first + down.count && across.count > 0; ++row) {
        for (int i = 0; i < across.count; ++i)
            colors[static_cast<std::size_t>(i)] = places.pixel(across.first + i, row);
        put(colors.data(), across.count, across.first, row);
    }
}

void put_stretched(const StretchEnds& ends, const Area& window, const PutRow& put) {
    const int w = std::abs(ends.x2 - ends.x), h = std::abs(ends.y2 - ends.y);
    const int left = std::min(ends.x, ends.x2), top = std::min(ends.y, ends.y2);
    const Visible across(left, w, window.left, window.right), down(top, h, window.top, window.bottom);
    if (across.count == 0 || down.count == 0) return;
    const int scale = scale_of(w, h);
    const auto columns =
        places_of(std::int64_t{cel->w} * scale, ends.x2 < ends.x, across.first - left, across.count, w);
    const auto rows = places_of(std::int64_t{cel->h} * scale, ends.y2 < ends.y, down.first - top, down.count, h);
    std::vector<Color> colors(columns.size());
    for (std::size_t row = 0; row < rows.size(); ++row) {
        const bool is_repeated = row > 0 && rows[row] == rows[row - 1];
        for (std::size_t i = 0; i < columns.size() && !is_repeated; ++i)
            colors[i] =
                i > 0 && columns[i] == columns[i - 1] ? colors[i - 1] : clean_pixel(cel, scale, columns[i], rows[row]);
        put(colors.data(), across.count, across.first, down.first + static_cast<int>(row));
    }
}

bool shows_clean() {
    constexpr int moment = clock_hz / 25;
    if (guides.clean_cel == 0) return is_drawn = false;
    if (!is_same_place(stood, cel_place) || stood_pan_x != shown.pan_x || stood_pan_y != shown.pan_y) {
        stood = cel_place, stood_pan_x = shown.pan_x, stood_pan_y = shown.pan_y;
        stands_since = UA_clock_ticks;
        is_drawn = false;
    }
    return is_drawn || UA_clock_ticks - stands_since >= moment;
}

void draw_clean(const std::function<void(const PutRow& put)>& draw) {
    if (!is_drawn) {
        drawn.fill(transparent_color);
        draw([](const Color* colors, int length, int x, int y) {
            std::copy_n(colors, length, &drawn[static_cast<std::size_t>(y * view_w + x)]);
        });
        is_drawn = true;
    }
    for (int y = 0; y < view_h; ++y)
        std::copy_n(&drawn[static_cast<std::size_t>(y * view_w)], view_w, pixels_at(overlay, 0, y));
}

void renew_clean_preview() { is_drawn = false; }

}  // namespace nubo
