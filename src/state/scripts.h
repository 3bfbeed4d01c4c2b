#pragma once
// Scripts: scenes of a game as bytecode, which the 100 Hz handler runs, one command a slot and tick. The files and the
// commands stand in game/scripts.h.
#include "state/shared.h"
#include <array>
#include <cstdint>

namespace nubo {

inline constexpr int script_slots = 20, script_cells = 10'000, script_vars = 32, script_args = 10;
inline constexpr int script_text_size = 300;  // bytes, with the zero at the end
/// As `wait_who` and `wait_slot`: not told so far; and that there is nothing to wait for.
inline constexpr int object_unknown = -1, object_none = -2;

/// The bytes of a script that are no command and no character of a string.
enum ScriptByte : int { SCRIPT_START = 0xf0, SCRIPT_STRING = 0xf1, SCRIPT_ARGUMENT = 0xf2, SCRIPT_END = 0xff };
inline constexpr char script_quote = '"';

namespace script {
template <typename T> using Column = std::array<Shared<T>, script_slots>;

/// Set, by `publish`, by whoever starts a loaded script, with `pc` at 0 and `owner` at its actor; cleared at its end.
inline constinit Column<int> active{};
inline constinit Column<int> pc{};              // offset of the next command
inline constinit Column<int> waiting{};         // for the behaviour below to end
inline constinit Column<int> wait_pending{};    // to be told which one
inline constinit Column<std::int16_t> pause{};  // ticks to sleep
inline constinit Column<std::int16_t> owner{};  // the actor that the script belongs to
inline constinit auto wait_who = filled<Shared<std::int16_t>, script_slots>(object_unknown);
inline constinit auto wait_slot = filled<Shared<std::int16_t>, script_slots>(object_unknown);  // written last
inline constinit auto last_job = filled<Shared<int>, script_slots>(-1);  // slot of the job queued last, -1 none
/// `[slot][argument]`, of the command that runs; those that it wasn't given are 0.
inline constinit std::array<std::array<Shared<std::int16_t>, script_args>, script_slots> args{};
inline constinit std::array<std::array<Shared<std::int16_t>, script_cells>, script_slots> code{};  // a byte a cell
inline constinit std::array<std::array<Shared<std::uint8_t>, script_vars>, script_slots> vars{};
inline constinit std::array<std::array<Shared<char>, script_text_size>, script_slots> text{};  // the last string read
}  // namespace script

/// Object and slot of the behaviour that was started last for a script: whoever starts one writes them, the slot last.
/// The script that waits is told of them by JOB_SCRIPT_WAIT.
inline constinit Shared<int> Last_who = object_unknown, Last_slot = object_unknown;

/// The actor that a script's camera looks at, -1 none. Written by scripts, for the game to read.
inline constinit Shared<int> script_camera = -1;

}  // namespace nubo
