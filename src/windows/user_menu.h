#pragma once
// The command of the USER menu that the hotkeys share.

namespace nubo {

/// Asks whether the program shall end; OKAY sets `exit_requested`.
void ask_to_quit();

}  // namespace nubo
