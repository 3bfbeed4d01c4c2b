#pragma once
// The families of `UA_draw_actors` that no one calls by name. `who` is an actor, 0 to 49. Main flow only.

namespace nubo {

/// A ray of `Diameter` pixels along `Angle` in the palette colour `Color`; its strength falls from `Color_alpha` to
/// nothing.
void draw_ray(int who);

/// The actor's particles, each a pixel with four dimmer neighbours in the palette colour `Color`, fading by its age.
void draw_particles(int who);

/// The columns of the plasma block, each as high as `Plasma_height` tells, in the eight palette colours from `Color`
/// on.
void draw_plasma(int who);

/// A disc of `Diameter` in the palette colour `Color`: a circle for mode 1; for mode 2 a filled one, or, with a
/// `Facing` of 0, a circle at the strength `Color_alpha`.
void draw_disc(int who);

/// The tile of `Frame_x` and `Frame_y`.
void draw_tile(int who);

/// A rectangle of `Abs_Frame_0` by `Abs_Frame_1` in the colour `Color`.
void draw_rectangle_actor(int who);

/// A polygon of which each pixel is a blend toward palette colour 208, by its distances from the first two vertices.
void draw_v3(int who);

/// A glowing, sparkling polygon in the colour `Color`, drawn at the strength `Opacity`.
void draw_V3(int who);

}  // namespace nubo
