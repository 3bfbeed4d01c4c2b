#pragma once
// The Frame at another size: resized, cropped, or laid out anew as a sprite sheet. All memory is taken first: on
// failure the Frame, its undo history and what RESTORE returns to are as before, the log and the status bar tell.
// Afterwards the undo history is empty and the status bar tells of RESTORE, which keeps the old size. The file on disk
// is as it was until the Frame is left.
#include "state/colors.h"

namespace nubo {

/// The nine places of the old Frame in the new one, in reading order.
inline constexpr int anchor_count = 9, anchors_a_row = 3;

/// Gives the Frame in memory, which is that of `slot`, another size, each side 2 to 65,535: its picture cut or padded
/// with black about the anchor, 0 to 8, or scaled to the new size.
bool resize_frame(int slot, int width, int height, int anchor, bool scale);

/// Makes a part of the Frame the whole of it; what of the part lies beyond the Frame is black.
bool crop_frame(int left, int top, int width, int height);

struct SpriteSheet {
    int sprite_w = 16, sprite_h = 16;  // 1 to 256
    int x_spacing = 0, y_spacing = 0;  // 0 to 256; 0: neighbours share their border
    int rows = 8, columns = 8;         // 1 to 256
    Color sprite = 0, sheet = 0, border = 0;
    /// From a sprite's border to the next one's.
    int cell_w() const { return x_spacing + 1 + sprite_w; }
    int cell_h() const { return y_spacing + 1 + sprite_h; }
    int width() const { return 1 - x_spacing + cell_w() * columns; }
    int height() const { return 1 - y_spacing + cell_h() * rows; }
};

/// Makes the Frame a sheet of empty sprites, each in a border of one pixel.
bool make_sprite_sheet(const SpriteSheet& sheet);

}  // namespace nubo
