// Scenes of how an actor looks: each family, what can be done with a sprite, each effect.
#include "framework/effects.h"
#include "game/draw_actors.h"
#include "game/waves.h"
#include "scene.h"
#include "state/actor_lists.h"
#include "state/fonts.h"

namespace nubo {
namespace {

constexpr int red_ramp = 32, orange_ramp = 48, yellow = 70, cyan = 102;  // entries of the palette
constexpr Color rose = 0xe87090, sky = 0x70b0fc;

void spawn_disc(int x, int y, ActorMode mode, int facing) {
    const std::size_t disc = spawn_actor(ACTOR_DISC, x, y);
    actor::Diameter[disc] = 28;
    actor::Color[disc] = yellow;
    actor::Color_alpha[disc] = 120;
    actor::Facing[disc] = static_cast<std::int16_t>(facing);
    actor::Mode[disc] = mode;
}

void spawn_rays(int x, int y) {
    for (int angle = 0; angle < circle_steps; angle += 32) {
        const std::size_t ray = spawn_actor(ACTOR_RAY, x, y);
        actor::Diameter[ray] = 26;
        actor::Angle[ray] = static_cast<std::int16_t>(angle);
        actor::Color[ray] = cyan;
        actor::Color_alpha[ray] = 254;
    }
}

void spawn_rectangle(int x, int y, ActorMode mode) {
    const std::size_t box = spawn_actor(ACTOR_RECTANGLE, x, y);
    actor::Abs_Frame_0[box] = 30;
    actor::Abs_Frame_1[box] = 18;
    actor::Color[box] = static_cast<int>(rose);
    actor::Opacity[box] = 110;
    actor::Mode[box] = mode;
}

void spawn_plasma(int x, int y) {
    const std::size_t fire = spawn_actor(ACTOR_PLASMA, x, y);
    actor::Color[fire] = orange_ramp;
    actor::Plasma_width[fire] = plasma_side;
    for (auto& height : actor::Plasma_height[fire]) height = plasma_side;
    actor::Plasma_feed_period[fire] = actor::Plasma_shift_period[fire] = 2;
    actor::Plasma_cool_period[fire] = 4;
    actor::Plasma_feeds[fire] = 24;
    actor::Plasma_cooling[fire] = 1;
    start_behavior(fire, BEHAVIOR_PLASMA, 0, {});
}

void spawn_particles(int x, int y) {
    const std::size_t spring = spawn_actor(ACTOR_PARTICLES, x, y);
    actor::Color[spring] = red_ramp + 4;
    actor::Angle[spring] = circle_steps / 2;  // upward
    actor::Particle_total[spring] = 40;
    actor::Particle_spread_x[spring] = 14;
    actor::Particle_spread_y[spring] = 2;
    actor::Particle_rest[spring] = 3;
    actor::Particle_life[spring] = 40;
    actor::Particle_life_spread[spring] = 60;
    start_behavior(spring, BEHAVIOR_PARTICLE, 0, {});
}

/// A polygon of the object library.
std::size_t spawn_polygon(ActorType type, int object, int x, int y) {
    const std::size_t shape = spawn_actor(type, x, y);
    UA_set_outline(static_cast<int>(shape), object);
    actor::Diameter[shape] = 18;
    actor::Opacity[shape] = 200;
    actor::Color[shape] = static_cast<int>(sky);
    actor::Poly_fade_start[shape] = 255;
    return shape;
}

std::size_t spawn_letter(int x, int y, char letter) {
    const std::size_t who = spawn_actor(ACTOR_LETTER, x, y);
    actor::Letter_font[who] = FONT_WIDE;
    actor::Letter_row[who] = TEXT_YELLOW;
    actor::Letter_outline[who] = 1;
    actor::Letter_code[who] = letter;
    return who;
}

/// Sprites side by side, five to the row, each with a word below.
class HeroRow {
public:
    std::size_t next(const char* name) {
        const int x = 18 + count_ % 5 * 60, y = 22 + count_ / 5 * 66;
        ++count_;
        label(x - 8, y + 40, name);
        return spawn_sprite(cel_hero, x, y);
    }

private:
    int count_ = 0;
};

/// A picture of 3 by 3 squares.
void spawn_squares(int x, int y) {
    for (int i = 0; i < 9; ++i) {
        const std::size_t square = spawn_actor(ACTOR_PIXEL, i % 3, i / 3);
        actor::Diameter[square] = 8;
        actor::Color[square] = static_cast<int>(i % 2 == 0 ? rose : sky);
        actor::Abs_x[square] = actor::Abs_y[square] = 3;
        actor::Abs_Frame_0[square] = static_cast<std::int16_t>(x);
        actor::Abs_Frame_1[square] = static_cast<std::int16_t>(y);
    }
}

}  // namespace

void build_families() {
    spawn_sprite(cel_hero, 20, 24);
    label(18, 62, "12 SPRITE");
    const std::size_t tile = spawn_actor(ACTOR_TILE, 104, 32);
    actor::Frame_x[tile] = 1;
    label(88, 62, "22 TILE");
    spawn_rays(190, 40);
    label(168, 72, "13 RAY");
    spawn_particles(268, 50);
    label(240, 62, "15 PARTICLES");
    spawn_plasma(20, 90);
    label(18, 128, "17 PLASMA");
    spawn_disc(90, 106, ACTOR_DRAWN, 0);
    spawn_disc(112, 106, ACTOR_FILLED, 1);
    spawn_disc(134, 106, ACTOR_FILLED, 0);
    label(88, 128, "19 DISC");
    spawn_rectangle(160, 90, ACTOR_DRAWN);
    spawn_rectangle(175, 102, ACTOR_TRANSLUCENT);
    label(160, 128, "23 RECTANGLE");
    spawn_squares(268, 106);
    label(240, 128, "29 PIXEL ELEMENT");
    const std::size_t ground = spawn_actor(ACTOR_RECTANGLE, 18, 150);
    actor::Abs_Frame_0[ground] = actor::Abs_Frame_1[ground] = 44;
    actor::Color[ground] = static_cast<int>(rose);
    spawn_polygon(ACTOR_POLYGON, 3, 40, 172);
    label(18, 196, "25 v3");
    spawn_polygon(ACTOR_GLOW_POLYGON, 2, 110, 172);
    label(88, 196, "26 V3");
    int x = 162;
    for (const char letter : {'N', 'U', 'B', 'O'}) spawn_letter(x += 8, 166, letter);
    label(160, 196, "90 LETTER");
}

void build_poses() {
    HeroRow row;
    const auto pose = [&row](const char* name) { return row.next(name); };
    pose("AS DRAWN");
    const std::size_t mirrored = pose("MIRRORED");
    actor::Can_flip[mirrored] = true;
    actor::Facing[mirrored] = 1;
    const std::size_t turned = pose("TURNED");
    actor::Rotation_Mode[turned] = ROTATION_BY_ANGLE;
    actor::Sprite_angle[turned] = 24;
    const std::size_t aimed = pose("AIMED");
    actor::Frame_x[aimed] = cel_sword.column;
    actor::Frame_y[aimed] = cel_sword.row;
    actor::Rotation_Mode[aimed] = static_cast<std::int16_t>(-static_cast<int>(mirrored));
    const std::size_t flying = pose("ALONG ITS WAY");
    actor::Rotation_Mode[flying] = ROTATION_ALONG_VELOCITY;
    actor::Vel_x[flying] = actor::Vel_y[flying] = fine_per_pixel;
    actor::Pos_z[pose("SUNK")] = -12;
    const std::size_t shifted = pose("SHIFTED");
    actor::Shift_x[shifted] = 6;
    actor::Shift_y[shifted] = -6;
    UA_set_wave_h(static_cast<int>(pose("WAVE H")), -1, 12, 5, 3, 1);
    UA_set_wave_v(static_cast<int>(pose("WAVE V")), -1, 12, 5, 3, 1);
    const std::size_t glowing = pose("GLOW");
    actor::Glow_col[glowing] = actor::Glow_row[glowing] = 0;
    actor::Glow_phase[glowing] = glow_brightest;
    start_behavior(glowing, BEHAVIOR_GLOW_CYCLE, 3, {0});
    const std::size_t clear = pose("TRANSLUCENT");
    actor::Mode[clear] = ACTOR_TRANSLUCENT;
    actor::Opacity[clear] = 110;
    const std::size_t white = pose("WHITE FADE");
    actor::Mode[white] = ACTOR_WHITE_FADE;
    actor::Opacity[white] = 100;
    const std::size_t cel = pose("FIXED CEL");
    actor::Abs_Frame_0[cel] = cel_potion.column;
    actor::Abs_Frame_1[cel] = cel_potion.row;
}

void build_effects() {
    constexpr int modes[] = {EFFECT_OUTLINE_BLACK,
                             EFFECT_SPECKLE_WHITE,
                             EFFECT_SPECKLE_BLACK,
                             EFFECT_SPECKLE_STRONG,
                             EFFECT_YELLOW,
                             EFFECT_OUTLINE,
                             EFFECT_OUTLINE_MASKED,
                             EFFECT_OUTLINE_FLICKERS,
                             EFFECT_OUTLINE_WHITE,
                             EFFECT_OUTLINE_YELLOW,
                             EFFECT_FADED,
                             EFFECT_FADED_ALONE,
                             EFFECT_OUTLINE_WHITE_FLICKERS,
                             EFFECT_OUTLINE_BLACK_MASKED,
                             EFFECT_OUTLINE_WHITE_MASKED,
                             EFFECT_OUTLINE_YELLOW_MASKED};
    int x = 24, y = 14;
    for (const int mode : modes) {
        const std::size_t who = spawn_sprite(cel_slime, x, y);
        actor::Mode[who] = mode == EFFECT_FADED || mode == EFFECT_FADED_ALONE ? ACTOR_TRANSLUCENT : ACTOR_DRAWN;
        actor::Opacity[who] = 90;
        actor::Effect_mode[who] = mode;
        actor::Effect_param[who] = cyan;
        label(x + 12, y + 36, std::to_string(mode));
        x += 78;
        if (x > 280) x = 24, y += 53;
    }
}

}  // namespace nubo
