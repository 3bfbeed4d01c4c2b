#pragma once
// What an ink paints on: the surfaces of the stroke, or a piece of them that was laid out anew (`paint/images.h`).
#include "base/bitmap.h"
#include "paint/area.h"
#include "state/stroke.h"

namespace nubo {

/// Three surfaces of one size by their lines, in the coordinates of the rows that are painted on them.
struct InkCanvas {
    using Lines = unsigned char* const*;
    Lines frame_lines, mask_lines, before_lines;  // what is painted, the stroke's coverage so far, the snapshot
    Point origin;                                 // of the lines' first pixel
    Area inside;                                  // the pixels that there are

    Color* frame(int x, int y) const { return at(frame_lines, x, y); }
    Color* mask(int x, int y) const { return at(mask_lines, x, y); }
    Color* before(int x, int y) const { return at(before_lines, x, y); }
    bool has(int x, int y) const {
        return x >= inside.left && x <= inside.right && y >= inside.top && y <= inside.bottom;
    }

private:
    Color* at(Lines lines, int x, int y) const {
        return reinterpret_cast<Color*>(lines[y - origin.y]) + (x - origin.x);
    }
};

}  // namespace nubo
