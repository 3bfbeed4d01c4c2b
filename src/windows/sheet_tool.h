#pragma once

namespace nubo {

/// The window SPRITE SHEET TOOL: lays the Frame out as a sheet of empty sprites. Main flow only.
void sheet_tool();

}  // namespace nubo
