#pragma once
// Packed colours and their components. A window of Allegro on X11 has pixels of 0x00RRGGBB, the order of `Color`.
#include "state/colors.h"

namespace nubo {

constexpr int red_of(Color color) { return static_cast<int>(color >> 16 & 0xff); }
constexpr int green_of(Color color) { return static_cast<int>(color >> 8 & 0xff); }
constexpr int blue_of(Color color) { return static_cast<int>(color & 0xff); }

/// The packed colour of three components, each 0 to 255.
constexpr Color pack_color(int red, int green, int blue) {
    return static_cast<Color>(red) << 16 | static_cast<Color>(green) << 8 | static_cast<Color>(blue);
}

/// Holds a component to 0 to 255 and truncates it.
template <typename Number> constexpr int clamp_component(Number value) {
    return static_cast<int>(value <= Number(0) ? Number(0) : value >= Number(255) ? Number(255) : value);
}

/// Sets Allegro's own colour order to that of `Color`. Without a window its default is another one: called by programs
/// and tests that run under SYSTEM_NONE, after `install_allegro`.
void use_window_color_order();

/// True when `makecol` packs as `Color` does.
bool has_window_color_order();

}  // namespace nubo
