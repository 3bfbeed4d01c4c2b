#pragma once
// Where the user looks for files.
#include "state/options.h"

namespace nubo {

inline constinit std::array<char, path_size> browse_dir{};  // in which the file browser opens where no home is set

}  // namespace nubo
