#pragma once

namespace nubo {

/// The same as `tool_window` for an ink slot, 0 to 5. A gradient's POSITION button ends it.
void ink_window(int slot);

}  // namespace nubo
