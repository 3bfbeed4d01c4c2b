#pragma once
// Where the images of a pixel lie, by the symmetry and the tiles of the guides.
#include "paint/area.h"
#include "state/frames.h"
#include "state/guides.h"
#include "state/stroke.h"
#include "view/frame_tiles.h"
#include <algorithm>

namespace nubo {

// ---- Symmetry -----------------------------------------------------------------------------------------------------

/// What symmetry does with a tool: all that it paints is painted with its images; or it is run again at each image of
/// its click; or nothing.
enum Imaging : int { IMAGES_ONCE, IMAGES_MIRRORED, IMAGES_RERUN };

/// One image: that of a pixel (x, y) is (xx x + xy y + x0, yx x + yy y + y0).
struct ImageMap {
    int xx = 1, xy = 0, x0 = 0, yx = 0, yy = 1, y0 = 0;
    Point operator()(Point p) const { return {xx * p.x + xy * p.y + x0, yx * p.x + yy * p.y + y0}; }
    /// The same for pixels that lie moved by (dx, dy) from what they are.
    ImageMap of_moved(int dx, int dy) const { return {xx, xy, x0 + xx * dx + xy * dy, yx, yy, y0 + yx * dx + yy * dy}; }
    bool is_itself() const { return xx == 1 && yy == 1; }
    bool keeps_rows() const { return xx != 0; }  // else they become columns
    /// The pixels whose images lie in an area.
    Area sources_of(const Area& area) const;
};

inline constexpr int images_max = 4;
struct ImageMaps {
    std::array<ImageMap, images_max> maps{};  // the first one gives the pixel itself
    int count = 1;
    const ImageMap* begin() const { return maps.data(); }
    const ImageMap* end() const { return maps.data() + count; }
};

/// The s of an axis as the guides hold it, for a Frame of that width or height: the image of x is s - x.
constexpr int axis_of(int stored, int extent) { return stored == axis_in_the_middle ? extent - 1 : stored - 1; }

/// The images by the guides, for the Frame in hand and a tool of this imaging.
ImageMaps image_maps(Imaging imaging);

/// Calls `visit(place, map)` for a pixel and each of its images, each place once.
template <typename Visit> void for_each_image(Imaging imaging, Point pixel, Visit visit) {
    const ImageMaps maps = image_maps(imaging);
    for (const ImageMap* map = maps.begin(); map != maps.end(); ++map) {
        const Point place = (*map)(pixel);
        const auto is_there = [&](const ImageMap& other) { return other(pixel) == place; };
        if (std::none_of(maps.begin(), map, is_there)) visit(place, *map);
    }
}

// ---- Tiles --------------------------------------------------------------------------------------------------------

/// True for a pixel of the Frame, on any tile.
bool lies_in_frame(Point pixel);

/// Calls `visit(dx, dy)` for each way to move an area by whole tiles so that it has a pixel in the Frame; without tiles
/// for (0, 0).
template <typename Visit> void for_each_tile(const Area& area, Visit visit) {
    const auto first = [](bool tiled, int end, int extent) {
        return tiled ? -((end - wrapped(end, extent)) / extent) : 0;
    };
    const auto last = [](bool tiled, int begin, int extent) {
        return tiled ? -((begin - wrapped(begin, extent)) / extent) : 0;
    };
    const bool across = tiles_across(), down = tiles_down();
    for (int row = first(down, area.bottom, frame_h); row <= last(down, area.top, frame_h); ++row)
        for (int column = first(across, area.right, frame_w); column <= last(across, area.left, frame_w); ++column)
            visit(column * frame_w, row * frame_h);
}

}  // namespace nubo
