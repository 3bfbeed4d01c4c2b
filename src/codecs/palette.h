#pragma once
// Palettes as other programs keep them: GPL, a text, and PAL, a text or a RIFF file. Bytes in, bytes out.
#include "platform/memory_packfile.h"
#include "state/colors.h"
#include <span>
#include <vector>

namespace nubo {

inline constexpr std::size_t palette_colors_max = 256;

/// The first colours of the palette, as many as `palette_colors_max`; empty if the bytes are none of that kind.
std::vector<Color> read_gpl(std::span<const std::uint8_t> bytes);
std::vector<Color> read_pal(std::span<const std::uint8_t> bytes);

/// Appends the palette; PAL as a text.
void write_gpl(std::span<const Color> colors, Bytes& bytes);
void write_pal(std::span<const Color> colors, Bytes& bytes);

}  // namespace nubo
