#pragma once
// SELECT: a Cel of any shape, by lasso and wand. Main flow only.
#include "windows/cel/selection_in_hand.h"

namespace nubo {

/// The window of the CEL menu's SELECT, from which a hand selects on the Frame behind it.
void select_window();

/// Lasso and wand without the window, from their keys on.
void lasso_by_key();
void wand_by_key();

/// Does what the user has asked for with the shape, on a screen cleared of windows.
void end_selection(const PixelSet& shape, SelectEnd end);

}  // namespace nubo
