#pragma once
// The graphics mode, as config.def asks for it, and the bitmaps that every picture needs.

namespace nubo {

/// What went wrong in `UA_init_graphics`; the values are the exit codes of the program.
enum GraphicsResult : int { GRAPHICS_UP = 0, GRAPHICS_DENIED = -1 };

/// Reads config.def of the program's folder, sets the mode with its fall-backs, and makes the
/// bitmaps of the screen. A failure is logged and shown in a message box; the caller exits with the result.
GraphicsResult UA_init_graphics();

}  // namespace nubo
