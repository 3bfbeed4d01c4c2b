#pragma once
// The colours of the window. The program's pixels are 0x00RRGGBB; a display of another depth or order has them turned
// into its own while they are shown.

struct BITMAP;

namespace nubo {

/// Looks at the window's visual, once the graphics mode is set, and gives Allegro our order of colours for all that
/// isn't the window. False, with nothing changed, when the visual has no colours but those of a palette.
bool adopt_window_colors();

/// Turns `height` rows of a picture from row `top` on into what the window takes.
void convert_to_window(BITMAP* picture, int top, int height);

}  // namespace nubo
