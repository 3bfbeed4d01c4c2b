#pragma once
// The Cel: a rectangle of pixels to paste, and the pattern of the TILE and SCRAPE inks.
#include "state/shared.h"

struct BITMAP;

namespace nubo {

inline constinit BITMAP* cel = nullptr;       // working copy: pixels near `mask_color` become 0xff00ff
inline constinit BITMAP* cel_mask = nullptr;  // the Cel as grabbed, with all its pixels; never smaller than 1x1
inline constinit int cel_x = 0, cel_y = 0;    // where it last stood; origin of the tile in TILE and SCRAPE
inline constinit int cel_angle = 0;           // last angle of TURN, degrees
inline constinit int cel_visible = 0;         // the placement overlaps the view
enum CelMode : int {
    CEL_STRETCH = 0,
    CEL_TURN = 1,
    CEL_PASTE = 2,
    CEL_BELOW = 3,
    CEL_AS_IS = 4  // as PASTE, without the ink
};
/// The running placement; all fields -1 when nothing is being placed.
struct CelPlace {
    int x = -1, y = -1;           // left, top; the pivot in TURN; the fixed corner in STRETCH
    int x2 = -1, y2 = -1;         // the moving corner in STRETCH; x2: the angle in 256ths of a circle in TURN
    int mode = -1;                // a CelMode
    int left = -1, top = -1;      // the shape on screen
    int right = -1, bottom = -1;  // width and height in STRETCH, right and bottom in TURN
    int selected = -1;            // outline shown; in STRETCH the size is set
    int degrees = -1;             // the angle in TURN, 0 to 360
};
inline constinit CelPlace cel_place;
/// A part of the Frame is nowhere but in the placement: it was cut out of it and waits to be anchored. Until then the
/// Frame in memory mustn't be written for a crash.
inline constinit int area_floats = 0;
inline constinit Shared<int> arrows_move_cel = 0;  // the arrow keys are the placement's and don't pan

}  // namespace nubo
