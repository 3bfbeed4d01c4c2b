#pragma once

namespace nubo {

/// GUIDES: what painters switch on while they paint. It shows its effect on the Frame behind it at once; CANCEL puts
/// all back. Main flow only.
void guides_window();

}  // namespace nubo
