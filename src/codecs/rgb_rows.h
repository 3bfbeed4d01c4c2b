#pragma once
// Rows of three bytes a pixel, which most formats have in one order or the other, to colours and back.
#include "state/colors.h"
#include <cstdint>

namespace nubo {

enum ByteOrder : int { BYTES_RGB, BYTES_BGR };

/// `width` colours become three bytes each. Nothing behind them is written.
void pack_row(const Color* from, std::uint8_t* to, int width, ByteOrder order);

/// The reverse; every top byte is 0.
void unpack_row(const std::uint8_t* from, Color* to, int width, ByteOrder order);

}  // namespace nubo
