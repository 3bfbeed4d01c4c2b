#pragma once
// The question what becomes of the alpha of a picture that comes in. Main flow only.
#include "codecs/alpha.h"
#include <optional>

namespace nubo {

/// Asks, in place of the window on screen, which comes back; nothing where the user leaves.
std::optional<AlphaRule> ask_alpha_rule();

/// Asks if the picture has alpha, and takes it out; what is clear becomes `clear`. False where the user leaves.
bool settle_alpha_by_user(ReadPicture& picture, Color clear);

}  // namespace nubo
