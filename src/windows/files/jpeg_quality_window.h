#pragma once
// How good a JPEG shall be, seen before it is written.

namespace nubo {

/// Asks for the quality, 0 to 100, and shows the Frame as a JPEG of it would look, at first and at each press of VIEW.
/// The quality, which `jpeg_quality` holds then, or -1 after CANCEL. The Frame comes back as it was. Main flow only.
int jpeg_quality_window();

}  // namespace nubo
