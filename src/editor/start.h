#pragma once
// How the program comes up and goes down.

namespace nubo {

/// The start sequence, up to the program loop. 0, or the exit code of a program that can't run; what was wrong has been
/// said.
int start_program();

/// The exit sequence: writes the workspace and closes what is open. The program's exit code: 0, or another when
/// something couldn't be written where it belongs.
int shutdown_program();

}  // namespace nubo
