#pragma once
// The one Frame in memory: what takes its place, with what belongs to it.
#include "base/bitmap.h"

namespace nubo {

/// Makes `picture` the Frame in memory, with what belongs to it: the view held to its limits, the backdrop chosen, the
/// coverage map remade, the undo history ended. False, with nothing changed, when the memory can't be had.
bool place_picture(OwnedBitmap picture);

/// The same, and `picture` is what RESTORE returns to.
bool place_frame(OwnedBitmap picture);

/// Takes a preview off the Frame, if there is one.
void end_frame_preview();

/// Puts a black Frame of `view_w` by `view_h` in memory, as RESTORE's copy too. False when the memory can't be had.
bool place_blank_frame();

/// Makes `slot` the current one, with the view that it was left with.
void show_slot(int slot);

}  // namespace nubo
