#pragma once
// Actors: what moves or fades on its own, driven by the behaviours in its four slots. The number of a row is the actor.
// A row is free while its `Type` is 0. The editor's one actor is the screen tint; the fields called "of the game" are
// part of the record and have no reader here. Longer lists of an actor stand in state/actor_lists.h, what drawing reads
// in state/drawn_actors.h.
#include "state/shared.h"
#include <array>
#include <cstdint>

namespace nubo {

inline constexpr int actor_count = 50, behavior_slots = 4, behavior_params = 10;
inline constexpr int actor_first = 0,
                     actor_last = actor_count - 1;  // these two are protected: never handed out or freed
inline constexpr int actor_none = -1, actor_any = -1, forever = -1;
inline constexpr int abs_none = -1;    // of `Abs_*`: no fixed place or cel
inline constexpr int glow_none = -1;   // of `Glow_col`
inline constexpr int angle_none = -1;  // of `Sprite_angle`
inline constexpr int circle_steps = 256, fine_per_pixel = 10000, tile_side = 16;
inline constexpr int opacity_max = 254, glow_brightest = 13, glow_frames = 32;

/// How an actor is drawn; other numbers are not.
enum ActorType : int {
    ACTOR_FREE = 0,
    ACTOR_SPRITE_1 = 1,  // these three are of games: handed to `mask_object`, which refuses them
    ACTOR_SPRITE_2 = 2,
    ACTOR_SPRITE_9 = 9,
    ACTOR_SPRITE = 12,  // a cel of the actors' sheet
    ACTOR_RAY = 13,
    ACTOR_PARTICLES = 15,
    ACTOR_LOGICAL = 16,  // this and 21 are never drawn
    ACTOR_PLASMA = 17,
    ACTOR_DISC = 19,
    ACTOR_LOGICAL_21 = 21,
    ACTOR_TILE = 22,
    ACTOR_RECTANGLE = 23,
    ACTOR_POLYGON = 25,       // "v3" in the log
    ACTOR_GLOW_POLYGON = 26,  // "V3"
    ACTOR_PIXEL = 29,
    ACTOR_LETTER = 90,
    ACTOR_LETTER_92 = 92,
    ACTOR_PROTECTED = 99,
    ACTOR_TINT = 666,
    ACTOR_CLAIMED = -32768  // handed out, but not yet whole; or on its way to be free
};
enum ActorMode : int {
    ACTOR_HIDDEN = 0,
    ACTOR_DRAWN = 1,
    ACTOR_FILLED = 2,  // of discs
    ACTOR_TRANSLUCENT = 4,
    ACTOR_WHITE_FADE = 6
};
enum Profession : int { PROFESSION_NONE = -1, PROFESSION_ELEMENT = 206, PROFESSION_TINT = 666 };
/// `Rotation_Mode`; a negative one aims at the actor of that number.
enum RotationMode : int { ROTATION_NONE = 0, ROTATION_BY_ANGLE = 1, ROTATION_ALONG_VELOCITY = 2 };
enum PuppetState : int { PUPPET_UNWATCHED = -1, PUPPET_WATCHED = 0, PUPPET_LEFT_ALONE = 1 };

/// What a slot does, by number; game/behaviors.h tells what each takes.
enum Behavior : int {
    BEHAVIOR_NONE = 0,
    BEHAVIOR_FLOAT = 2,
    BEHAVIOR_ANIMATE = 4,
    BEHAVIOR_DELAYED_ANIMATION = 5,
    BEHAVIOR_STANDING_ANIMATION = 6,
    BEHAVIOR_CONTROL_FOG = 7,
    BEHAVIOR_FADE = 9,
    BEHAVIOR_RISER = 10,
    BEHAVIOR_EXPANDER = 14,
    BEHAVIOR_PARTICLE = 15,
    BEHAVIOR_PLASMA = 16,
    BEHAVIOR_SPLASH = 17,
    BEHAVIOR_INDEX_FADE = 18,
    BEHAVIOR_PROJECTILE = 20,
    BEHAVIOR_SPAWN_TRAIL = 21,
    BEHAVIOR_PALETTE_CONTROL = 22,
    BEHAVIOR_FLASH_FADE_IN_OUT = 23,
    BEHAVIOR_SLIDE_UNIT = 24,
    BEHAVIOR_BLINK = 25,
    BEHAVIOR_JITTER = 26,
    BEHAVIOR_GLOW_FADE = 27,
    BEHAVIOR_GLOW_CYCLE = 28,
    BEHAVIOR_WHITE_FADE = 29,
    BEHAVIOR_ROTATE = 30,
    BEHAVIOR_SLIDE_ROTATE = 31,
    BEHAVIOR_VECTOR_MOVEMENT_THRESHOLD = 33,
    BEHAVIOR_LINEAR_MOVE = 35,
    BEHAVIOR_LINEAR_MOVE_KILL_ANIM = 37,
    BEHAVIOR_VECTOR_MOVEMENT = 39,
    BEHAVIOR_POLY_DIAMETER_PULSE = 40,
    BEHAVIOR_BLOOM_CONTROL = 60,
    BEHAVIOR_TRUE_FADE = 69,
    BEHAVIOR_FRAMEWORK_EVENT = 90,
    BEHAVIOR_TOGGLE_MODE = 97,
    BEHAVIOR_FORCE_PAUSE = 98,
    BEHAVIOR_MODIFY_VARIABLE = 99
};

/// A word of an actor. A new one holds `reset`, which destroying the actor writes again.
template <typename T, int reset = 0> struct ActorWord : Shared<T> {
    constexpr ActorWord() : Shared<T>(reset) {}
    using Shared<T>::operator=;
};
template <typename T, int reset = 0> using ActorColumn = std::array<ActorWord<T, reset>, actor_count>;

namespace actor {
template <int reset = 0> using Column16 = ActorColumn<std::int16_t, reset>;
template <int reset = 0> using Column32 = ActorColumn<std::int32_t, reset>;
using ColumnBool = ActorColumn<bool>;

// ---- The template: fields 1 to 91, in the order of `actor.lst` -----------------------------------------------------

inline constinit Column16<> Type{};  // an ActorType; written last, with release
inline constinit Column16<> Mode{};  // an ActorMode
inline constinit Column16<nubo::PROFESSION_NONE> Profession{};
inline constinit Column16<-1> Team{};                      // of the game
inline constinit Column16<> Opacity{};                     // 0 to 254, of ACTOR_TRANSLUCENT
inline constinit Column16<> Facing{};                      // 1 mirrors the sprite if `Can_flip`
inline constinit Column32<> Color_alpha{};                 // opacity of `Color`, 0 to 254
inline constinit Column32<> Color{};                       // a colour or a palette index, by `Type`
inline constinit Column16<> Diameter{};                    // of discs and polygons
inline constinit Column16<> Angle{};                       // heading, 256ths: x by its sine, y by its cosine
inline constinit Column16<angle_none> Sprite_angle{};      // rotation of the sprite, 256ths
inline constinit Column16<> Frame_x{}, Frame_y{};          // cel in the actor's sheet
inline constinit Column16<> Frame_a{}, Frame_b{};          // work values of several types
inline constinit Column16<> Pos_x{}, Pos_y{}, Pos_z{};     // pixels; z is height, drawn upward
inline constinit Column16<> Tile_x{}, Tile_y{}, Tile_z{};  // tiles of 16 pixels
inline constinit Column32<> Fine_x{}, Fine_y{}, Fine_z{};  // 10000ths of a pixel
inline constinit Column32<> Vel_x{}, Vel_y{}, Vel_z{};     // 10000ths of a pixel a run of the behaviour
inline constinit Column16<> Rotation_Mode{};               // a RotationMode
inline constinit ColumnBool Mask{};                        // this and the next one are of the game
inline constinit Column16<> In_Water{};
inline constinit Column16<> Reserved_a{};
inline constinit Column16<100> Health{};  // from here to `D_power` they are of the game
inline constinit ActorColumn<float> Stamina{};
inline constinit Column16<> Disposition{}, Experience{};
inline constinit Column16<1> Rank{};
inline constinit Column16<> Max_Move{}, Max_Jump{}, Speed{};
inline constinit Column16<> Alignment{};
inline constinit Column16<> C_weapon{}, R_weapon{};
inline constinit Column16<> C_power{}, R_power{};
inline constinit Column16<> M_power{}, D_power{};
inline constinit Column16<forever> Self_Destruct{};          // behaviour ticks left to live
inline constinit Column16<-1> App_link{};                    // not -1: `app_hook::destroyed` is called
inline constinit Column16<actor_none> Suicide_buddy{};       // dies with this one
inline constinit Column16<actor_none> Puppet_id{};           // the controlled actor under which it was made
inline constinit Column16<PUPPET_UNWATCHED> Puppet_state{};  // a PuppetState
inline constinit Column16<> Sprite_offset{};                 // passed on when a rotated sprite is drawn
inline constinit Column16<abs_none> Abs_Frame_0{};           // fixed column and
inline constinit Column16<abs_none> Abs_Frame_1{};           // row of the cel
inline constinit Column16<> Reserved_b{};
inline constinit ColumnBool Reserved_c{};
inline constinit Column32<-1> Reserved_d_0{};
inline constinit Column32<> Reserved_d_1{}, Reserved_d_2{};
inline constinit Column32<> Reserved_d_3{}, Reserved_d_4{};
inline constinit Column16<abs_none> Abs_x{}, Abs_y{};         // fixed place on the screen
inline constinit Column32<> View_window{};                    // the GUI slot in whose view it is drawn; 0 the main view
inline constinit Column16<glow_none> Glow_col{}, Glow_row{};  // cell of the glow's sheet
inline constinit Column16<> Glow_frame{}, Glow_phase{};       // 0 to 31; brightness, 0 to 13
inline constinit Column32<actor_none> Attach_to{};            // the actor it rides on
inline constinit Column32<> Attach_dx{}, Attach_dy{};         // pixels from that one
inline constinit Column32<> Attach_dz{};
inline constinit Column32<> Attach_lock_x{}, Attach_lock_y{};  // not 0: the axis isn't followed
inline constinit Column32<> Attach_lock_z{};
inline constinit Column32<> Letter_font{}, Letter_row{};  // a letter and its text attributes; of sprites, colours
inline constinit Column32<> Letter_shadow{}, Letter_reserved{};
inline constinit Column32<> Letter_outline{}, Letter_blend{};
inline constinit Column32<> Letter_amount{}, Letter_code{};
inline constinit Column32<> Effect_mode{}, Effect_param{};  // of `UA_pixel_effect`, for the whole actor; 0 none
inline constinit ColumnBool Can_flip{};                     // `Facing` may mirror the sprite
inline constinit ColumnBool Move_stops_anim{};              // a linear move ends the walk animation at its end
inline constinit Column16<> Reserved_e{}, Reserved_f{};
inline constinit Column16<> Shift_x{}, Shift_y{};  // of the sprite's columns and rows

// ---- What `actor.lst` doesn't set ----------------------------------------------------------------------------------

inline constinit ActorColumn<std::uint8_t> Psuedo{};    // set by all spawners
inline constinit Column16<> Name{};                     // number of a text
inline constinit Column16<> Anim_Delay{}, Anim_Lock{};  // of the game
inline constinit Column16<> Act_accum{}, Act_delay{};   // of the game
inline constinit Column32<> Vertex_count{};             // of state/actor_lists.h
inline constinit Column32<> Poly_fade_start{};          // strength of a polygon's shading,
inline constinit Column32<> Poly_fade_end{};            // where it ends
inline constinit Column32<> Poly_wobble{};              // 1: its vertices wobble
inline constinit Column32<> Poly_wobble_phase{};        // 256ths
inline constinit Column32<> Poly_wobble_phase_2{};      // a second one beside it
inline constinit Column32<> Particle_total{};           // 0 to 128
inline constinit Column32<> Particle_spread_x{};        // pixels to each side, at a start
inline constinit Column32<> Particle_spread_y{};
inline constinit Column32<> Particle_rest{};                  // runs between two steps, at most; drawn at a start
inline constinit Column32<> Particle_life{};                  // runs, and
inline constinit Column32<> Particle_life_spread{};           // the random ones on top
inline constinit Column32<> Plasma_width{};                   // columns, 0 to 32
inline constinit Column32<> Plasma_cool_period{};             // runs between two coolings,
inline constinit Column32<> Plasma_feed_period{};             // two feedings,
inline constinit Column32<> Plasma_shift_period{};            // two shifts
inline constinit Column32<> Plasma_feeds{};                   // cells fed at a time
inline constinit Column32<> Plasma_cooling{};                 // heat lost at a time
inline constinit Column32<> Plasma_diameter{};                // of the ring of `BE_splash`, pixels
inline constinit Column32<> Plasma_growth{}, Plasma_decay{};  // of the ring, pixels a run

/// `[who][slot]`, of each of the four behaviours. BEHAVIOR is written last, with release, and read first, with acquire.
template <typename T> using SlotColumn = std::array<std::array<ActorWord<T>, behavior_slots>, actor_count>;
using ParamWords = std::array<ActorWord<std::int16_t>, behavior_params>;
inline constinit SlotColumn<std::int16_t> BEHAVIOR{};        // a Behavior
inline constinit SlotColumn<std::int16_t> Behavior_delay{};  // ticks of 140 Hz to skip between two runs
inline constinit SlotColumn<std::int16_t> Behavior_accum{};  // ticks counted since the last run
inline constinit std::array<std::array<ParamWords, behavior_slots>, actor_count> Behavior_param{};
inline constinit SlotColumn<bool> Kill_on_end{};  // the actor goes when this slot's behaviour ends
}  // namespace actor

// ---- The pool ------------------------------------------------------------------------------------------------------

/// Actors that one effect spawned, so that they can be moved to a view together.
inline constinit auto Pixel_elements = filled<Shared<std::int16_t>, actor_count>(actor_none);
inline constinit Shared<std::int16_t> Controlled_actor = 0;  // the one that the user steers; puppets watch it
inline constinit Shared<bool> Init_sweep = false;            // the whole table is wiped, the protected rows too

/// What a game hangs in by `publish`; null is none. All but `drawn` are called by either flow.
namespace app_hook {
inline constinit Shared<void (*)(int who)> destroyed = nullptr;  // before the reset of one with an `App_link`
inline constinit Shared<void (*)(int who)> drawn = nullptr;      // after each drawn actor
/// After each run of a behaviour; a result other than 0 is the slot that runs next in the actor's turn.
inline constinit Shared<int (*)(int who, int slot)> behavior_ran = nullptr;
}  // namespace app_hook

/// What `BE_bloom_control` publishes: a rectangle of the screen, pixels; all -1 when there is none.
inline constinit Shared<int> bloom_x = -1, bloom_y = -1, bloom_w = -1, bloom_h = -1;

}  // namespace nubo
