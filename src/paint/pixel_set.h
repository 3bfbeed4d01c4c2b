#pragma once
// Some of the Frame's pixels: what the lasso or the wand has taken.
#include "paint/area.h"
#include <cstddef>
#include <cstdint>
#include <vector>

namespace nubo {

class PixelSet {
public:
    /// Becomes empty, of a Frame of w by h pixels. False, with all as it was, without memory.
    bool reset(int w, int h);

    bool is_of(int w, int h) const { return w == width_ && h == height_; }
    bool empty() const { return count_ == 0; }
    std::size_t count() const { return count_; }
    bool has(int x, int y) const {
        return x >= 0 && y >= 0 && x < width_ && y < height_ && pixels_[place_of(x, y)] != 0;
    }

    /// The pixels x1 to x2 of a row, both included, all of them in the Frame.
    void add_run(int x1, int x2, int y);
    /// All of another set of the same size.
    void add(const PixelSet& other);
    void take_away(const PixelSet& other);

    /// Calls `visit(x1, x2, y)` for each run of pixels of a row.
    template <typename Visit> void for_each_run(Visit visit) const {
        for (int y = 0; y < height_; ++y)
            for (int x = 0; x < width_; ++x) {
                if (!has(x, y)) continue;
                const int first = x;
                while (has(x + 1, y)) ++x;
                visit(first, x, y);
            }
    }

    /// The smallest area that holds them all; the set isn't empty. Where the Frame is tiled it may reach over the seam
    /// and so beyond the Frame's end: its first pixel lies in the Frame.
    Area area(bool tiled_across, bool tiled_down) const;

private:
    std::size_t place_of(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
    }

    int width_ = 0, height_ = 0;
    std::size_t count_ = 0;
    std::vector<std::uint8_t> pixels_{};  // 1 or 0, row by row
};

}  // namespace nubo
