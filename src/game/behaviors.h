#pragma once
// The repertoire: what a slot of an actor can do, one function a number of `Behavior`. Each is one run; all that it
// remembers it keeps in its parameters p0 to p9. "Ends" is `BE_clear_behavior`. Angles are 256ths of a circle, a count
// is the number of runs until the end. They run on the behaviour tick; random numbers are those of `UA_random_b`.
#include "state/actor_lists.h"

namespace nubo {

/// One run: the actor and the slot that it works on, which are checked.
struct BehaviorRun {
    std::size_t who, slot;
    actor::ParamWords& param;

    /// Ends the behaviour, and the actor with it if the slot says so: nothing of the actor is written behind it.
    void end() const;
    /// Ends the behaviours of that number in the actor's other slots.
    void end_others(Behavior behavior) const;
};

/// Runs the behaviour of a number on a slot, whatever the slot holds: for a game that drives one itself. A bad actor or
/// slot is told in the log under the behaviour's own name; an unknown number does nothing. 5 of `BE_force_pause`, else
/// 0.
int run_behavior(int number, int who, int slot);

// ---- Moves (behaviors_moves.cpp, behaviors_vectors.cpp) ------------------------------------------------------------

/// Bobs: `Pos_z` = p0 + p2 * sine of p1, rounded; p1 goes on by p3, or by 1 if that is 0.
void BE_float(const BehaviorRun& run);
/// Raises `Pos_z` by p1, p0 times.
void BE_riser(const BehaviorRun& run);
/// Flies by `Vel_*`, up by `-Vel_z`, for p0 runs, counted in p1; with p2 gravity adds 100 to `Vel_z`.
void BE_projectile(const BehaviorRun& run);
/// Moves four pixels out, in direction p0 (0 up, 1 right, 2 down, 3 left), and back, p3 times with p4 runs between. It
/// slows down toward the far end. p1 is the stage, p2 and p5 count runs.
void BE_slide_unit(const BehaviorRun& run);
/// Stands on a random one of the 8 neighbours of (p0, p1), p3 times.
void BE_jitter(const BehaviorRun& run);
/// Turns `Sprite_angle` by p0; at 6 the actor goes up by 2 in `Pos_y` and `Pos_z`, at 134 down.
void BE_slide_rotate(const BehaviorRun& run);
/// From p0 to p2 toward p3 to p5 by `Vel_*`, up by `-Vel_z`. p7 times a run each axis is looked at: one that has p6
/// percent of its way behind it falls to 0.75 of its speed, one that has all of it stands on its target; if there was
/// one with a way to go, p6 moves halfway to 100. Never ends.
void BE_vector_movement_threshold(const BehaviorRun& run);
/// Moves by (p0, p1), p2 times. At the end it ends `BE_animate`, too, if `Move_stops_anim` is set.
void BE_linear_move(const BehaviorRun& run);
/// The same, and always ends `BE_animate`.
void BE_linear_move_kill_anim(const BehaviorRun& run);
/// For p0 runs, p7 times a run: moves by `Vel_*`, adds 100 to `Vel_z` if p6, and p1 to p3 to `Vel_*` once p5 runs are
/// over. With p4 an axis that comes to rest, or would turn round, stays at rest.
void BE_vector_movement(const BehaviorRun& run);

// ---- Cels (behaviors_cels.cpp) -------------------------------------------------------------------------------------

/// Of both walks along a list of cels: runs on this cel, and its index; a negative one is a delay before the start.
enum AnimParam : std::size_t { ANIM_TICKS = 0, ANIM_CEL = 2 };

/// Walks along `Anim_cels`. When its delay ends it ends its like in other slots.
void BE_animate(const BehaviorRun& run);
/// Counts p2 down; at 0 it ends `BE_animate` and itself.
void BE_delayed_animation(const BehaviorRun& run);
/// Walks along `Idle_cels`; stands still while a slot runs `BE_animate` or `BE_linear_move_kill_anim`.
void BE_standing_animation(const BehaviorRun& run);

// ---- Fades (behaviors_fades.cpp) -----------------------------------------------------------------------------------

/// Level p0 by 1, up if p1 is 0: written to `Opacity`, in ACTOR_TRANSLUCENT. At 14 it hides the actor, and it ends
/// there and below 0.
void BE_fade(const BehaviorRun& run);
/// Changes `Color`, `Opacity` or `Color_alpha`, p3 0 to 2, by p1, down if p0 is 0, p2 times.
void BE_index_fade(const BehaviorRun& run);
/// Moves the screen's tint of colour p0 to p2 toward the strength p3 by p4. It ends when the strength is reached with
/// moves to spare; with a step below 1 it only sets the colour, and stays.
void BE_palette_control(const BehaviorRun& run);
/// Level p0 in `Opacity` up by 11 to 255; p3 runs later two waves set in; a flash of `Opacity` 3 to 13, and the end. p1
/// is the stage, p2 counts runs.
void BE_flash_fade_in_out(const BehaviorRun& run);
/// Turns ACTOR_DRAWN and ACTOR_HIDDEN into each other. Never ends.
void BE_blink(const BehaviorRun& run);
/// `Glow_phase`: stage p1 0 raises the level p0 to 13, ends the glow and its `BE_glow_cycle`; 1 lowers it to p2, 2
/// holds it for p3 runs and goes on with 0.
void BE_glow_fade(const BehaviorRun& run);
/// Steps `Glow_frame`, forward if p0 is 0, within 0 to 31. Never ends.
void BE_glow_cycle(const BehaviorRun& run);
/// Level p0 in `Opacity`, in ACTOR_WHITE_FADE, by p2, up if p1 is 0; outside 0 to 255 the actor is drawn plainly and it
/// ends.
void BE_white_fade(const BehaviorRun& run);
/// Adds p0 to `Opacity`, in ACTOR_TRANSLUCENT. At 0 it hides the actor, at 255 it draws it plainly, and ends.
void BE_true_fade(const BehaviorRun& run);
/// Hides an actor that is drawn plainly, draws any other; once if p0 is 0.
void BE_toggle_mode(const BehaviorRun& run);

// ---- Shapes (behaviors_shapes.cpp) ---------------------------------------------------------------------------------

/// Changes `Diameter` by p1, up if p0 is 0, p2 times.
void BE_expander(const BehaviorRun& run);
/// Moves the particles by a pixel along `Angle`, each when it has rested, ages them and restarts those whose life is
/// over.
void BE_particle(const BehaviorRun& run);
/// Cools, feeds and shifts `Plasma_cells`, each by its `Plasma_*_period`; p0 to p2 count the runs.
void BE_plasma(const BehaviorRun& run);
/// `Plasma_diameter`: stage p3 0 grows by twice `Plasma_growth` for p0 runs, 1 by it for p1 runs, 2 shrinks by
/// `Plasma_decay` until it is past 0. p2 counts the runs of the last stage.
void BE_splash(const BehaviorRun& run);
/// Adds p0 to `Sprite_angle`, or to `Angle` if p1. Less than a step from the angle p2, 0 for none, it ends and the
/// sprite stands upright.
void BE_rotate(const BehaviorRun& run);
/// `Diameter` by 1, in the other direction every p0 runs; p1 counts, p2 is the direction. Never ends.
void BE_poly_diameter_pulse(const BehaviorRun& run);
/// Publishes a rectangle at (p0, p1) of p4 by p5 tenths of a pixel, which shrink by a tenth of p2 and p3 a run; ends
/// when a side is gone.
void BE_bloom_control(const BehaviorRun& run);

// ---- Control (behaviors_control.cpp, behaviors_variables.cpp) ------------------------------------------------------

/// Adds p1 to the fog's density p0; outside 1 to 331 the fog is off and it ends.
void BE_control_fog(const BehaviorRun& run);
/// Every p1 runs, counted in p0, a clone of the actor goes into a free row; with p3 it stands still and leaves no trail
/// itself. Ends with the p4th; -1 never.
void BE_spawn_trail(const BehaviorRun& run);
/// Has a job p0 wait in the queue, with p2 to p8 as its arguments, p9 as its script and a random delay below p1. The
/// one that waits already counts. Never ends.
void BE_framework_event(const BehaviorRun& run);
/// Holds the slots behind it back for p0 runs.
void BE_force_pause(const BehaviorRun& run);
/// Changes the variable p0 by p1; with p2 as a count and p3 as an index where the variable has them.
void BE_modify_variable(const BehaviorRun& run);

}  // namespace nubo
