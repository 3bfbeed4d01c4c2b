#pragma once
// What each tool paints once its points are known: the cases of `draw_to_frame`, which has saved undo and cleared the
// coverage map before. Called by the stroke pipeline only.
#include "state/colors.h"
#include "state/tools.h"

namespace nubo {

// ---- Shapes between two points: from `click_points` 0 and 1 --------------------------------------------------------

void commit_box(int ink);
void commit_circle();
void commit_line();

// ---- Freehand: from the first point (x, y) until `mouse_left` is up ------------------------------------------------

void run_draw(int x, int y, int ink, int style);
void run_driz(int x, int y);
void run_spray(int x, int y, int ink);

// ---- By colour: over all the pixels of the Frame that are like the one at (x, y) -----------------------------------

/// Outlines the colour, on its inner rim.
void commit_edge(int x, int y, int ink);
/// Paints every pixel of the colour.
void commit_sep(int x, int y, int ink);

}  // namespace nubo
