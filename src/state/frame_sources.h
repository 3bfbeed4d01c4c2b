#pragma once
// Which file each Frame is of.
#include "state/frames.h"
#include <array>
#include <string>

namespace nubo {

/// The file that a Frame was opened from, loaded from or saved to last, empty if there was none in this run: what its
/// next SAVE offers. A path where the Frame was opened from outside; else a name, for which the file browser's own
/// folder holds.
inline std::array<std::string, frame_slots> frame_source{};

}  // namespace nubo
