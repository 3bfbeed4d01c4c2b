#pragma once
// The present step: the picture goes to the window, then the main flow rests as the power saving asks.

namespace nubo {

/// Puts `screen_buffer` into the window, enlarged, if it differs from the picture presented last, then rests. What the
/// program makes ready while nobody waits for a picture runs in between, a little at a time. Main flow only.
void present(void (*before_rest)() = nullptr);

/// Takes the place of the window and the rest: for tests, whose scripted user acts here. Null goes back to the window.
void set_present_hook(void (*hook)());

/// Forgets the picture presented last, so that the next one goes out whole.
void forget_presented_picture();

}  // namespace nubo
