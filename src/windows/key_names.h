#pragma once
// Key combinations by name.
#include <string>

namespace nubo {

/// The name of a key value (state/hotkeys.h): the prefix of its modifiers and the key's name, at most `key_name_length`
/// characters. "UNDEFINED" for 0; empty for a code that is none.
std::string key_name(int key_value);

}  // namespace nubo
