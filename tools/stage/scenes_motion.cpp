// Scenes of what actors do by themselves: behaviours at work, roads through the world, trails.
#include "game/actors.h"
#include "scene.h"
#include "state/run.h"
#include <array>

namespace nubo {
namespace {

constexpr int fine = fine_per_pixel;  // 10000ths of a pixel

struct Act {
    const char* name;
    Cel cel;
    Behavior behavior;
    int delay;
    std::array<int, 4> params;
};
/// The numbers of `params` are told beside the behaviours.
constexpr Act acts[] = {
    {"2 FLOAT", cel_potion, BEHAVIOR_FLOAT, 0, {4, 0, 6, 3}},
    {"4 ANIMATE", cel_hero, BEHAVIOR_ANIMATE, 0, {0, 0, 0, 0}},
    {"6 STANDING", cel_slime, BEHAVIOR_STANDING_ANIMATION, 0, {0, 0, 0, 0}},
    {"10 RISER", cel_key, BEHAVIOR_RISER, 12, {16, 1, 0, 0}},
    {"24 SLIDE UNIT", cel_chest, BEHAVIOR_SLIDE_UNIT, 3, {1, 0, 0, 200}},
    {"25 BLINK", cel_heart, BEHAVIOR_BLINK, 35, {0, 0, 0, 0}},
    {"28 GLOW CYCLE", cel_sword, BEHAVIOR_GLOW_CYCLE, 4, {0, 0, 0, 0}},
    {"29 WHITE FADE", cel_coin, BEHAVIOR_WHITE_FADE, 4, {255, 1, 1, 0}},
    {"30 ROTATE", cel_sword, BEHAVIOR_ROTATE, 0, {2, 0, 0, 0}},
    {"69 TRUE FADE", cel_bush, BEHAVIOR_TRUE_FADE, 1, {1, 0, 0, 0}},
    {"97 TOGGLE MODE", cel_coin, BEHAVIOR_TOGGLE_MODE, 50, {1, 0, 0, 0}},
};

/// What some acts need beside their behaviour.
void prepare(const Act& act, std::size_t who) {
    const int row = act.cel.row;
    if (act.behavior == BEHAVIOR_ANIMATE)
        UA_store_anim(static_cast<int>(who), CELS_RUNNING, 1, 4, 0, row, 14, 1, row, 14, 2, row, 14, 3, row, 14);
    if (act.behavior == BEHAVIOR_STANDING_ANIMATION)
        UA_store_anim(static_cast<int>(who), CELS_IDLE, 1, 2, 0, row, 40, 1, row, 20);
    if (act.behavior == BEHAVIOR_ROTATE) {
        actor::Rotation_Mode[who] = ROTATION_BY_ANGLE;
        actor::Sprite_angle[who] = 0;
    }
    if (act.behavior == BEHAVIOR_GLOW_CYCLE) {
        actor::Glow_col[who] = actor::Glow_row[who] = 0;
        actor::Glow_phase[who] = glow_brightest;
    }
    if (act.behavior == BEHAVIOR_TRUE_FADE) {
        actor::Mode[who] = ACTOR_TRANSLUCENT;
        actor::Opacity[who] = 1;
    }
}

/// A thing that is thrown again and again has to be spawned again and again: this one lives for a while only.
std::size_t spawn_flying(Cel cel, int x, int y, int vel_x, int vel_y) {
    const std::size_t who = spawn_sprite(cel, x, y);
    actor::Fine_x[who] = x * fine;
    actor::Fine_y[who] = y * fine;
    actor::Vel_x[who] = vel_x;
    actor::Vel_y[who] = vel_y;
    return who;
}

}  // namespace

void build_behaviors() {
    int x = 20, y = 26;
    for (const Act& act : acts) {
        const std::size_t who = spawn_sprite(act.cel, x, y);
        prepare(act, who);
        start_behavior(who, act.behavior, act.delay, {act.params[0], act.params[1], act.params[2], act.params[3]});
        label(x - 8, y + 38, act.name);
        x += 76;
        if (x > 270) x = 20, y += 70;
    }
    const std::size_t jittering = spawn_sprite(cel_slime, x, y);
    start_behavior(jittering, BEHAVIOR_JITTER, 3, {x, y, 0, 30000});
    label(x - 8, y + 38, "26 JITTER");
}

void build_movements() {
    const std::size_t thrown = spawn_flying(cel_coin, 10, 150, fine * 5 / 10, 0);
    actor::Vel_z[thrown] = -fine * 11 / 10;
    actor::Fine_z[thrown] = 0;
    start_behavior(thrown, BEHAVIOR_PROJECTILE, 0, {210, 0, 1});
    label(8, 190, "20 PROJECTILE");
    const std::size_t braking = spawn_flying(cel_key, 10, 20, fine * 12 / 10, 0);
    start_behavior(braking, BEHAVIOR_VECTOR_MOVEMENT, 0, {2000, -50, 0, 0, 1, 0, 0, 1});
    label(8, 14, "39 VECTOR MOVEMENT");
    const std::size_t arriving = spawn_sprite(cel_chest, 10, 70);
    vector_move_threshold(static_cast<int>(arriving), 250, 100, 0, fine, 0, 50);
    label(8, 64, "33 VECTOR MOVEMENT THRESHOLD");
    const std::size_t walking = spawn_sprite(cel_hero, 200, 150);
    actor::Move_stops_anim[walking] = true;
    UA_store_anim(static_cast<int>(walking), CELS_RUNNING, 1, 4, 0, 0, 14, 1, 0, 14, 2, 0, 14, 3, 0, 14);
    start_behavior(walking, BEHAVIOR_ANIMATE, 0, {});
    start_behavior(walking, BEHAVIOR_LINEAR_MOVE, 2, {1, 0, 80});
    label(190, 190, "35 LINEAR MOVE");
    const std::size_t rider = spawn_sprite(cel_heart, 0, 0);
    actor::Attach_to[rider] = static_cast<int>(walking);
    actor::Attach_dz[rider] = 30;
    label(190, 200, "AND A RIDER");
}

void build_trails() {
    const std::size_t comet = spawn_flying(cel_coin, 20, 30, fine * 8 / 10, fine * 4 / 10);
    start_behavior(comet, BEHAVIOR_SPAWN_TRAIL, 0, {0, 8, 0, 1, -1});
    start_behavior(comet, BEHAVIOR_PROJECTILE, 0, {300, 0, 0});
    const int fade = UA_fade_actor(static_cast<int>(comet), 0, 2, 1);
    actor::Kill_on_end[comet][at(fade)] = true;  // of the clones too, so that the scene runs out
    label(20, 200, "21 SPAWN TRAIL, 20 PROJECTILE, 69 TRUE FADE");
}

}  // namespace nubo
