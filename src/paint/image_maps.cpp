#include "paint/image_maps.h"

#include "base/bitmap.h"

namespace nubo {
namespace {

/// By a quarter turn and on, about the crossing of the axes. That lies on a pixel or on a corner of four: where it
/// would lie on an edge it is moved by half a pixel.
void add_quarter_turns(ImageMaps& images, int s, int t) {
    if ((s - t) % 2 != 0) ++t;
    const int sum = (s + t) / 2, difference = (s - t) / 2;
    images.maps = {{{}, {0, -1, sum, 1, 0, -difference}, {-1, 0, s, 0, -1, t}, {0, 1, difference, -1, 0, sum}}};
    images.count = 4;
}

}  // namespace

Area ImageMap::sources_of(const Area& area) const {
    const auto source = [this](int x, int y) {  // the inverse of a turn is its transpose
        return Point{xx * (x - x0) + yx * (y - y0), xy * (x - x0) + yy * (y - y0)};
    };
    const Point a = source(area.left, area.top), b = source(area.right, area.bottom);
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

ImageMaps image_maps(Imaging imaging) {
    ImageMaps images;
    if (imaging == IMAGES_ONCE) return images;
    const int s = axis_of(guides.axis_x, frame_w), t = axis_of(guides.axis_y, frame_h);
    const ImageMap across{-1, 0, s, 0, 1, 0}, down{1, 0, 0, 0, -1, t}, both{-1, 0, s, 0, -1, t};
    const auto add = [&](const ImageMap& map) { images.maps[static_cast<std::size_t>(images.count++)] = map; };
    if (guides.symmetry == SYMMETRY_ACROSS || guides.symmetry == SYMMETRY_BOTH) add(across);
    if (guides.symmetry == SYMMETRY_DOWN || guides.symmetry == SYMMETRY_BOTH) add(down);
    if (guides.symmetry == SYMMETRY_BOTH || guides.symmetry == SYMMETRY_TURN_2) add(both);
    if (guides.symmetry == SYMMETRY_TURN_4) add_quarter_turns(images, s, t);
    return images;
}

bool lies_in_frame(Point pixel) {
    const Point real = real_pixel(pixel);
    return frame_contains(current_frame, real.x, real.y);
}

}  // namespace nubo
