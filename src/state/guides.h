#pragma once
// What painters switch on while they paint: symmetry, tiled painting, ghosts of neighbour Frames, grids, the checker
// where the mask colour is, pictures that leave with it clear, a palette that holds; and the times of the Frames. It
// belongs to the Workspace and is stored with it, to the byte as workspace/guide_fields.h tells.
#include "state/frames.h"
#include "state/shared.h"
#include <array>
#include <cstdint>

namespace nubo {

/// What a stroke's images are to it: ACROSS is its mirror image at a vertical axis, DOWN at a horizontal one, TURN is
/// around the crossing of both.
enum Symmetry : int {
    SYMMETRY_OFF,
    SYMMETRY_ACROSS,
    SYMMETRY_DOWN,
    SYMMETRY_BOTH,
    SYMMETRY_TURN_2,
    SYMMETRY_TURN_4,
    SYMMETRY_COUNT
};
enum Tiling : int { TILES_OFF, TILES_BOTH, TILES_ACROSS, TILES_DOWN, TILES_COUNT };
/// Where the Cel has no pixel: nowhere, or where it is 0xff00ff, since it was cut off at the Frame's edge, or cut out
/// along a shape, which CEL - MASKING then leaves whole.
enum CelShape : int { CEL_IS_WHOLE, CEL_IS_CUT_OFF, CEL_IS_CUT_OUT, CEL_SHAPE_COUNT };
enum AnimationLoop : int { LOOP_FOR_EVER, LOOP_ONCE, LOOP_PING_PONG, LOOP_COUNT };
enum Ghost : int { GHOST_OFF, GHOST_BEHIND, GHOST_OVER, GHOST_COUNT };

/// An axis lies at s / 2: the image of x is s - x, so that s is in half pixels. Held as s + 1.
inline constexpr int axis_in_the_middle = 0;             // of the Frame in hand
inline constexpr int axis_max = 2 * max_frame_side - 1;  // s + 1 of the last pixel's own place, and a half beyond
inline constexpr int ghost_frames_max = 3;               // before, and after
inline constexpr int ghost_strength_max = 255;
inline constexpr int wand_tolerance_max = 254;
inline constexpr int cell_side_max = 9999;  // pixels; four digits in its field

struct Guides {
    int symmetry = SYMMETRY_OFF;
    Shared<int> tiles = TILES_OFF;  // the view's limits go by it, on the timer's thread too
    int axis_x = axis_in_the_middle, axis_y = axis_in_the_middle;
    int hides_rim = 0;  // that of the real Frame among its tiles

    int ghost = GHOST_OFF;
    int ghosts_before = 1, ghosts_after = 0, ghost_strength = 96;
    int pinned_frame = 0;  // its slot + 1; 0 for the neighbours

    int pixel_grid = 0, cell_grid = 0, snap = 0, checker = 0;
    int clear_ground = 0;                                  // pictures leave as PNG and GIF with the mask colour clear
    int cell_w = 16, cell_h = 16, cell_x = 0, cell_y = 0;  // pixels

    int clean_cel = 0;  // TURN and STRETCH in the quality CLEAN, not FAST
    int cel_shape = CEL_IS_WHOLE;
    int wand_tolerance = 1;  // 0 to `wand_tolerance_max`; FILL's 0 takes nothing

    int palette_length = 0;  // favourites from slot 0 on that are the palette; 0: up to the last that isn't blank
    int lock = 0;            // all paint becomes the nearest colour of the palette

    // The animation that the Frames are.
    int speed = 12;       // Frames a second, 1 to 60
    int first_frame = 0;  // of the range, its slot
    int range_end = 0;    // the last one's slot + 1; 0 for the last there is
    int loop = LOOP_FOR_EVER;
    std::array<std::uint8_t, frame_slots> frame_times{};  // of each slot, as base/frame_time.h tells; 0 by the speed

    // What a key switches on again.
    int last_symmetry = SYMMETRY_ACROSS, last_tiles = TILES_BOTH, last_ghost = GHOST_BEHIND;
    int last_pixel_grid = 1, last_cell_grid = 0;  // these two as long as the program runs
};
inline constinit Guides guides;

}  // namespace nubo
