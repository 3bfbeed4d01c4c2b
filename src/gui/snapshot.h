#pragma once
// The picture of the drawing menu that stands dimly behind an activity menu.
#include <allegro.h>

namespace nubo {

/// Draws the elements as they stand into `bitmap`, 0xff00ff where none is, and sets `menu_shadow` to the rectangle of
/// the window on screen. It draws them in `screen_buffer`, of which the next update makes a whole picture again.
void take_menu_snapshot(BITMAP* bitmap);

/// No shadow from now on.
void clear_menu_shadow();

}  // namespace nubo
