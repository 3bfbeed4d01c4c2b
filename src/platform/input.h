#pragma once
// Waiting for the user. Allegro's own thread looks at the X connection about 100 times a second; here the main flow
// sleeps on the connection itself, so that a press or a drag is seen when it comes.

namespace nubo {

/// Sleeps for `milliseconds`, or shorter if a mouse button changes or the mouse moves with a button held. Without a
/// window it sleeps the whole time. Main flow only.
void rest_until_input(int milliseconds);

}  // namespace nubo
