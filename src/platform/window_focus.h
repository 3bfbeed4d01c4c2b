#pragma once
// The program's window among those of the desktop.

namespace nubo {

/// Asks the window manager to bring the window forward and give it the keyboard, as when the user has asked for it from
/// outside. Main flow only.
void raise_window();

}  // namespace nubo
