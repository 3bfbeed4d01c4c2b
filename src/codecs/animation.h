#pragma once
// What the readers and the writers of animations share: pictures that come one after the other, never all at once, and
// how long each stands.
#include "base/bitmap.h"
#include "base/frame_time.h"
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace nubo {

// ---- Reading -------------------------------------------------------------------------------------------------------

/// Takes a picture of an animation: the whole canvas with its alpha in the top byte, the reader's own, and how long it
/// stands. False: no more are wanted; those that follow are counted.
using TakePicture = std::function<bool(BITMAP* canvas, FrameTime time)>;

/// What a reader has found in a file.
struct ReadAnimation {
    int width = 0, height = 0;  // of the canvas, pixels
    int pictures = 0;           // in the file, those that nobody wanted too
    std::uint32_t plays = 0;    // so often; 0 for ever
    std::string cause{};        // why there is none, or why it ends early; empty: all is well
};

// ---- Writing -------------------------------------------------------------------------------------------------------

/// An animation as its writers take it.
struct WrittenAnimation {
    int width = 0, height = 0;       // of the canvas, pixels
    std::vector<FrameTime> times{};  // of each picture, in their order
    /// Gives picture i, a 32-bit memory bitmap of the canvas's size that lives until the next is asked for. Null: it
    /// can't be had, or the user wants no more. Asked for each up to twice, always in their order.
    std::function<BITMAP*(int i)> picture{};
    std::optional<Color> clear{};  // pixels of this colour become clear
    std::uint32_t plays = 0;       // so often; 0 for ever
};

}  // namespace nubo
