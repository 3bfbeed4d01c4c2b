#include "paint/selection.h"

#include "base/memory.h"
#include "paint/image_maps.h"
#include "paint/images.h"
#include "paint/shape_fill.h"
#include "paint/tool_colors.h"
#include "paint/tools.h"
#include "state/view.h"

namespace nubo {
namespace {

/// A run that may lie on any tile, and reach over more than one.
void add_on_tiles(PixelSet& set, int x1, int x2, int y) {
    if (tiles_down()) y = wrapped(y, frame_h);
    if (y < 0 || y >= frame_h) return;
    if (!tiles_across()) {
        x1 = std::max(x1, 0), x2 = std::min<int>(x2, frame_w - 1);
        if (x1 <= x2) set.add_run(x1, x2, y);
        return;
    }
    const int length = std::min<int>(x2 - x1 + 1, frame_w), first = wrapped(x1, frame_w);
    set.add_run(first, std::min<int>(first + length, frame_w) - 1, y);
    if (first + length > frame_w) set.add_run(0, first + length - frame_w - 1, y);
}

/// By how much a stretch of `size` from `first` on moves to the tile on which its middle is nearest to `center`.
int shift_to(int center, int first, int size, int extent, bool is_tiled) {
    if (!is_tiled) return 0;
    const int middle = first + size / 2, lowest = center - extent / 2;
    return lowest + wrapped(middle - lowest, extent) - middle;
}

}  // namespace

bool take_polygon(std::span<const Point> way, PixelSet& taken) {
    if (!taken.reset(frame_w, frame_h)) return false;
    const auto fill = [&] {
        fill_polygon(way, paint_window(), [&taken](int x1, int x2, int y) { add_on_tiles(taken, x1, x2, y); });
        return true;
    };
    return unless_memory_ends(fill, false);
}

bool take_filled(Point from, int tolerance, PixelSet& taken) {
    if (!taken.reset(frame_w, frame_h)) return false;
    return find_filled(from, tolerance, [&taken](int x1, int x2, int y) { add_on_tiles(taken, x1, x2, y); });
}

bool take_color(Point like, int tolerance, PixelSet& taken) {
    if (!taken.reset(frame_w, frame_h)) return false;
    const Point real = real_pixel(like);
    if (!frame_contains(current_frame, real.x, real.y)) return true;
    const ColorRange range(*pixels_at(current_frame, real.x, real.y), tolerance);
    for (int y = 0; y < current_frame->h; ++y) {
        const Color* const row = pixels_at(current_frame, 0, y);
        for (int x = 0; x < current_frame->w; ++x)
            if (range.holds(row[x])) taken.add_run(x, x, y);
    }
    return true;
}

Area area_in_view(const PixelSet& set) {
    const Area area = set.area(tiles_across(), tiles_down());
    const int dx = shift_to(view_center_x, area.left, area.width(), frame_w, tiles_across());
    const int dy = shift_to(view_center_y, area.top, area.height(), frame_h, tiles_down());
    return {area.left + dx, area.top + dy, area.right + dx, area.bottom + dy};
}

}  // namespace nubo
