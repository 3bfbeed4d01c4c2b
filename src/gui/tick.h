#pragma once
// The timer handlers of the GUI and of the mouse.

namespace nubo {

/// Hit testing, presses, sliders, text fields and tooltips, after the view's own work; 120 or 60 Hz. Timer handler.
void GUI_tick();

/// Brings `mouse_x` and `mouse_y`, logical pixels, up to the place of Allegro's mouse; 500 Hz. Timer handler; the
/// freehand strokes call it too, so that they don't lag behind the hand.
void mouse_tick();

/// Steps the phase of the text cursor, 10 Hz. Timer handler.
void cursor_tick();

}  // namespace nubo
