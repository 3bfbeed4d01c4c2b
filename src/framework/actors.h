#pragma once
// The pool of actors, numbered 0 to 49, and their behaviours, which the 140 Hz handler runs.
#include "state/actors.h"

namespace nubo {

// ---- The pool ------------------------------------------------------------------------------------------------------

/// Frees all rows and takes row 0 for the protected actor. Once at start.
void UA_initialize_actors();

/// The lowest free row from 1 to 48, or -1 after a line in the log.
int UA_grab_object();

/// A new actor of a cel, everything else at its reset value; -1 after a line in the log when none is free.
int UA_spawn_blank_element(int frame_x, int frame_y);

/// Gives every field its reset value, which frees the row, and frees the actor's speech bubbles. Rows 0 and 49 and
/// numbers outside are refused with a line in the log, which names the caller by `tag`.
void UA_destroy_actor(int who, const char* tag);

/// The rows in use, the protected one included.
int UA_count_actors();

// ---- Behaviours ----------------------------------------------------------------------------------------------------

/// The lowest free slot of an actor, -1 if all are taken or there is no such actor.
int get_free_behavior(int who);

/// The highest slot that runs `behavior`, -1 if none; 0 after a line in the log if there is no such actor.
int check_behavior(int who, Behavior behavior);

/// Ends a behaviour, and the actor with it if the slot says so.
void BE_clear_behavior(int who, int slot);

/// Moves the screen's tint toward a strength. Parameters: red, green, blue, strength, step. It ends when the strength
/// is reached with moves to spare; with a step below 1 it only sets the colour, and stays.
void BE_palette_control(int who, int slot);

/// Runs a slot's behaviour once.
void UA_check_behaviors(int who, int slot);

/// The behaviour tick, 140 Hz. Timer handler; does nothing while `handlers_locked` is set.
void UA_behavior_handler();

// ---- The screen tint -----------------------------------------------------------------------------------------------

/// Starts a fade of the whole screen in a colour toward the strength `target`, 0 to 254, by `step` on every tick after
/// `delay` others, or turns the running one there. The screen update draws it from `tint_r` and so on. Main flow.
void UA_tint_screen(int r, int g, int b, int target, int delay, int step);

}  // namespace nubo
