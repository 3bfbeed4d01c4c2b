#pragma once

namespace nubo {

/// The window of the 36 brush tips and the CustomTip. Main flow only.
void tip_window();

}  // namespace nubo
