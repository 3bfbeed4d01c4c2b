#include "game/draw_actors.h"

#include "game/actor_families.h"
#include "game/actors.h"
#include "state/drawn_actors.h"
#include "state/effects.h"
#include <algorithm>

namespace nubo {
namespace {

constexpr int ground_offset = 20;  // pixels; an actor stands on the tile below its middle

struct FamilyRow {
    ActorType type;
    void (*draw)(int who);
};
/// Logical actors have no row.
constexpr FamilyRow families[] = {
    {ACTOR_SPRITE_1, mask_object},
    {ACTOR_SPRITE_2, mask_object},
    {ACTOR_SPRITE_9, mask_object},
    {ACTOR_SPRITE, mask_object},
    {ACTOR_RAY, draw_ray},
    {ACTOR_PARTICLES, draw_particles},
    {ACTOR_PLASMA, draw_plasma},
    {ACTOR_DISC, draw_disc},
    {ACTOR_TILE, draw_tile},
    {ACTOR_RECTANGLE, draw_rectangle_actor},
    {ACTOR_POLYGON, draw_v3},
    {ACTOR_GLOW_POLYGON, draw_V3},
    {ACTOR_PIXEL, draw_pixel_element},
    {ACTOR_LETTER, mask_text},
    {ACTOR_LETTER_92, mask_text},
};

bool stands_a_row_higher(int profession) {
    constexpr int first = 70, last = 76;
    return profession >= first && profession <= last;
}

void place_among_tiles(int who) {
    const std::size_t w = at(who);
    actor::Tile_x[w] = drawn::Pos_x[w] / tile_side;
    actor::Tile_y[w] =
        (drawn::Pos_y[w] - ground_offset) / tile_side - (stands_a_row_higher(drawn::Profession[w]) ? 1 : 0);
    actor::Tile_z[w] = 0;
}

void draw_by_type(int who) {
    const int type = drawn::Type[at(who)];
    const auto* const family = std::ranges::find(families, type, [](const FamilyRow& row) -> int { return row.type; });
    if (family != std::end(families)) family->draw(who);
}

}  // namespace

void UA_draw_actors(int view) {
    for (const int who : draw_list) {
        if (who < 0 || who >= actor_count || drawn::View_window[at(who)] != view) continue;
        place_among_tiles(who);
        if (drawn::Mode[at(who)] == ACTOR_HIDDEN) continue;
        draw_by_type(who);
        if (const auto hook = app_hook::drawn.acquire(); hook != nullptr) hook(who);
    }
}

}  // namespace nubo
