#pragma once
// How the program goes down.
#include <optional>

namespace nubo {

/// The exit sequence: writes the workspace and closes what is open. The program's exit code: 0, or another when
/// something couldn't be written where it belongs. None where the end was asked for by hand, the work could be written
/// nowhere and the user, who has been told, wants to keep it: then the program runs on, with `exit_requested` clear.
std::optional<int> shutdown_program();

/// From now on the work is saved at an end that comes from outside.
void save_work_at_sudden_end();

}  // namespace nubo
