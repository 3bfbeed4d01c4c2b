// Scenes of effects on the whole picture: polygons of light, ripples, fog, the tint.
#include "base/bitmap.h"
#include "codecs/blend.h"
#include "game/draw_actors.h"
#include "game/ripples.h"
#include "game/screen_effects.h"
#include "scene.h"
#include "state/effects.h"
#include "state/run.h"

namespace nubo {
namespace {

enum LibraryObject : int { OBJECT_TRIANGLE, OBJECT_SQUARE, OBJECT_HEXAGON, OBJECT_STAR, OBJECT_ARROW };

std::size_t spawn_polygon(ActorType type, int object, int x, int y, int diameter) {
    const std::size_t shape = spawn_actor(type, x, y);
    UA_set_outline(static_cast<int>(shape), object);
    actor::Diameter[shape] = static_cast<std::int16_t>(diameter);
    return shape;
}

void spawn_beam(int object, int x, int y, int diameter, int fade_end) {
    const std::size_t beam = spawn_polygon(ACTOR_POLYGON, object, x, y, diameter);
    actor::Poly_fade_start[beam] = 254;
    actor::Poly_fade_end[beam] = fade_end;
    start_behavior(beam, BEHAVIOR_ROTATE, 2, {1, 1, 0});
}

void spawn_glow(int object, int x, int y, int diameter, int color, int wobble) {
    const std::size_t shape = spawn_polygon(ACTOR_GLOW_POLYGON, object, x, y, diameter);
    actor::Color[shape] = color;
    actor::Opacity[shape] = 170;
    actor::Poly_wobble[shape] = wobble;
    constexpr int wobble_phase = 40, second_phase = 41;
    start_behavior(shape, BEHAVIOR_MODIFY_VARIABLE, 0, {wobble_phase, 5});
    start_behavior(shape, BEHAVIOR_MODIFY_VARIABLE, 0, {second_phase, 3});
    start_behavior(shape, BEHAVIOR_POLY_DIAMETER_PULSE, 4, {12});
}

}  // namespace

void build_polygons() {
    // The words stand where neither a turning corner nor a glow at its widest comes.
    spawn_beam(OBJECT_TRIANGLE, 60, 62, 46, 0);
    spawn_beam(OBJECT_HEXAGON, 160, 62, 42, 100);
    spawn_beam(OBJECT_STAR, 260, 62, 46, 0);
    label(18, 112, "25 v3: SHADED BETWEEN TWO POINTS, 30 ROTATE");
    spawn_glow(OBJECT_HEXAGON, 60, 168, 28, 0xfc5030, 1);
    spawn_glow(OBJECT_STAR, 160, 168, 30, 0x40c0f0, 0);
    spawn_glow(OBJECT_ARROW, 260, 168, 28, 0xa0f040, 1);
    label(18, 218, "26 V3: GLOWING, WOBBLING, 40 POLY DIAMETER PULSE");
}

void build_ripples() {
    spawn_sprite(cel_tree, 40, 40);
    spawn_sprite(cel_hero, 150, 110);
    spawn_sprite(cel_bush, 250, 150);
    UA_add_ripple(view_w / 2, view_h / 2);
    UA_add_ripple(70, 60);
    UA_add_ripple(270, 180);
}

void build_fog() {
    spawn_sprite(cel_hero, 144, 96);
    spawn_sprite(cel_slime, 60, 70);
    spawn_sprite(cel_tree, 230, 40);
    UA_set_fog(1, 1);
}

/// The mask has its middle above that of the screen, and no rows for its foot.
void draw_fog_over() {
    constexpr Color night = 0x081020;
    constexpr int top = view_h / 2 - 99, clear = 255;
    for (int y = 0; fog_on != 0 && y < view_h; ++y)
        for (int x = 0; x < view_w; ++x) {
            const int row = y - top;
            const int clearness = frame_contains(fog_mask, x, row) ? static_cast<int>(*pixels_at(fog_mask, x, row)) : 1;
            blend_fill_row(pixels_at(screen_buffer, x, y), 1, night, clear - clearness);
        }
}

void build_tint() {
    for (int x = 20; x < view_w - 40; x += 48) spawn_sprite(cel_hero, x, 100);
    tint_strength = 0;
    UA_tint_screen(252, 120, 20, 150, 2, 1);
    label(20, 200, "THE SCREEN FADES TOWARD A COLOR");
}

}  // namespace nubo
