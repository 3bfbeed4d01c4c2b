#pragma once
// The pool of actors, numbered 0 to 49, and the calls that give them something to do. The table stands in
// state/actors.h. Who draws them is game/draw_actors.h, what their slots can do game/behaviors.h.
//
// Where nothing else is said a call may come from either flow: a row that is handed out belongs to its caller alone
// until it writes a `Type`, and one that is destroyed is handed out only when all of it is reset.
#include "platform/folder.h"
#include "state/actor_lists.h"
#include <array>
#include <span>

namespace nubo {

// ---- The pool ------------------------------------------------------------------------------------------------------

/// Frees all rows and takes row 0 for the protected actor. Once at start, while the handlers are locked.
void UA_initialize_actors();

/// The lowest free row from 1 to 48, or -1 after a line in the log. The row holds what its last actor left; it is kept
/// for the caller, who cleans it by `UA_destroy_actor`, writes its fields and its `Type` last. ACTOR_FREE gives it
/// back.
int UA_grab_object();

/// Gives every field its reset value, which frees the row unless it was just grabbed, frees the actor's speech bubbles
/// and ends its scripts. Before it calls `app_hook::destroyed` if the actor has an `App_link`, behind it the
/// `Suicide_buddy` goes as well. Rows 0 and 49 and numbers outside are refused with a line in the log, which names the
/// caller by `tag`.
void UA_destroy_actor(int who, const char* tag);

/// Destroys the actors from 1 to 49 of that `Type` and `Profession`, -1 for any, and returns how many went. Row 49 is
/// refused in the log if it matches, as by `UA_destroy_actor`.
int UA_destroy_actor_type(int type, int profession);

/// Destroys the actors that were made under the controlled actor `id`.
void UA_manually_kill_puppet_suicides(int id);

/// Destroys the letters that are drawn in the view of a GUI slot.
void GUI_killed_captured_actors(int window);

/// The rows in use, the protected one included.
int UA_count_actors();

/// A random row from 1 to 49 among those of that `Type`, `Profession` and `Rank`, -1 for any; -1 if none matches.
int UA_pick_actor(int type, int profession, int rank);

/// Updates the screen until the row is free or the program ends. Rows that may not be destroyed are refused with a line
/// in the log. Main flow.
void pause_for_object(int who);

// ---- Spawners: -1 after a line in the log when no row is free ------------------------------------------------------

/// A new actor of a cel, everything else at its reset value.
int UA_spawn_blank_element(int frame_x, int frame_y);

/// A new emitter at a place: `particles` specks fly along `heading`, 256ths, one pixel every `delay` + 1 ticks of
/// 140 Hz, until `self_destruct` ticks are over; -1 never.
int IS_spawn_dust_emitter(int x, int y, int z, int particles, int heading, int delay, int self_destruct);

/// A new cel at a place that turns by a step every `rotate_delay` + 1 ticks, rises by a pixel every `rise_delay` + 1,
/// and goes when it has risen by 16.
int UA_spawn_dust_cloud(int x, int y, int z, int frame_x, int frame_y, int rotate_delay, int rise_delay);

// ---- Giving an actor something to do -------------------------------------------------------------------------------

/// Fades an actor in (`up` not 0) from `Opacity` 1 or out from 254, by `step` every `delay` + 1 ticks, by a
/// `BE_true_fade`. Its slot; -1, with the actor unchanged, after a line in the log when all four are taken.
int UA_fade_actor(int who, int up, int step, int delay);

/// Sends an actor from where it is to a place, by a `BE_vector_movement_threshold` in slot 1: the longest axis at
/// `speed` 10000ths of a pixel every `delay` + 1 ticks, the others so that all arrive together. Each time that
/// `threshold` percent of the way are behind it, it slows down and the threshold moves halfway to 100.
void vector_move_threshold(int who, int x, int y, int z, int speed, int delay, int threshold);

/// Which list of cels a call means.
enum CelList : int { CELS_RUNNING = 0, CELS_IDLE = 1 };

/// The same as `UA_store_anim` from a list of triples. What doesn't make a triple is left out.
void UA_store_cels(int who, int list, int looped, std::span<const int> triples);

/// Fills a CelList with `count` triples of column, row and delay. A triple with a column of -1 is left out but takes
/// its place. Behind the last one the list starts again if `looped` is 1, else it ends. More than 32 cels, or 16 idle
/// ones, and an actor that may not be worked on are refused with a line in the log.
template <typename... Numbers> void UA_store_anim(int who, int list, int looped, int count, Numbers... numbers) {
    const std::array<int, sizeof...(numbers)> triples{numbers...};
    const std::size_t wanted = count < 0 ? 0 : static_cast<std::size_t>(count) * 3;
    UA_store_cels(who, list, looped, std::span(triples).first(wanted < triples.size() ? wanted : triples.size()));
}

/// Starts the running animation of a CelList on a random cel of it.
void UA_randomize_anim(int who, int list);

// ---- The behaviours in an actor's slots ----------------------------------------------------------------------------

/// The lowest free slot of an actor, -1 if all are taken, or after a line in the log if there is no such actor. To
/// start a behaviour write its parameters, its delay, a `Behavior_accum` of 0, and then publish its number.
int get_free_behavior(int who);

/// The highest slot that runs `behavior`, -1 if none; 0 after a line in the log if there is no such actor.
int check_behavior(int who, Behavior behavior);

/// Ends a behaviour, and the actor with it if the slot says so.
void BE_clear_behavior(int who, int slot);

/// Runs a slot's behaviour once. 5 after `BE_force_pause`, which ends the actor's turn, else 0.
int UA_check_behaviors(int who, int slot);

/// The behaviour tick, 140 Hz. Timer handler; does nothing while `handlers_locked` is set.
void UA_behavior_handler();

// ---- The table as a whole ------------------------------------------------------------------------------------------

/// Moves the actors that ride on others to their places and copies all that drawing reads to state/drawn_actors.h. At
/// the start of each screen update. Main flow.
void UA_snapshot_actors();

/// Reads the template `actor.lst` of a folder into a row: 147 lines of 30 characters of label and a number. A file that
/// is missing or too short leaves the row as it is, with a line in the log. Main flow.
void UA_load_actor_list(const Folder& folder, int who);

/// Writes an actor's fields of the game, its place, its behaviours and its first 64 way points into the log.
void UA_dump_actor(int who);

}  // namespace nubo
