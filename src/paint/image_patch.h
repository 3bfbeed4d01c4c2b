#pragma once
// A piece of the stroke's surfaces as the original of an image has it: turned or mirrored back, and put together across
// the seams of the tiles. An ink paints there as on the Frame.
#include "paint/image_maps.h"
#include "paint/ink_canvas.h"
#include "state/colors.h"
#include <array>

namespace nubo {

class ImagePatch {
public:
    static constexpr int row_max = 64, reach_max = 5;  // pixels of a row, and how far an ink may look around them

    /// Lays out `length` pixels from the original `start` on, and those `reach` around, of the image by `map`.
    void take(const ImageMap& map, Point start, int length, int reach);

    const InkCanvas& canvas() const { return canvas_; }

    /// Puts the row back to where its image lies. All of it lies in the Frame.
    void put() const;

private:
    static constexpr int width = row_max + 2 * reach_max, height = 2 * reach_max + 1;
    using Surface = std::array<std::array<Color, width>, height>;
    using Lines = std::array<unsigned char*, height>;

    void take_row(int row, int length, int reach);

    ImageMap map_;
    Point start_{};
    int length_ = 0;
    Surface frame_, mask_, before_;
    Lines frame_lines_, mask_lines_, before_lines_;
    InkCanvas canvas_{};
};

}  // namespace nubo
