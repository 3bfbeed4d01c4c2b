#include "paint/tiles.h"

#include <algorithm>

namespace nubo {

Area TileGrid::area_of(int tile) const {
    const int left = tile % columns() * step_tile_side, top = tile / columns() * step_tile_side;
    return {left, top, std::min(left + step_tile_side, width) - 1, std::min(top + step_tile_side, height) - 1};
}

void TileSet::reset(int width, int height) {
    const TileGrid grid{width, height};
    const auto count = static_cast<std::size_t>(grid.count());
    std::vector<int> tiles;
    tiles.reserve(count);
    marked_.assign(count, 0);
    tiles_ = std::move(tiles);
    grid_ = grid;
}

void TileSet::add(const Area& area) {
    const int columns = grid_.columns();
    for (int row = area.top / step_tile_side; row <= area.bottom / step_tile_side; ++row)
        for (int column = area.left / step_tile_side; column <= area.right / step_tile_side; ++column)
            add(row * columns + column);
}

void TileSet::add_all() {
    for (int tile = 0; tile < grid_.count(); ++tile) add(tile);
}

void TileSet::clear() {
    for (const int tile : tiles_) marked_[static_cast<std::size_t>(tile)] = 0;
    tiles_.clear();
}

int TileSet::take() {
    const int tile = tiles_.back();
    tiles_.pop_back();
    marked_[static_cast<std::size_t>(tile)] = 0;
    return tile;
}

}  // namespace nubo
