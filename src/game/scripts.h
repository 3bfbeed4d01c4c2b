#pragma once
// Scripts: scenes of a game that pause, move the view, fade actors, open bubbles and wait for them. The slots stand in
// state/scripts.h, the language in game/script_compiler.h; the handler of game/script_tick.h runs them.
//
//     UA_load_script(resource_folder(), 3, 102);
//     script::owner[3] = who;
//     script::active[3].publish(1);
#include "platform/folder.h"
#include "state/scripts.h"
#include <cstddef>

namespace nubo {

// ---- Commands ------------------------------------------------------------------------------------------------------

/// By number, with their arguments. Any other number is skipped.
enum ScriptCommand : int {
    SCRIPT_PAUSE = 2,        // ticks
    SCRIPT_WAIT = 3,         // for the behaviour of which JOB_SCRIPT_WAIT or SCRIPT_FADE has told
    SCRIPT_QUEUE_WAIT = 10,  // a, b, c, d, e: queues JOB_SCRIPT_WAIT with b to e
    SCRIPT_REMARK = 12,      // any, dropped
    SCRIPT_QUEUE_GAME = 20,  // a, b, c, d, e: queues JOB_SCRIPT, which is the game's, with b to e
    SCRIPT_CAMERA = 21,      // a: -1 no actor, else the controlled one
    SCRIPT_SCROLL = 22,      // x, y of the view
    SCRIPT_REMARK_2 = 41,    // any, dropped
    SCRIPT_BUBBLE = 42,      // a, hold, then a string: over the owner
    SCRIPT_FADE = 60,        // v, up, delay: the owner when v is -1, else the actor that variable v names
    SCRIPT_KEEP_JOB = 70,    // a, b, c, d, v: the slot of the job queued last goes to variable v, unless v is -1
    SCRIPT_KEEP_JOB_2 = 71,  // a, b, c, d, e, f, v: the same
    SCRIPT_STOP = 99
};

// ---- Loading: main flow --------------------------------------------------------------------------------------------

inline constexpr const char *scripts_source_file = "scripts.def", *scripts_file = "mojo.def";
inline constexpr std::size_t scripts_size_max = std::size_t{16} << 20;  // bytes; far above any file of scripts

/// Stops a slot and gives all of it the value that it has without a script.
void UA_reset_script(int slot);

/// Resets a slot and loads the script `number` of "mojo.def" in the folder "resource" into it: the first of that
/// number, of which 9,999 bytes fit. It runs once `active` is set. `number`; or -1 after a line in the log, and the
/// slot ends at once when it is started.
///
/// A slot that runs may be within a command of the handler's: stop it, and load a picture later.
int UA_load_script(const Folder& folder, int slot, int number);

// ---- Running -------------------------------------------------------------------------------------------------------

/// A cell of a slot's code, `SCRIPT_END` outside of it.
int UA_script_cell(int slot, int offset);

/// Tells the script in `slot` which behaviour to wait for: `Last_who` and `Last_slot`. By JOB_SCRIPT_WAIT.
void tell_script_of_last_object(int slot);
/// Tells it that there is none: what it would wait for didn't begin.
void tell_script_of_no_object(int slot);

/// Ends each script that belongs to an actor, with a line in the log. Callable from both flows.
void UA_end_scripts(int owner);

}  // namespace nubo
