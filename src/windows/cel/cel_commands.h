#pragma once
// The commands of the CEL menu, which the hotkeys share. Each works on a screen cleared of windows. Main flow only.
#include "paint/pixel_set.h"
#include "state/tools.h"

namespace nubo {

/// GET: two corners of the Frame that become the Cel. (x, y) is the first, or x is -9000 and it is still to be clicked.
/// 1 if the Cel was taken, -1 if the user left or there is no memory; then it is the Cel as before. `hide_menu` takes
/// the drawing menu off the screen meanwhile.
int grab_cel(int x, int y, bool hide_menu);

/// CLIP: the Cel becomes the tight box of what isn't of `background`, which is outlined for a moment. Nothing happens
/// if that isn't at least two pixels wide and high.
void clip_cel(unsigned background);

/// TURN and STRETCH, from the first click to the commit.
void turn_cel();
void stretch_cel();
/// TURN from the first click on, which was at the Frame pixel (x, y).
void turn_cel_about(int x, int y);

/// Asks, and converts the Cel to the brush colour.
void ask_to_convert_cel();

/// The runner of the MOVE tool, from the press to the end: an area is cut out and anchored elsewhere.
void move_tool(BrushTool tool);
/// The work of it, from the press in `click_points[0]` on.
void move_area();

/// The same for the pixels of a set, which isn't empty, from the cut on: only they are cut out.
void move_shape(const PixelSet& shape);

/// The commands as the menu and the keys run them.
void get_by_menu();
void clip_by_menu();
void paste_by_menu();
void paste_by_key();
void below_by_key();

/// Hands the MOVE tool over. At start.
void register_cel_commands();

}  // namespace nubo
