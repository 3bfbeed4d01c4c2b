#pragma once
// The timer handlers of the GUI.

namespace nubo {

/// Presses, sliders, text fields and tooltips, after the view's own work; 120 or 60 Hz. Timer handler.
void GUI_tick();

/// Steps the phase of the text cursor, 10 Hz. Timer handler.
void cursor_tick();

}  // namespace nubo
