#pragma once
// The images of paint: where symmetry mirrors or turns it, and where it comes in again when the Frame is a tile.
//
// An image is painted as if the Frame were mirrored, painted and mirrored back, so that a mirrored Frame stays mirrored
// under every ink. Each pixel is painted with all its images at once, before the next one: none of them sees the
// others. Images are made of what isn't clipped yet, then wrapped around the Frame, and each is clipped by itself.
#include "paint/image_maps.h"
#include "paint/inks.h"

namespace nubo {

/// Paints a row that may lie anywhere, with all its images.
void paint_row(const InkRow& row, Ink ink, Color color);

/// Where paint can be seen: none of the images of a pixel beyond reaches the Frame. A tiling goes on without end; what
/// lies very far away is left out there.
Area paint_window();

/// As long as it lives all paint is of a tool with this imaging. Without one it is of IMAGES_ONCE.
class StrokeImaging {
public:
    explicit StrokeImaging(Imaging imaging);
    /// All paint is seen as this image of it alone.
    explicit StrokeImaging(const ImageMap& map);
    ~StrokeImaging();
    StrokeImaging(const StrokeImaging&) = delete;
    StrokeImaging& operator=(const StrokeImaging&) = delete;
};

}  // namespace nubo
