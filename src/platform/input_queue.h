#pragma once
// What the user's hands did, from where it is heard to where it is acted on. A press, a release, a key stroke is a
// change that waits in a queue until the main flow has taken it; of the mouse's places only the newest counts.
//
// One side writes: Allegro's callbacks, which run under the lock of the X connection, or a scripted user. The other
// side reads: the main flow. No locks.
#include "state/typing.h"
#include <array>

namespace nubo {

/// A place of the window, in real pixels.
struct Place {
    int x = 0, y = 0;
    bool operator==(const Place&) const = default;
};

/// What goes down and up: Allegro's key codes, and behind them the buttons in the order of Allegro's bits.
inline constexpr int input_keys = 128, input_buttons = 3, input_codes = input_keys + input_buttons;

/// The code of what only goes down: the button in the window's frame that asks the program to end.
inline constexpr int input_close = input_codes;

/// A button or a key went down or up while the mouse was at `place`.
struct InputChange {
    int code = 0;
    bool down = false;
    Place place{};
    char32_t character = character_unknown;  // that a key types
    bool is_button() const { return code >= input_keys && code < input_codes; }
    int button() const { return code - input_keys; }
};

// ---- The side that hears -------------------------------------------------------------------------------------------

/// The mouse is at (x, y), real pixels, with `buttons` down, Allegro's bits. What has changed of them goes to the
/// queue.
void note_mouse(int x, int y, int buttons);

/// The key is down and types `character`, or is up. A key down that is down already, as by the keyboard's own
/// repeating, is no change.
void note_key(int code, bool down, char32_t character = character_unknown);

/// The user has asked the window to close, after all that was noted before.
void note_close();

// ---- The side that acts: the main flow -----------------------------------------------------------------------------

/// Where the mouse is. Read it before the first change: then no change that came before that place is missed.
Place newest_place();

/// The change that waits longest, null when none waits. It stays till it is dropped.
const InputChange* first_change();
void drop_first_change();

}  // namespace nubo
