#pragma once
// The palette: the favourites from slot 0 on, as many as are its colours.
#include "state/colors.h"
#include <span>

namespace nubo {

/// Its colours; those behind them are blank. Empty where no favourite is set.
std::span<const Color> palette();

}  // namespace nubo
