#pragma once
// A picture in tiles: what has changed of it is told by these, so that nobody has to look at all of it.
#include "paint/area.h"
#include <cstdint>
#include <vector>

namespace nubo {

inline constexpr int step_tile_side = 64;  // pixels; those at the right and lower rim may be narrower

/// The tiles of a picture of `width` by `height` pixels, numbered along the rows.
struct TileGrid {
    int width = 0, height = 0;
    int columns() const { return (width + step_tile_side - 1) / step_tile_side; }
    int count() const { return columns() * ((height + step_tile_side - 1) / step_tile_side); }
    /// The pixels of a tile.
    Area area_of(int tile) const;
};

/// Some tiles of a grid, each once, in the order in which they came.
class TileSet {
public:
    /// None, of a grid over so many pixels. Here alone memory is taken, which may throw.
    void reset(int width, int height);

    /// Adds the tiles that have a pixel in an area, which lies within the grid.
    void add(const Area& area);
    void add(int tile) {
        if (marked_[static_cast<std::size_t>(tile)] != 0) return;
        marked_[static_cast<std::size_t>(tile)] = 1;
        tiles_.push_back(tile);
    }
    void add_all();
    void clear();
    /// Takes one out, the last that came; there must be one.
    int take();

    const TileGrid& grid() const { return grid_; }
    const std::vector<int>& tiles() const { return tiles_; }
    bool empty() const { return tiles_.empty(); }

private:
    TileGrid grid_;
    std::vector<std::uint8_t> marked_;  // by tile
    std::vector<int> tiles_;            // its capacity is the grid's count
};

}  // namespace nubo
