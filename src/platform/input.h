#pragma once
// Hearing the user. Allegro's own thread looks at the X connection about 100 times a second; here the main flow sleeps
// on the connection itself, so that a press or a drag is seen when it comes.

namespace nubo {

/// Has every press, release, key stroke and place of the mouse noted in the input queue, from now on. Once, when
/// Allegro's mouse and keyboard are installed.
void install_input();

/// Believes what the X server says of the mouse where Allegro can't know better: its place, when it came to lie on the
/// window without a motion, and a held button whose release went elsewhere, as when a key minimised the window. From
/// time to time, in every picture. Main flow only.
void check_mouse();

/// Sleeps for `milliseconds`, or until `wanted` says so, which is asked whenever something came from the X server.
/// Without a window it sleeps the whole time. Main flow only.
void rest_until_input(int milliseconds, bool (*wanted)());

/// Hands over to the X server what was drawn, which would else wait in the connection's buffer. Main flow only.
void send_drawing();

}  // namespace nubo
