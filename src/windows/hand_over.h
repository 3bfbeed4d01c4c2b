#pragma once

namespace nubo {

/// Hands over to the rooms below what they call without knowing it: the drawers of elements, the runners of tools that
/// open a window, the previews on the overlay. Once, before the first picture.
void hand_over_windows();

}  // namespace nubo
