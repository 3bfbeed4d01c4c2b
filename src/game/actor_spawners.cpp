// Spawners: each takes a row, cleans it, writes its fields, and shows it last.
#include "base/log.h"
#include "game/actors.h"

namespace nubo {
namespace {

/// A clean row that no one else has yet; `actor_none` after the line `none_free`.
int grab_clean_row(const char* tag, const char* none_free) {
    const int who = UA_grab_object();
    if (who == actor_none)
        UA_log(none_free, who);
    else
        UA_destroy_actor(who, tag);
    return who;
}

void place_actor(std::size_t who, int x, int y, int z) {
    actor::Pos_x[who] = x;
    actor::Pos_y[who] = y;
    actor::Pos_z[who] = z;
}

/// Hands the row over to all that look at the table.
void show_actor(std::size_t who, ActorType type, int mode) {
    actor::Mode[who] = static_cast<std::int16_t>(mode);
    actor::Psuedo[who] = 1;
    actor::Profession[who] = PROFESSION_ELEMENT;
    actor::Type[who].publish(type);
}

void start_behavior(std::size_t who, std::size_t slot, Behavior behavior, int delay, std::array<int, 3> params) {
    for (std::size_t i = 0; i < params.size(); ++i)
        actor::Behavior_param[who][slot][i] = static_cast<std::int16_t>(params[i]);
    actor::Behavior_delay[who][slot] = static_cast<std::int16_t>(delay);
    actor::Behavior_accum[who][slot] = 0;
    actor::BEHAVIOR[who][slot].publish(behavior);
}

}  // namespace

int UA_spawn_blank_element(int frame_x, int frame_y) {
    const int who =
        grab_clean_row("UA_spawn_blank_element", "ERROR: No free actors while spawning generic element! slot = %d");
    if (who == actor_none) return actor_none;
    actor::Frame_x[at(who)] = static_cast<std::int16_t>(frame_x);
    actor::Frame_y[at(who)] = static_cast<std::int16_t>(frame_y);
    show_actor(at(who), ACTOR_SPRITE, ACTOR_DRAWN);
    return who;
}

int IS_spawn_dust_emitter(int x, int y, int z, int particles, int heading, int delay, int self_destruct) {
    constexpr int spread = 6, rest = 2, life = 8, life_spread = 12;
    const int who =
        grab_clean_row("IS_spawn_dust_emitter", "ERROR: No free actors while spawning dust emitter! slot = %d");
    if (who == actor_none) return actor_none;
    const std::size_t w = at(who);
    place_actor(w, x, y, z);
    actor::Angle[w] = static_cast<std::int16_t>(heading);
    actor::Particle_total[w] = particles;
    actor::Particle_spread_x[w] = actor::Particle_spread_y[w] = spread;
    actor::Particle_rest[w] = rest;
    actor::Particle_life[w] = life;
    actor::Particle_life_spread[w] = life_spread;
    actor::Self_Destruct[w] = static_cast<std::int16_t>(self_destruct);
    start_behavior(w, 0, BEHAVIOR_PARTICLE, delay, {});
    show_actor(w, ACTOR_PARTICLES, ACTOR_DRAWN);
    return who;
}

int UA_spawn_dust_cloud(int x, int y, int z, int frame_x, int frame_y, int rotate_delay, int rise_delay) {
    constexpr int turn = 8, rise = 16;
    const int who = grab_clean_row("UA_spawn_dust_cloud", "ERROR: No free actors while spawning dust cloud! slot = %d");
    if (who == actor_none) return actor_none;
    const std::size_t w = at(who);
    place_actor(w, x, y, z);
    actor::Frame_x[w] = static_cast<std::int16_t>(frame_x);
    actor::Frame_y[w] = static_cast<std::int16_t>(frame_y);
    actor::Sprite_angle[w] = 0;
    actor::Rotation_Mode[w] = ROTATION_BY_ANGLE;
    actor::Kill_on_end[w][1] = true;
    start_behavior(w, 0, BEHAVIOR_ROTATE, rotate_delay, {turn});
    start_behavior(w, 1, BEHAVIOR_RISER, rise_delay, {rise, 1});
    show_actor(w, ACTOR_SPRITE, ACTOR_DRAWN);
    return who;
}

}  // namespace nubo
