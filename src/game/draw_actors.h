#pragma once
// Drawing actors on the screen, each by the family that its `Type` names. Positions lie in the world, which `pan_x` and
// `pan_y` scroll under the screen. Everything is read from the snapshot of `UA_snapshot_actors`. Main flow only.
#include <array>

namespace nubo {

/// Draws the actors of one view, a slot of the GUI table or 0 for the main view, in the order of `draw_list`, and calls
/// the application's hook after each. Where each stands among the tiles goes to its `Tile_x`, `Tile_y`, `Tile_z`.
void UA_draw_actors(int view);

// ---- Families that are called by name, too -------------------------------------------------------------------------

/// Draws a cel of the actor's sheet, posed, waved, recoloured by the eight `Letter_` fields (four palette entries and
/// the four that take their places) and lit by the glow. A type other than `ACTOR_SPRITE` is refused, with a line in
/// the log for each actor.
void mask_object(int who);

/// The same for one letter: `Letter_code`, with the text attributes of the other `Letter_` fields, of which
/// `Letter_reserved` is the shadow's value. 0, 49 and numbers outside are refused with a line in the log.
void mask_text(int who);

/// Draws one square of `Diameter` pixels in the colour `Color`: round the actor's place, or, with a `Frame_b` of 0, as
/// one cell of a magnified picture. 0, 49 and numbers outside are refused with a line in the log.
void draw_pixel_element(int who);

// ---- Polygons ------------------------------------------------------------------------------------------------------

/// Gives an actor the outline of an object of the library, its first 64 pairs at most. False when there is no such
/// object or actor.
bool UA_set_outline(int who, int object);

}  // namespace nubo
