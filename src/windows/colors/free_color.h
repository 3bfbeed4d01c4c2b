#pragma once
// A mask colour that no Frame holds, so that clear ground is told from paint. Main flow only.
#include "state/colors.h"
#include <optional>

namespace nubo {

/// A colour that no pixel of any Frame has, a vivid one if it can be. None when the user ends the search.
std::optional<Color> free_color();

/// Asks, where a Frame holds the old mask colour, whether its pixels shall be of the new one in all Frames, a step of
/// undo in each.
void ask_to_carry_mask(Color old_mask, Color new_mask);

}  // namespace nubo
