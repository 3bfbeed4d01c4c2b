#pragma once
// The stroke pipeline: everything that a brush tool puts into the Frame passes here.
#include "state/colors.h"
#include "state/tools.h"
#include <allegro.h>

namespace nubo {

/// One stroke of a tool at the Frame pixel (x, y); shape tools, whose points lie elsewhere, pass (0, 0). `brush` and
/// `ink` 0 to 99, `style` the tip, -1 to 99, `color` what the ink is given. Saves undo, clears the coverage map and
/// runs the tool's case.
void draw_to_frame(int x, int y, int brush, int ink, int style, Color color);

/// One tip at one point of the running stroke, without snapshot; `style` -1 is a single pixel at full strength. A point
/// outside the Frame paints nothing.
void stamp_tip(int x, int y, int brush, int ink, int style, Color color);

/// Pixels (x1, y) to (x2, y), both included, as single ink pixels at full strength: what `stamp_tip` with `style` -1
/// does on each, clipped and painted as one row.
void stamp_row(int x1, int x2, int y, int ink, Color color);

/// The per-point function given to Allegro's `do_line` and `do_circle`: one tip of the active tool, ink and tip, in the
/// colour `d`.
void stamp_callback(BITMAP* bitmap, int x, int y, int d);

/// A filled circle of single ink pixels.
void fill_disc(int center_x, int center_y, int radius, Color color);

/// Shows the paint as it arrives: `update_screen(1)` if a 45 Hz tick has passed since the last update. Every loop that
/// stamps many pixels calls it.
void refresh_stroke();

}  // namespace nubo
