#pragma once
// The command of the USER menu that the hotkeys share.

namespace nubo {

/// Asks whether the program shall end; OKAY sets `exit_requested`. True if it will end. The caller has closed the
/// window on screen and builds the drawing menu on a refusal.
bool ask_to_quit();

}  // namespace nubo
