#pragma once

namespace nubo {

/// A rectangle of pixels, all four sides included.
struct Area {
    int left = 0, top = 0, right = 0, bottom = 0;
    int width() const { return right + 1 - left; }
    int height() const { return bottom + 1 - top; }
};

}  // namespace nubo
