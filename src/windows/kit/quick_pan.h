#pragma once

namespace nubo {

/// Shows the whole Frame as a map as long as the middle button or the key is held; the place under the mouse becomes
/// the view. Main flow only.
void quick_pan();

}  // namespace nubo
