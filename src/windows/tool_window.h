#pragma once

namespace nubo {

/// The window in which the user picks what a tool slot of the drawing menu holds, 0 to 5, and sets the tool's options.
/// Main flow only.
void tool_window(int slot);

}  // namespace nubo
