#pragma once
// The developer's console: its lines, what was entered, and the switches that it flips. Main flow, but for the one word
// that handlers read.
#include "state/shared.h"
#include <array>

namespace nubo {

inline constexpr int console_lines = 8, console_history = 10, console_line_size = 80;  // bytes, with the zero
using ConsoleLine = std::array<char, console_line_size>;

inline constinit std::array<ConsoleLine, console_lines> Console_lines{};      // 0 is the one being typed
inline constinit std::array<ConsoleLine, console_history> Console_history{};  // 0 is the one entered last
inline constinit int Console_cursor = 0;  // while walking the history: one more than the line's number, 0 not walking
inline constinit Shared<int> Console_running = 0;  // cleared to leave

inline constinit int show_fps = 0;      // the picture shows its rate and the number of actors
inline constinit int Console_zoom = 0;  // the window shows only the middle of the picture, twice as large

}  // namespace nubo
