#pragma once
// The scratch bitmap in which an actor's picture is posed: turned, shifted, waved, lit. What leaves the scratch is
// lost. Main flow only.
#include "state/drawn_actors.h"
#include "state/effects.h"
#include <allegro.h>

namespace nubo {

/// Where the picture's own corner lies in the scratch, so that the picture stands in the middle.
struct PoseOrigin {
    int x, y;
};
constexpr PoseOrigin pose_origin(int w, int h) { return {(sprite_scratch_w - w) / 2, (sprite_scratch_h - h) / 2}; }

inline constexpr int pose_upright = -1;  // as an angle: not turned
/// Clears the scratch and puts the picture into it, mirrored or not, turned clockwise by `angle` 256ths of a circle
/// round a point `pivot_drop` pixels below the picture's middle. A picture that isn't turned stands where it stood.
void pose_picture(BITMAP* picture, PoseOrigin origin, bool is_mirrored, int angle, int pivot_drop);

/// Moves all of the picture: its rows by `dx` to the right, its columns by `dy` down.
void shift_pose(int dx, int dy);

/// A raster wave: line n is moved by `amplitude` times the cosine of `frequency` times n plus `phase`, in 256ths of a
/// circle. Lines are counted from the picture's first.
void wave_pose_rows(const Wave& wave, PoseOrigin origin);     // to the right
void wave_pose_columns(const Wave& wave, PoseOrigin origin);  // down

/// Adds `light`, a picture of the same size, to the pixels that the picture holds, at a brightness of 0 to
/// `glow_brightest`. Black and 0xff00ff light nothing.
void light_pose(BITMAP* light, PoseOrigin origin, int brightness);

}  // namespace nubo
