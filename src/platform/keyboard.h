#pragma once
// Which key is which: from the keys of the X server, whatever is printed on them, to Allegro's key codes.
#include <array>

namespace nubo {

inline constexpr int x_keys = 256;

/// What is printed on a key, without and with shift, as X names symbols: a Latin character is its ASCII code. 0:
/// nothing.
struct KeyPrint {
    unsigned long plain = 0, shifted = 0;
};
using KeyPrints = std::array<KeyPrint, x_keys>;
using KeyCodes = std::array<int, x_keys>;

/// The key codes of a keyboard, from Allegro's own. A key that prints a character of which there is a code has that
/// code; one that prints something else has the code of its place on a US keyboard, or, if another key prints that, one
/// that is left. A
/// keyboard that doesn't print all Latin letters, such as a Greek one, goes by the places altogether.
KeyCodes key_codes_of(const KeyPrints& prints, KeyCodes codes);

// ---- Under the lock of the X connection ----------------------------------------------------------------------------

/// Gives Allegro the key codes of the keyboard there is.
void map_keyboard();

/// The same again, if Allegro has made its own since: the user has chosen another keyboard.
void keep_keyboard_map();

/// What X calls the symbol that the key has now typed, with the modifiers that were down when it was struck. For a key
/// that is being heard.
unsigned long symbol_of_press(int x_key);

/// From now on remembers the modifiers of each press, and keeps quick strokes of one key apart: Allegro takes a release
/// and a press of the same millisecond for the keyboard's own repeating, and drops the release. So each release is read
/// as one of the millisecond before.
void watch_key_strokes();

}  // namespace nubo
