#pragma once
// Frame jump: while its key is held, a board of thumbnails stands for the windows, and the one marked is jumped to.

namespace nubo {

/// Runs as long as the key is held; builds the drawing menu again at its end. Main flow.
void frame_jump();

}  // namespace nubo
