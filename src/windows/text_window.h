#pragma once
// The window of TEXT and its tool: a line is typed, carried over the picture and painted. Main flow only.
#include "state/tools.h"

namespace nubo {

/// Makes it the runner and the preview of TEXT. At start.
void register_text_window();

/// The text in the window and its look become the last ones, as if it had been painted; nothing where no window of TEXT
/// is open. For an end of the program that comes over it.
void keep_open_text();

/// The tool from the press on the Frame to the paint, or to the leaving without any.
void text_tool(BrushTool tool = TOOL_TEXT);

}  // namespace nubo
