#pragma once
// The keys that change the main option of the tool or the ink in use, without a window. Main flow only.

namespace nubo {

/// Flips the option of the active tool, or shows its slider as long as the key is down; nothing for a tool without.
void toggle_tool_option();

/// Shows the slider of the active ink's option as long as the key is down, or moves a gradient's nodes.
void toggle_ink_option();

enum OptionOwner : int { OWNER_TOOL, OWNER_INK };

/// Shows a slider of the main option of a tool or an ink, by its number, as long as the option's key is down. Nothing
/// for one whose option has no slider by key.
void option_slider(OptionOwner owner, int number);

}  // namespace nubo
