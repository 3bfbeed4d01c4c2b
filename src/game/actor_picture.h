#pragma once
// What the families of actors draw by: where an actor stands on the screen, and how its picture goes there. All of it
// reads the snapshot that the screen update took. Main flow only.
#include "base/bitmap.h"
#include "state/drawn_actors.h"

namespace nubo {

/// A place on the logical screen.
struct ScreenPlace {
    int x, y;
};
/// Its fixed place, or else its position less the pan of the view and its height, each axis by itself.
ScreenPlace place_of(int who);

/// True when an actor's box of that size lies wholly outside the screen, and it has no fixed place.
bool is_out_of_view(int who, ScreenPlace corner, int w, int h);

/// A part of a sheet, whose pixels stay the sheet's; null where the sheet doesn't reach or there is none.
OwnedBitmap sheet_part(BITMAP* sheet, int x, int y, int w, int h);

/// How a picture is drawn: its mode and opacity, an ActorMode and 0 to 254, and an effect on each of its pixels.
struct ActorLook {
    int mode, opacity, effect, effect_param;
};
ActorLook look_of(int who);

/// Draws a picture on the screen: as it is, translucent, or washed to white; with an effect pixel by pixel, each one
/// first and then the effect on it. In other modes nothing is drawn.
void draw_picture(BITMAP* picture, ScreenPlace corner, const ActorLook& look);

/// The same for a rectangle of one colour.
void draw_rectangle(ScreenPlace corner, int w, int h, Color color, const ActorLook& look);

/// True at the first of the calls with the same number for the same actor that follow on each other: what a picture a
/// second would log a hundred times is told once.
bool is_first_warning(int who, int about);

}  // namespace nubo
