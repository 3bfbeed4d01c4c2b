#pragma once

namespace nubo {

/// The window of the 36 brush tips and the CustomTip. The caller has closed what stood, and builds the drawing menu
/// afterwards. Main flow only.
void tip_window();

}  // namespace nubo
