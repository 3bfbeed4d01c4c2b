#pragma once
// Colours taken from the screen. Main flow only.

namespace nubo {

inline constexpr int pick_cancelled = -1;

/// The colour of the screen under the mouse, with cursor, crosshairs and tint left out: a Color as it is now with
/// `at_once`, otherwise that of the user's next left press; `pick_cancelled` after a right press. Elements take no
/// press meanwhile, so that swatches and buttons can be picked like all else.
int pick_screen_color(bool at_once);

/// Asks the user for two colours of the screen as the new ends of the Spectrum; a right press leaves it as it is.
void pick_spectrum();

}  // namespace nubo
