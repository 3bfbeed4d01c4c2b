#pragma once
// What the readers of animations share: pictures that come one after the other, never all at once, and
// how long each stands.
#include "base/bitmap.h"
#include "base/frame_time.h"
#include <cstdint>
#include <functional>
#include <string>

namespace nubo {

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

}  // namespace nubo
