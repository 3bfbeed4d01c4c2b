#pragma once
// One command of a script, for the script tick. Timer flow.

namespace nubo {

/// What a command means for the scripts behind it.
enum ScriptTick : int { TICK_GOES_ON, TICK_ENDS };

/// Runs the command at a slot's `pc`, which is left on the last cell that belongs to it.
ScriptTick run_script_command(int slot);

/// Waits for the behaviour that the script was told of, or to be told of one: by `waiting` and `wait_pending`.
void wait_for_behavior(int slot);

}  // namespace nubo
