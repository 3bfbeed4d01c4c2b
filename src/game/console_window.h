#pragma once
// The developer's console over the running program: its window and its keys. The editor has no key that opens it. Main
// flow only.

namespace nubo {

/// Runs the console until the user leaves it by the tilde key, ESC or EXIT, or the program ends. No element and no view
/// lives meanwhile, and the delays of jobs stand still. With `paused` other than 0 the picture stands still too: it is
/// shown again only when a key has changed a line.
void UA_console(int paused);

/// Draws the pictures of the last second and the number of actors, if SHOWFPS has switched that on. Main flow.
void draw_frame_rate();

/// The character that a key types into the console, upper case; '\0' for a key that types none of ASCII.
char UA_console_key(int code);

}  // namespace nubo
