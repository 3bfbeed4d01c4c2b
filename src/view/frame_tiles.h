#pragma once
// The Frame as a tile that repeats around itself, by TILES of the guides: along both axes, one or none.
#include "state/frames.h"
#include "state/guides.h"
#include "state/stroke.h"

namespace nubo {

inline bool tiles_across() { return guides.tiles == TILES_BOTH || guides.tiles == TILES_ACROSS; }
inline bool tiles_down() { return guides.tiles == TILES_BOTH || guides.tiles == TILES_DOWN; }

/// 0 to `extent` - 1, for a place on any tile.
constexpr int wrapped(int place, int extent) {
    const bool lies_there = place >= 0 && place < extent;  // mostly, and a division costs more than all else here
    return lies_there ? place : (place % extent + extent) % extent;
}

/// The pixel of the Frame that a pixel on another tile is; without tiles the pixel itself.
inline Point real_pixel(Point pixel) {
    return {tiles_across() ? wrapped(pixel.x, frame_w) : pixel.x, tiles_down() ? wrapped(pixel.y, frame_h) : pixel.y};
}

}  // namespace nubo
